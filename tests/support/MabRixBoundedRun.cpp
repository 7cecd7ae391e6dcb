#include "MabRixBoundedRun.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace
{
thread_local int tOutputFd = -1;

long ResidentKiB()
{
  long Pages = 0, Resident = 0;
  std::FILE* pFile = std::fopen("/proc/self/statm", "r");
  if (!pFile)
    return 0;
  if (std::fscanf(pFile, "%ld %ld", &Pages, &Resident) != 2)
    Resident = 0;
  std::fclose(pFile);
  return Resident * (sysconf(_SC_PAGESIZE) / 1024);
}

bool UnderSanitizer()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
  return true;
#else
  return false;
#endif
#else
  return false;
#endif
}
}  // namespace

std::string MabRixBoundedResult::Describe() const
{
  std::string Text = _TimedOut ? "timed out"
                     : _Exited ? "exit code " + std::to_string(_ExitCode)
                               : "killed by signal " + std::to_string(_Signal);
  Text += ", peak " + std::to_string(_PeakKiB / 1024) + " MiB";
  if (!_Output.empty())
    Text += "\n" + _Output;
  return Text;
}

void MabRixBoundedSay(const std::string& iText)
{
  if (tOutputFd < 0)
    return;
  const std::string Line = iText + "\n";
  if (write(tOutputFd, Line.data(), Line.size()) < 0)
    return;
}

long MabRixMemoryBudgetKiB(long iPlainMiB) { return iPlainMiB * 1024 * (UnderSanitizer() ? 3 : 1); }

MabRixBoundedResult MabRixRunBounded(const std::function<int()>& iBody, unsigned iTimeoutSeconds)
{
  MabRixBoundedResult Result;
  int Pipe[2];
  if (pipe(Pipe) != 0)
    return Result;
  std::fflush(nullptr);
  const long BaseKiB = ResidentKiB();
  const pid_t Child = fork();
  if (Child == 0)
  {
    close(Pipe[0]);
    tOutputFd = Pipe[1];
    signal(SIGALRM, SIG_DFL);
    alarm(iTimeoutSeconds);
    int Code = 1;
    try
    {
      Code = iBody();
    }
    catch (const std::exception& iError)
    {
      MabRixBoundedSay(std::string("exception: ") + iError.what());
      Code = 3;
    }
    catch (...)
    {
      MabRixBoundedSay("unknown exception");
      Code = 3;
    }
    std::fflush(nullptr);
    _exit(Code);  // no exit handlers: the parent's leak check stays the parent's
  }
  close(Pipe[1]);
  if (Child < 0)
  {
    close(Pipe[0]);
    return Result;
  }
  char Buffer[4096];
  ssize_t Read = 0;
  while ((Read = read(Pipe[0], Buffer, sizeof Buffer)) > 0)
    Result._Output.append(Buffer, static_cast<std::size_t>(Read));
  close(Pipe[0]);
  int Status = 0;
  struct rusage Usage = {};
  while (wait4(Child, &Status, 0, &Usage) < 0 && errno == EINTR)
    ;
  Result._PeakKiB = Usage.ru_maxrss > BaseKiB ? Usage.ru_maxrss - BaseKiB : 0;
  if (WIFEXITED(Status))
  {
    Result._Exited = true;
    Result._ExitCode = WEXITSTATUS(Status);
  }
  else if (WIFSIGNALED(Status))
  {
    Result._Signal = WTERMSIG(Status);
    Result._TimedOut = Result._Signal == SIGALRM;
  }
  return Result;
}
