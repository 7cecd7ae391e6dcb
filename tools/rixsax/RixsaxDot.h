// The object model of a run as a Graphviz graph: each object with its major
// objects and their minor objects, and the relations between minor objects,
// labelled with the kind of their relationship.
#ifndef RixsaxDot_h
#define RixsaxDot_h

#include "RixsaxOutput.h"

class RixsaxSession;

void RixsaxWriteDot(RixsaxOutput& ioOutput, const RixsaxSession& iSession);

#endif
