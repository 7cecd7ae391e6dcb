// The JSON document of a run: one entry per step, then the contexts the
// steps used.
#ifndef RixsaxRunJson_h
#define RixsaxRunJson_h

#include <vector>

#include "RixsaxJsonBasics.h"
#include "RixsaxStep.h"

class RixsaxSession;

RixsaxJson RixsaxStepJson(const RixsaxStepRecord& iStep, bool iTrace);
RixsaxJson RixsaxRunJson(const std::vector<RixsaxStepRecord>& iSteps, RixsaxSession& iSession);

#endif
