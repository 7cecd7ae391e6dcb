/// A relation of a TNR context: the object that contains another one, the
/// relationship id between them and the contained object. Ownership, threads, errors: @ref conventions. @file
#ifndef MabERixRelation_h
#define MabERixRelation_h

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelVar.h"
#include "MabRixContextStore.h"
#include "MabRixObjectID.h"

class MabERixRelation : public KelBaseUnknown, public MabRixContextAllocated
{
  KelDeclareClass

public:
  // Made in the context's store: its operators, not KelBaseUnknown's, are
  // the ones for this class (a failure there is a std::bad_alloc).
  using MabRixContextAllocated::operator new;
  using MabRixContextAllocated::operator delete;

  MabERixRelation(const MabRixObjectID& iFrom, const KelUnicodeString& iRelationshipID, const MabRixObjectID& iTo)
      : _From(iFrom), _RelationshipID(iRelationshipID), _To(iTo)
  {
  }
  MabERixRelation(const MabERixRelation&) = delete;
  MabERixRelation& operator=(const MabERixRelation&) = delete;

  const MabRixObjectID& GetFromObjectID() const { return _From; }
  const KelUnicodeString& GetRelationshipID() const { return _RelationshipID; }
  const MabRixObjectID& GetToObjectID() const { return _To; }

private:
  MabRixObjectID _From;
  KelUnicodeString _RelationshipID;
  MabRixObjectID _To;
};

typedef KelVar<MabERixRelation> MabERixRelation_var;

#endif
