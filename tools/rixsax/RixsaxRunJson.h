// The document of a run, written as it goes: the start, one entry per step
// when the step ends, then the contexts the steps used.
#ifndef RixsaxRunJson_h
#define RixsaxRunJson_h

#include "RixsaxStep.h"
#include "RixsaxWriter.h"

class RixsaxSession;

// {"responses": [ ... the steps ... ], "tnrContext": ..., "cadContext": ...}
void RixsaxWriteRunStart(RixsaxWriter& ioWriter);
void RixsaxWriteStep(RixsaxWriter& ioWriter, const RixsaxStepRecord& iStep, bool iTrace);
void RixsaxWriteRunEnd(RixsaxWriter& ioWriter, const RixsaxSession& iSession);

#endif
