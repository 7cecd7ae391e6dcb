#include "MabERixMinorObject.h"

#include <utility>

KelImplementClass(MabERixMinorObject, MabERixEntity, "KelSystem")

MabERixMinorObject::MabERixMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType,
                                       const KelUnicodeString& iName, const KelUnicodeString& iRevision,
                                       const KelUnicodeString& iVersion)
    : MabERixEntity(iType, iName), _ExtraAttributes(&GetStore().GetArena()), _ElementValues(&GetStore().GetArena()),
      _ID(iID), _pKeyRevision(Intern(iRevision)), _pKeyVersion(Intern(iVersion))
{
}

MabERixMinorObject::MabERixMinorObject(MabRixContextStore& ioStore, MabRixObjectID iID, const KelUnicodeString& iType,
                                       const KelUnicodeString& iName, const KelUnicodeString& iRevision,
                                       const KelUnicodeString& iVersion)
    : MabERixEntity(ioStore, iType, iName), _ExtraAttributes(&ioStore.GetArena()), _ElementValues(&ioStore.GetArena()),
      _ID(std::move(iID)), _pKeyRevision(Intern(iRevision)), _pKeyVersion(Intern(iVersion))
{
}

HRESULT MabERixMinorObject::GetDocumentID(MabRixDocumentID& oID) const { return GetMinorDocumentID(oID); }

HRESULT MabERixMinorObject::GetDocumentIDList(MabRixDocumentIDList& oList) const
{
  MabRixDocumentID ID;
  const HRESULT Result = GetDocumentID(ID);
  if (FAILED(Result))
    return Result;
  oList.RemoveAll();
  oList.Append(ID);
  return S_OK;
}
