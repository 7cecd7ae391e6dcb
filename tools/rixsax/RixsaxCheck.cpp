#include "RixsaxCheck.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#include "RixsaxFileCheck.h"
#include "RixsaxJsonBasics.h"
#include "RixsaxJsonWriter.h"
#include "RixsaxRegistry.h"
#include "RixsaxReport.h"
#include "RixsaxSession.h"
#include "RixsaxSummary.h"
#include "RixsaxValueJson.h"

namespace
{
// What is kept of a file once read: its line and its status (the model is
// gone with the file's session).
struct FileOutcome
{
  std::string _Line;
  int _Status = RixsaxExitOk;
};

const char* StatusWord(int iStatus)
{
  switch (iStatus)
  {
    case RixsaxExitOk:
      return "ok";
    case RixsaxExitFailedResult:
      return "failed";
    case RixsaxExitOutOfMemory:
      return "out-of-memory";
    default:
      return "unreadable";
  }
}

// One JSON Lines record; a file's counts as in the summary.
std::string JsonLine(const RixsaxStepRecord& iStep, int iStatus)
{
  std::size_t Entries = 0;
  for (const MabIRixValue_var& Value : iStep._Values)
    Entries += RixsaxValueEntryCount(Value);
  const RixsaxContextCounts& Counts = iStep._ContextCounts;
  std::string Text;
  {
    RixsaxOutput Output(Text);
    RixsaxJsonWriter Writer(Output, false);
    Writer.BeginObject();
    Writer.Member("file", iStep._File);
    Writer.Member("handler", iStep._pEntry->_ClassName);
    Writer.Member("outcome", StatusWord(iStatus));
    Writer.MemberInt("status", iStatus);
    Writer.Member("result", RixsaxResultText(iStep._Result));
    Writer.MemberInt("values", static_cast<std::int64_t>(iStep._Values.Total()));
    Writer.MemberInt("checks", static_cast<std::int64_t>(iStep._Checks.Total()));
    Writer.MemberInt("failedCallbacks", static_cast<std::int64_t>(iStep._CallbackFailures.Total()));
    Writer.MemberInt("objects", static_cast<std::int64_t>(Counts._Objects));
    Writer.MemberInt("majorObjects", static_cast<std::int64_t>(Counts._MajorObjects));
    Writer.MemberInt("minorObjects", static_cast<std::int64_t>(Counts._MinorObjects));
    Writer.MemberInt("relationships", static_cast<std::int64_t>(Counts._Relationships));
    Writer.MemberInt("relations", static_cast<std::int64_t>(Counts._Relations));
    Writer.MemberInt("entries", static_cast<std::int64_t>(Entries));
    Writer.Key("firstProblem");
    if (const std::string Problem = RixsaxFirstProblem(iStep); !Problem.empty())
      Writer.String(Problem);
    else
      Writer.Null();
    Writer.EndObject();
    Output.Flush();
  }
  return Text + "\n";
}

FileOutcome ReadAndDescribe(const RixsaxOptions& iOptions, const RixsaxStepRequest& iRequest);

// A file whose reading or description ran out of memory is a line of its
// own; the other files go on (the exception must not leave a thread).
FileOutcome CheckFile(const RixsaxOptions& iOptions, const RixsaxStepRequest& iRequest)
{
  try
  {
    return ReadAndDescribe(iOptions, iRequest);
  }
  catch (const std::bad_alloc&)
  {
    FileOutcome Outcome;
    Outcome._Status = RixsaxExitOutOfMemory;
    try
    {
      Outcome._Line = "out-of-memory " + iRequest._File + "\n";
    }
    catch (const std::bad_alloc&)
    {
      Outcome._Line = "out-of-memory\n";
    }
    return Outcome;
  }
}

FileOutcome ReadAndDescribe(const RixsaxOptions& iOptions, const RixsaxStepRequest& iRequest)
{
  RixsaxSession Session(iOptions);
  const RixsaxStepRecord Step = RixsaxReadStep(Session, *RixsaxFindHandler(iRequest._Handler), iRequest._File);
  FileOutcome Outcome;
  Outcome._Status = RixsaxStepStatus(Step);
  if (iOptions._Format == RixsaxOutputFormat::Json)
    Outcome._Line = JsonLine(Step, Outcome._Status);
  else
  {
    std::string Line = RixsaxSummaryLine(Step);
    Line.pop_back();
    Outcome._Line = std::string(StatusWord(Outcome._Status)) + " " + Line;
    if (const std::string Problem = RixsaxFirstProblem(Step); !Problem.empty() && !Step._ParseError && !Step._HostError)
      Outcome._Line += "; first " + Problem;
    Outcome._Line += "\n";
  }
  return Outcome;
}
}  // namespace

