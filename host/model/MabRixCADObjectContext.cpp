#include "MabRixCADObjectContext.h"

KelImplementClass(MabRixCADObjectContext, MabRixObjectContext, "KelSystem")

MabERixMajorObject* MabRixCADObjectContext::CreateMajorObject(const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName)
{
  MabERixObject* pObject = FindOrAddObject(iType, iName);
  KelUnicodeString Revision;
  if (SUCCEEDED(pObject->GetContextCurrentRevision(Revision)))
    return NewReference(FindOrAddMajorObject(iType, iName, Revision));

  const auto Found = _PendingMajorIndex.find(pObject);
  if (Found != _PendingMajorIndex.end())
    return NewReference(GetMajorObjects()[Found->second].Get());
  MabERixMajorObject* pMajor = AddUnindexedMajorObject(*pObject, KelUnicodeString());
  _PendingMajorIndex.emplace(pObject, GetMajorObjects().size() - 1);
  return NewReference(pMajor);
}

MabERixMinorObject* MabRixCADObjectContext::CreateMinorObject(const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName)
{
  return NewReference(FindOrAddMinorObject(iType, iName));
}

HRESULT MabRixCADObjectContext::SetMajorRevision(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                                 const KelUnicodeString& iRevision)
{
  if (iRevision.IsEmpty())
    return E_FAIL;
  MabERixObject* pObject = FindOrAddObject(iType, iName);
  pObject->_pContextCurrentRevision = &GetStore().Intern(iRevision.View());

  // The major object made while no revision was known is this revision's.
  const auto Pending = _PendingMajorIndex.find(pObject);
  if (Pending == _PendingMajorIndex.end())
    return S_OK;
  const std::size_t Position = Pending->second;
  _PendingMajorIndex.erase(Pending);
  if (!FindMajorObject(iType, iName, iRevision))
  {
    GetMajorObjects()[Position]->_pKeyRevision = &GetStore().Intern(iRevision.View());
    IndexMajorObject(Position);
  }
  return S_OK;
}

MabERixMajorObject* MabRixCADObjectContext::FindCurrentMajorObject(const KelUnicodeString& iType,
                                                                   const KelUnicodeString& iName) const
{
  // Every pending major object belongs to an object of the context.
  const MabERixObject* pObject = FindObject(iType, iName);
  if (!pObject)
    return nullptr;
  const auto Pending = _PendingMajorIndex.find(pObject);
  if (Pending != _PendingMajorIndex.end())
    return GetMajorObjects()[Pending->second].Get();
  KelUnicodeString Revision;
  if (FAILED(pObject->GetContextCurrentRevision(Revision)))
    return nullptr;
  return FindMajorObject(iType, iName, Revision);
}

KelBaseUnknown_var MabRixCADObjectContext::GetMajorObject(const MabRixObjectID& iID)
{
  return KelBaseUnknown_var(FindCurrentMajorObject(iID.GetType(), iID.GetName()));
}

bool MabRixCADObjectContext::IsRevisionKnown(const MabERixMajorObject& iMajor) const
{
  const KelUnicodeString& Revision = iMajor.GetKeyRevision();
  const MabERixObject* pObject = iMajor.GetOwnerObject();
  return !Revision.IsEmpty() || FindMajorObject(pObject->GetKeyType(), pObject->GetKeyName(), Revision) == &iMajor;
}
