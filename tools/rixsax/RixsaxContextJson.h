// JSON of the object contexts a run filled: every entity in creation order,
// with exactly the properties that were set on it.
#ifndef RixsaxContextJson_h
#define RixsaxContextJson_h

#include "RixsaxJsonBasics.h"
#include "RixsaxStep.h"

class MabRixObjectContext;
class MabRixTNRObjectContext;
class MabRixCADObjectContext;

// Objects, each with its major objects and their minor objects, then the
// relationships and the relations.
RixsaxJson RixsaxTNRContextJson(const MabRixTNRObjectContext& iContext);
// Objects, each with its current revision, its major objects and its minor
// object.
RixsaxJson RixsaxCADContextJson(const MabRixCADObjectContext& iContext);

RixsaxContextCounts RixsaxCountContext(const MabRixObjectContext& iContext);

#endif
