// rixsax: reads server responses through the library's handlers, playing the
// command layer, and prints what the handlers produced.
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

#include "RixsaxCheck.h"
#include "RixsaxDot.h"
#include "RixsaxFileCheck.h"
#include "RixsaxJsonWriter.h"
#include "RixsaxOptions.h"
#include "RixsaxOutput.h"
#include "RixsaxRegistry.h"
#include "RixsaxReport.h"
#include "RixsaxRunJson.h"
#include "RixsaxSession.h"
#include "RixsaxStep.h"
#include "RixsaxSummary.h"
#include "RixsaxYamlWriter.h"

namespace
{
void ListHandlers(RixsaxOutput& ioOutput)
{
  std::size_t Width = 0;
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    Width = std::max(Width, std::string(Entry._Name).size());
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
  {
    const std::string Name = Entry._Name;
    ioOutput.Write(Name + std::string(Width - Name.size() + 2, ' ') + Entry._Description + "\n");
  }
}

std::unique_ptr<RixsaxWriter> MakeWriter(RixsaxOutputFormat iFormat, RixsaxOutput& ioOutput)
{
  switch (iFormat)
  {
    case RixsaxOutputFormat::Json:
      return std::make_unique<RixsaxJsonWriter>(ioOutput, true);
    case RixsaxOutputFormat::Text:
      return std::make_unique<RixsaxYamlWriter>(ioOutput);
    case RixsaxOutputFormat::Summary:
    case RixsaxOutputFormat::Dot:
      break;
  }
  return nullptr;
}

// Runs the steps in order, each written out when it ends; a host error
// leaves the host in a state no later step should build on, so the run
// ends there.
int Read(const RixsaxOptions& iOptions, RixsaxOutput& ioOutput, int& ioStatus)
{
  RixsaxSession Session(iOptions);
  const std::unique_ptr<RixsaxWriter> spWriter = MakeWriter(iOptions._Format, ioOutput);
  if (spWriter)
    RixsaxWriteRunStart(*spWriter);
  for (const RixsaxStepRequest& Request : iOptions._Steps)
  {
    const RixsaxStepRecord Step = RixsaxReadStep(Session, *RixsaxFindHandler(Request._Handler), Request._File);
    ioStatus = std::max(ioStatus, RixsaxReportStep(Step));
    if (spWriter)
      RixsaxWriteStep(*spWriter, Step, iOptions._Trace);
    else if (iOptions._Format == RixsaxOutputFormat::Summary)
      ioOutput.Write(RixsaxSummaryLine(Step));
    if (Step._HostError)
      break;
  }
  if (spWriter)
    RixsaxWriteRunEnd(*spWriter, Session);
  else if (iOptions._Format == RixsaxOutputFormat::Dot)
    RixsaxWriteDot(ioOutput, Session);
  ioOutput.Flush();
  return ioStatus;
}

// A write error ends the run with a status of its own; a reader that closed
// its end (| head) wanted no more: the run ends quietly.
template <class Run>
int WithOutput(Run iRun)
{
  int Status = RixsaxExitOk;
  try
  {
    RixsaxOutput Output;
    iRun(Output, Status);
    Output.Flush();
    return Status;
  }
  catch (const RixsaxOutputClosed&)
  {
    return Status;
  }
  catch (const RixsaxOutputError& Error)
  {
    std::fprintf(stderr, "rixsax: cannot write the output: %s\n", Error.what());
    return RixsaxExitOutputError;
  }
}

int Run(int iArgc, char** iArgv)
{
  // A closed pipe is seen as EPIPE where the output is written.
  std::signal(SIGPIPE, SIG_IGN);
  const RixsaxCommandLine Line = RixsaxParseCommandLine(iArgc, iArgv);
  switch (Line._Command)
  {
    case RixsaxCommand::Handlers:
      return WithOutput([](RixsaxOutput& ioOutput, int&) { ListHandlers(ioOutput); });
    case RixsaxCommand::Read:
      return WithOutput([&Line](RixsaxOutput& ioOutput, int& ioStatus) { Read(Line._Options, ioOutput, ioStatus); });
    case RixsaxCommand::Check:
      return WithOutput(
          [&Line](RixsaxOutput& ioOutput, int& ioStatus) { ioStatus = RixsaxCheckFiles(Line._Options, ioOutput); });
    case RixsaxCommand::Exit:
      break;
  }
  return Line._ExitCode;
}
}  // namespace

// Nothing leaves rixsax as an uncaught exception: running out of memory
// anywhere (command line, setting up a step, reading, building or writing
// the output) is one line and a status of its own. The messages are written
// with fputs, which needs no memory.
int main(int iArgc, char** iArgv)
{
  try
  {
    return Run(iArgc, iArgv);
  }
  catch (const std::bad_alloc&)
  {
    std::fputs("rixsax: out of memory\n", stderr);
    return RixsaxExitOutOfMemory;
  }
  catch (const std::exception& Error)
  {
    std::fputs("rixsax: ", stderr);
    std::fputs(Error.what(), stderr);
    std::fputs("\n", stderr);
  }
  catch (...)
  {
    std::fputs("rixsax: unexpected exception\n", stderr);
  }
  return RixsaxExitFailedResult;
}
