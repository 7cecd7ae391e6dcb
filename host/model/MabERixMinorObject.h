/// A minor object: one version of a document. Besides its properties it has
/// two public dictionaries that handlers fill directly, and the pointer flag
/// that marks an object met below the root level of a structure. Ownership, threads, errors: @ref conventions. @file
#ifndef MabERixMinorObject_h
#define MabERixMinorObject_h

#include "KelDicos.h"
#include "KelVar.h"
#include "MabERixEntity.h"
#include "MabRixDocumentIDList.h"
#include "MabRixObjectID.h"

class MabERixMinorObject : public MabERixEntity
{
  KelDeclareClass

public:
  MabERixMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType, const KelUnicodeString& iName,
                     const KelUnicodeString& iRevision, const KelUnicodeString& iVersion);
  /// A minor object of the context that owns ioStore.
  MabERixMinorObject(MabRixContextStore& ioStore, MabRixObjectID iID, const KelUnicodeString& iType,
                     const KelUnicodeString& iName, const KelUnicodeString& iRevision,
                     const KelUnicodeString& iVersion);

  /// The ID, revision and version given to the context's creation.
  const MabRixObjectID& GetObjectID() const { return _ID; }
  const KelUnicodeString& GetKeyRevision() const { return *_pKeyRevision; }
  const KelUnicodeString& GetKeyVersion() const { return *_pKeyVersion; }

  MabERixProperty(KelUnicodeString, MinorType)
  MabERixProperty(KelUnicodeString, MinorVersion)
  MabERixProperty(KelUnicodeString, Status)
  MabERixProperty(KelUnicodeString, MinorOID)
  MabERixProperty(KelUnicodeString, MinorUUID)
  MabERixProperty(unsigned char, UUIDConflict)
  MabERixProperty(MabRixDocumentID, MinorDocumentID)
  MabERixProperty(unsigned char, CanResolveUUIDConflict)
  MabERixProperty(MabRixPath, Thumbnail)
  MabERixProperty(KelUnicodeString, OldName)
  HRESULT _SetAction(KelUnicodeString iAction)
  {
    return _Properties.Set(GetArena(), MabRixPropertyIdOf("Action"), iAction);
  }
  HRESULT GetAction(KelUnicodeString& oAction) const { return _Properties.Get(MabRixPropertyIdOf("Action"), oAction); }

  /// The document ID (property MinorDocumentID); E_FAIL, out untouched,
  /// while it has not been set.
  virtual HRESULT GetDocumentID(MabRixDocumentID& oID) const;
  /// oList becomes the list of this minor object's document IDs (its one
  /// document ID); E_FAIL, list untouched, while it has none.
  virtual HRESULT GetDocumentIDList(MabRixDocumentIDList& oList) const;

  // Their entries lie in the context's memory; a copy of either is the
  // caller's own.
  KelUnicodeStringKelUnicodeStringDico _ExtraAttributes;  ///< attribute name to value
  KelUnicodeStringKelUnicodeStringDico _ElementValues;    ///< element name to text
  unsigned char _bPointer = KelFalse;

private:
  MabRixObjectID _ID;
  const KelUnicodeString* _pKeyRevision;  ///< in the store
  const KelUnicodeString* _pKeyVersion;
};

typedef KelVar<MabERixMinorObject> MabERixMinorObject_var;

#endif
