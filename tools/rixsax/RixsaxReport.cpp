#include "RixsaxReport.h"

#include <cstdio>

#include "RixsaxJsonBasics.h"
#include "RixsaxRegistry.h"

namespace
{
std::string Place(int iLine, int iColumn) { return std::to_string(iLine) + ":" + std::to_string(iColumn); }

// A failed allocation skipped an element somewhere without failing the
// read: the result is not the whole document.
bool Incomplete(const RixsaxStepRecord& iStep)
{
  return iStep._AllocationFailed && !iStep._HostError && !iStep._ParseError;
}

bool OutOfMemory(const RixsaxStepRecord& iStep)
{
  return (iStep._ParseError && iStep._ParseError->_OutOfMemory) ||
         (iStep._HostError && iStep._HostError->_Kind == "out of memory") || Incomplete(iStep);
}

const char* const IncompleteText = "incomplete result: an allocation failed while reading";

std::string NeverStarted(const RixsaxStepRecord& iStep)
{
  return std::string("no element to start ") + iStep._pEntry->_Name + " on";
}

// The first failed check, or else the first failed callback.
std::string FirstFailure(const RixsaxStepRecord& iStep)
{
  if (!iStep._Checks.empty())
    return "check at " + Place(iStep._Checks.front()._XmlLine, iStep._Checks.front()._XmlColumn) + ": " +
           iStep._Checks.front()._Text;
  if (!iStep._CallbackFailures.empty())
  {
    const KelSAXCallbackFailure& Failure = iStep._CallbackFailures.front();
    std::string Text = std::string("failed callback ") + Failure._Event;
    if (!Failure._Element.IsEmpty())
      Text += " '" + Failure._Element.ToUtf8() + "'";
    return Text + " at " + Place(Failure._Line, Failure._Column) + " (" + RixsaxResultText(Failure._Result) + ")";
  }
  return std::string();
}
}  // namespace

int RixsaxStepStatus(const RixsaxStepRecord& iStep)
{
  if (OutOfMemory(iStep))
    return RixsaxExitOutOfMemory;
  if (iStep._ParseError)
    return RixsaxExitFileUnreadable;
  if (iStep._HostError || !iStep._Started || FAILED(iStep._Result))
    return RixsaxExitFailedResult;
  return RixsaxExitOk;
}

std::string RixsaxFirstProblem(const RixsaxStepRecord& iStep)
{
  if (iStep._HostError)
    return iStep._HostError->_Kind + " at " + Place(iStep._HostError->_XmlLine, iStep._HostError->_XmlColumn) + ": " +
           iStep._HostError->_Message;
  if (iStep._ParseError)
    return iStep._ParseError->_Line > 0
               ? "parse error at " + Place(iStep._ParseError->_Line, iStep._ParseError->_Column) + ": " +
                     iStep._ParseError->_Message.ToUtf8()
               : iStep._ParseError->_Message.ToUtf8();
  if (Incomplete(iStep))
    return IncompleteText;
  if (!iStep._Started)
    return NeverStarted(iStep);
  return FirstFailure(iStep);
}

int RixsaxReportStep(const RixsaxStepRecord& iStep)
{
  const char* File = iStep._File.c_str();
  if (iStep._HostError)
    std::fprintf(stderr, "rixsax: %s:%d:%d: %s: %s\n", File, iStep._HostError->_XmlLine, iStep._HostError->_XmlColumn,
                 iStep._HostError->_Kind.c_str(), iStep._HostError->_Message.c_str());
  if (iStep._ParseError)
  {
    if (iStep._ParseError->_Line > 0)
      std::fprintf(stderr, "rixsax: %s:%d:%d: %s\n", File, iStep._ParseError->_Line, iStep._ParseError->_Column,
                   iStep._ParseError->_Message.ConvertToChar());
    else
      std::fprintf(stderr, "rixsax: %s: %s\n", File, iStep._ParseError->_Message.ConvertToChar());
  }
  else if (Incomplete(iStep))
    std::fprintf(stderr, "rixsax: %s: %s\n", File, IncompleteText);
  else if (!iStep._Started && !iStep._HostError)
    std::fprintf(stderr, "rixsax: %s: %s\n", File, NeverStarted(iStep).c_str());
  if (FAILED(iStep._Result))
  {
    // The failed result itself, with the first thing that went wrong before it.
    std::string Line = std::string("rixsax: ") + iStep._File + ": " + iStep._pEntry->_Name + ": result " +
                       RixsaxResultText(iStep._Result);
    if (const std::string Failure = FirstFailure(iStep); !Failure.empty())
      Line += "; first " + Failure;
    std::fprintf(stderr, "%s\n", Line.c_str());
  }
  return RixsaxStepStatus(iStep);
}
