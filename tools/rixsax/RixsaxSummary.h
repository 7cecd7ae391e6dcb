// One line per step for responses too large to print: the result, the
// counts of values, checks, failed callbacks, entities and entries, and what
// went wrong (parse error, host error).
#ifndef RixsaxSummary_h
#define RixsaxSummary_h

#include <string>

#include "RixsaxStep.h"

// The line of one step, ending with a line break.
std::string RixsaxSummaryLine(const RixsaxStepRecord& iStep);

#endif