int RixsaxCheckFiles(const RixsaxOptions& iOptions, RixsaxOutput& ioOutput)
{
  const std::vector<RixsaxStepRequest>& Files = iOptions._Steps;
  const unsigned Cores = std::max(1u, std::thread::hardware_concurrency());
  const std::size_t Jobs = std::min<std::size_t>(iOptions._Jobs > 0 ? iOptions._Jobs : Cores, Files.size());

  // Threads take the next file; the lines are printed in the order of the
  // files as soon as all before them are done.
  std::vector<FileOutcome> Outcomes(Files.size());
  std::vector<bool> Done(Files.size(), false);
  std::mutex Mutex;
  std::condition_variable Finished;
  std::atomic<std::size_t> Next{0};
  const auto Work = [&]() {
    for (std::size_t i = Next++; i < Files.size(); i = Next++)
    {
      FileOutcome Outcome = CheckFile(iOptions, Files[i]);
      const std::lock_guard<std::mutex> Lock(Mutex);
      Outcomes[i] = std::move(Outcome);
      Done[i] = true;
      Finished.notify_one();
    }
  };
  std::vector<std::thread> Threads;
  for (std::size_t i = 0; Jobs > 1 && i < Jobs; ++i)
    Threads.emplace_back(Work);

  std::size_t Counts[3] = {0, 0, 0};  // ok, failed, unreadable
  int Worst = RixsaxExitOk;
  const auto Print = [&]() {
    for (std::size_t Printed = 0; Printed < Files.size(); ++Printed)
    {
      FileOutcome Outcome;
      {
        std::unique_lock<std::mutex> Lock(Mutex);
        Finished.wait(Lock, [&] { return Done[Printed]; });
        Outcome = std::move(Outcomes[Printed]);
      }
      ioOutput.Write(Outcome._Line);
      ++Counts[Outcome._Status == RixsaxExitOutOfMemory ? 1 : std::min(Outcome._Status, 2)];
      Worst = std::max(Worst, Outcome._Status);
    }
  };
  // With one job the main thread reads the files itself, before printing.
  if (Threads.empty())
    Work();
  try
  {
    Print();
  }
  catch (...)
  {
    // The output failed: let the readers finish the file they hold, and
    // take no new one.
    Next = Files.size();
    for (std::thread& Thread : Threads)
      Thread.join();
    throw;
  }
  for (std::thread& Thread : Threads)
    Thread.join();

  if (iOptions._Format == RixsaxOutputFormat::Json)
    ioOutput.Write("{\"total\":{\"files\":" + std::to_string(Files.size()) + ",\"ok\":" + std::to_string(Counts[0]) +
                   ",\"failed\":" + std::to_string(Counts[1]) + ",\"unreadable\":" + std::to_string(Counts[2]) +
                   ",\"status\":" + std::to_string(Worst) + "}}\n");
  else
    ioOutput.Write("total: " + std::to_string(Files.size()) + " files, " + std::to_string(Counts[0]) + " ok, " +
                   std::to_string(Counts[1]) + " failed, " + std::to_string(Counts[2]) + " unreadable\n");
  return Worst;
}
