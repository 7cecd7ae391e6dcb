// The summary of a run for very large responses: one line of counts per
// step, no content.
#ifndef RixsaxSummary_h
#define RixsaxSummary_h

#include <string>
#include <vector>

#include "RixsaxStep.h"

std::string RixsaxSummary(const std::vector<RixsaxStepRecord>& iSteps);

#endif
