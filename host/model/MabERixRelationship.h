/// A relationship of a TNR context, known by its id and kind, with the
/// attributes the server gave it. Ownership, threads, errors: @ref conventions. @file
#ifndef MabERixRelationship_h
#define MabERixRelationship_h

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelDicos.h"
#include "KelVar.h"
#include "MabRixContextStore.h"

class MabERixRelationship : public KelBaseUnknown, public MabRixContextAllocated
{
  KelDeclareClass

public:
  // Made in the context's store: its operators, not KelBaseUnknown's, are
  // the ones for this class (a failure there is a std::bad_alloc).
  using MabRixContextAllocated::operator new;
  using MabRixContextAllocated::operator delete;

  MabERixRelationship(const KelUnicodeString& iID, const KelUnicodeString& iKind) : _ID(iID), _Kind(iKind) {}
  /// A relationship of the context that owns ioStore: its attributes lie in
  /// the context's memory (a copy of them is the caller's own).
  MabERixRelationship(MabRixContextStore& ioStore, const KelUnicodeString& iID, const KelUnicodeString& iKind)
      : _Attributes(&ioStore.GetArena()), _ID(iID), _Kind(iKind)
  {
  }
  MabERixRelationship(const MabERixRelationship&) = delete;
  MabERixRelationship& operator=(const MabERixRelationship&) = delete;

  const KelUnicodeString& GetID() const { return _ID; }
  const KelUnicodeString& GetKind() const { return _Kind; }

  KelUnicodeStringKelUnicodeStringDico _Attributes;  ///< attribute name to value

private:
  KelUnicodeString _ID;
  KelUnicodeString _Kind;
};

typedef KelVar<MabERixRelationship> MabERixRelationship_var;

#endif
