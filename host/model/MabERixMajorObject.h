/// A major object: one revision of an object. It belongs to its object and
/// holds a reference to it. Ownership, threads, errors: @ref conventions. @file
#ifndef MabERixMajorObject_h
#define MabERixMajorObject_h

#include "KelUnicodeStringList.h"
#include "KelVar.h"
#include "MabERixEntity.h"
#include "MabERixObject.h"

class MabERixMajorObject : public MabERixEntity
{
  KelDeclareClass

public:
  MabERixMajorObject(MabERixObject& iObject, const KelUnicodeString& iRevision);

  /// The revision given to the context's creation; empty for the major
  /// object a CAD context made before any revision of its object was known.
  const KelUnicodeString& GetKeyRevision() const { return *_pKeyRevision; }
  /// The object this revision belongs to.
  MabERixObject* GetOwnerObject() const { return _spObject.Get(); }

  MabERixProperty(unsigned char, CurrentMajorRevision)
  MabERixProperty(KelUnicodeString, LockOwner)
  MabERixProperty(unsigned char, LockStatus)
  MabERixProperty(KelUnicodeStringList, ConnectedFolder)
  MabERixProperty(KelUnicodeString, NextMinorVersion)
  MabERixProperty(KelUnicodeString, MajorRevision)
  MabERixProperty(unsigned char, NextMajorRevision)
  MabERixProperty(unsigned char, OverwriteAccess)
  MabERixProperty(unsigned char, CreateVersionAccess)
  MabERixProperty(KelUnicodeString, OverwriteError)
  MabERixProperty(KelUnicodeString, State)
  MabERixProperty(KelUnicodeString, MajorOID)
  MabERixProperty(unsigned char, LockUnlockSuccess)
  MabERixProperty(KelUnicodeString, LockUnlockError)

  /// The current revision of this major object's object, as its CAD context
  /// knows it (the flag property of the same name is read with the
  /// unsigned char overload). E_FAIL, out untouched, while none is known.
  virtual HRESULT GetCurrentMajorRevision(KelUnicodeString& oRevision) const;

private:
  friend class MabRixCADObjectContext;

  const KelUnicodeString* _pKeyRevision;  ///< in the store
  MabERixObject_var _spObject;
};

typedef KelVar<MabERixMajorObject> MabERixMajorObject_var;

#endif
