// What went wrong in a step, said in one line, and the exit status it
// stands for.
#ifndef RixsaxReport_h
#define RixsaxReport_h

#include <string>

#include "RixsaxStep.h"

enum RixsaxExitStatus
{
  RixsaxExitOk = 0,
  RixsaxExitFailedResult = 1,  // a failed result, a host error, a handler that never started
  RixsaxExitUsage = 2,
  RixsaxExitFileUnreadable = 3,  // a file that cannot be read or is not well-formed
  RixsaxExitOutputError = 4,     // the standard output cannot be written
  RixsaxExitOutOfMemory = 5      // memory ran out: the result is incomplete or missing
};

// The exit status a step stands for.
int RixsaxStepStatus(const RixsaxStepRecord& iStep);
// The first problem of a step with its place in the document, e.g.
// "check at 12:5: Size > 0" or "failed callback StartElement 'vault' at
// 3:2 (0x80004005)"; empty when there is none.
std::string RixsaxFirstProblem(const RixsaxStepRecord& iStep);
// Writes the lines of a step's problems on the standard error: a parse or
// host error, a handler that never started, a failed result with its first
// check or failed callback. Returns the step's exit status.
int RixsaxReportStep(const RixsaxStepRecord& iStep);

#endif
