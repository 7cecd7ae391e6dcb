// rixsax: reads server responses through the library's handlers, playing the
// command layer, and prints what the handlers produced.
#include <cstdio>
#include <iostream>

#include "RixsaxOptions.h"
#include "RixsaxRegistry.h"
#include "RixsaxRunJson.h"
#include "RixsaxSession.h"
#include "RixsaxStep.h"
#include "RixsaxSummary.h"
#include "RixsaxTextTree.h"

namespace
{
enum ExitStatus
{
  ExitOk = 0,
  ExitFailedResult = 1,
  ExitFileUnreadable = 3
};

void ListHandlers()
{
  std::size_t Width = 0;
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    Width = std::max(Width, std::string(Entry._Name).size());
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    std::printf("%-*s  %s\n", static_cast<int>(Width), Entry._Name, Entry._Description);
}

// Tells what went wrong in a step, one line each, and what it means for the
// exit status.
int ReportStep(const RixsaxStepRecord& iStep)
{
  const char* File = iStep._File.c_str();
  int Status = ExitOk;
  if (iStep._HostError)
  {
    std::fprintf(stderr, "rixsax: %s:%d:%d: %s: %s\n", File, iStep._HostError->_XmlLine, iStep._HostError->_XmlColumn,
                 iStep._HostError->_Kind.c_str(), iStep._HostError->_Message.c_str());
    Status = ExitFailedResult;
  }
  if (iStep._ParseError)
  {
    if (iStep._ParseError->_Line > 0)
      std::fprintf(stderr, "rixsax: %s:%d:%d: %s\n", File, iStep._ParseError->_Line, iStep._ParseError->_Column,
                   iStep._ParseError->_Message.ConvertToChar());
    else
      std::fprintf(stderr, "rixsax: %s: %s\n", File, iStep._ParseError->_Message.ConvertToChar());
    return ExitFileUnreadable;
  }
  if (!iStep._Started && !iStep._HostError)
  {
    std::fprintf(stderr, "rixsax: %s: no element to start %s on\n", File, iStep._pEntry->_Name);
    Status = ExitFailedResult;
  }
  if (FAILED(iStep._Result))
    Status = ExitFailedResult;
  return Status;
}

void Print(const std::vector<RixsaxStepRecord>& iSteps, RixsaxSession& iSession)
{
  switch (iSession.Options()._Format)
  {
    case RixsaxOutputFormat::Summary:
      std::fputs(RixsaxSummary(iSteps).c_str(), stdout);
      return;
    case RixsaxOutputFormat::Text:
      std::fputs(RixsaxTextTree(RixsaxRunJson(iSteps, iSession)).c_str(), stdout);
      return;
    case RixsaxOutputFormat::Json:
      std::fputs(
          (RixsaxRunJson(iSteps, iSession).dump(2, ' ', false, RixsaxJson::error_handler_t::replace) + "\n").c_str(),
          stdout);
      return;
  }
}

// Runs the steps in order; a host error leaves the host in a state no later
// step should build on, so the run ends there.
int Read(const RixsaxOptions& iOptions)
{
  RixsaxSession Session(iOptions);
  std::vector<RixsaxStepRecord> Steps;
  int Status = ExitOk;
  for (const RixsaxStepRequest& Request : iOptions._Steps)
  {
    Steps.push_back(RixsaxRunStep(Session, *RixsaxFindHandler(Request._Handler), Request._File));
    Status = std::max(Status, ReportStep(Steps.back()));
    if (Steps.back()._HostError)
      break;
  }
  Print(Steps, Session);
  return Status;
}
}  // namespace

int main(int iArgc, char** iArgv)
{
  const RixsaxCommandLine Line = RixsaxParseCommandLine(iArgc, iArgv);
  switch (Line._Command)
  {
    case RixsaxCommand::Handlers:
      ListHandlers();
      return ExitOk;
    case RixsaxCommand::Read:
      return Read(Line._Options);
    case RixsaxCommand::Exit:
      break;
  }
  return Line._ExitCode;
}
