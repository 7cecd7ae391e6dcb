/// An object of a context: one per type and name. Ownership, threads, errors: @ref conventions. @file
#ifndef MabERixObject_h
#define MabERixObject_h

#include "KelVar.h"
#include "MabERixEntity.h"

class MabERixObject : public MabERixEntity
{
  KelDeclareClass

public:
  MabERixObject(const KelUnicodeString& iType, const KelUnicodeString& iName) : MabERixEntity(iType, iName) {}
  /// An object of the context that owns ioStore.
  MabERixObject(MabRixContextStore& ioStore, const KelUnicodeString& iType, const KelUnicodeString& iName)
      : MabERixEntity(ioStore, iType, iName)
  {
  }

  MabERixProperty(KelUnicodeString, Type)
  MabERixProperty(KelUnicodeString, Name)
  MabERixProperty(KelUnicodeString, CADType)
  MabERixProperty(KelUnicodeString, CurrentMajorRevision)
  MabERixProperty(KelUnicodeString, NextMajorRevision)

  /// The revision a CAD context made current for this object
  /// (MabRixCADObjectContext::SetMajorRevision); E_FAIL, out untouched, while
  /// none was. Not a property: the context keeps it.
  HRESULT GetContextCurrentRevision(KelUnicodeString& oRevision) const;

private:
  friend class MabRixCADObjectContext;

  const KelUnicodeString* _pContextCurrentRevision = nullptr;  ///< in the store; null while none
};

typedef KelVar<MabERixObject> MabERixObject_var;

#endif
