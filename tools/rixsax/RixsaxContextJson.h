// The object contexts a run filled, written from the model itself: every
// entity in creation order, with exactly the properties that were set on it.
// Besides the model, only one pointer per major and minor object is held
// while writing (the indexes that place them under their objects).
#ifndef RixsaxContextJson_h
#define RixsaxContextJson_h

#include "RixsaxStep.h"
#include "RixsaxWriter.h"

class MabRixObjectContext;
class MabRixTNRObjectContext;
class MabRixCADObjectContext;

// Objects, each with its major objects and their minor objects, then the
// relationships and the relations.
void RixsaxWriteTNRContext(RixsaxWriter& ioWriter, const MabRixTNRObjectContext& iContext);
// Objects, each with its current revision, its major objects and its minor
// object.
void RixsaxWriteCADContext(RixsaxWriter& ioWriter, const MabRixCADObjectContext& iContext);

RixsaxContextCounts RixsaxCountContext(const MabRixObjectContext& iContext);

#endif
