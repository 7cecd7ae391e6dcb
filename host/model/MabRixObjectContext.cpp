#include "MabRixObjectContext.h"

KelImplementClass(MabRixObjectContext, KelBaseUnknown, "KelSystem")

namespace
{
template <class T>
T* FindIn(const std::unordered_map<KelUnicodeString, T*>& iIndex, const KelUnicodeString& iKey)
{
  const auto Found = iIndex.find(iKey);
  return Found != iIndex.end() ? Found->second : nullptr;
}

// Creates the entity, keeps it in iOwned (taking over the creation
// reference) and returns it.
template <class T, class... Args>
T* Keep(std::vector<KelVar<T>>& ioOwned, Args&&... iArgs)
{
  T* pEntity = new T(std::forward<Args>(iArgs)...);
  ioOwned.push_back(KelVar<T>::Adopt(pEntity));
  return pEntity;
}
}  // namespace

KelUnicodeString MabRixObjectContext::MajorKey(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                               const KelUnicodeString& iRevision)
{
  return MabRixObjectID::ComposeKey({&iType, &iName, &iRevision});
}

MabERixObject* MabRixObjectContext::CreateObject(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  return NewReference(FindOrAddObject(iType, iName));
}

MabERixMajorObject* MabRixObjectContext::CreateMajorObject(const KelUnicodeString& iType,
                                                           const KelUnicodeString& iName,
                                                           const KelUnicodeString& iRevision)
{
  return NewReference(FindOrAddMajorObject(iType, iName, iRevision));
}

KelBaseUnknown_var MabRixObjectContext::GetObject(const MabRixObjectID& iID)
{
  return KelBaseUnknown_var(FindObject(iID.GetType(), iID.GetName()));
}

KelBaseUnknown_var MabRixObjectContext::GetMinorObject(const MabRixObjectID& iID)
{
  return KelBaseUnknown_var(FindMinorObject(iID));
}

MabERixObject* MabRixObjectContext::FindObject(const KelUnicodeString& iType, const KelUnicodeString& iName) const
{
  return FindIn(_ObjectIndex, MabRixObjectID(iType, iName).GetKey());
}

MabERixObject* MabRixObjectContext::FindOrAddObject(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  const KelUnicodeString Key = MabRixObjectID(iType, iName).GetKey();
  if (MabERixObject* pObject = FindIn(_ObjectIndex, Key))
    return pObject;
  MabERixObject* pObject = Keep(_Objects, iType, iName);
  _ObjectIndex.emplace(Key, pObject);
  return pObject;
}

MabERixMajorObject* MabRixObjectContext::FindMajorObject(const KelUnicodeString& iType,
                                                         const KelUnicodeString& iName,
                                                         const KelUnicodeString& iRevision) const
{
  return FindIn(_MajorIndex, MajorKey(iType, iName, iRevision));
}

MabERixMajorObject* MabRixObjectContext::FindOrAddMajorObject(const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName,
                                                              const KelUnicodeString& iRevision)
{
  if (MabERixMajorObject* pMajor = FindMajorObject(iType, iName, iRevision))
    return pMajor;
  MabERixMajorObject* pMajor = AddUnindexedMajorObject(*FindOrAddObject(iType, iName), iRevision);
  IndexMajorObject(*pMajor);
  return pMajor;
}

MabERixMajorObject* MabRixObjectContext::AddUnindexedMajorObject(MabERixObject& iObject,
                                                                 const KelUnicodeString& iRevision)
{
  return Keep(_MajorObjects, iObject, iRevision);
}

void MabRixObjectContext::IndexMajorObject(MabERixMajorObject& iMajor)
{
  _MajorIndex.emplace(MajorKey(iMajor.GetKeyType(), iMajor.GetKeyName(), iMajor.GetKeyRevision()), &iMajor);
}

MabERixMinorObject* MabRixObjectContext::FindMinorObject(const MabRixObjectID& iID) const
{
  return FindIn(_MinorIndex, iID.GetKey());
}

MabERixMinorObject* MabRixObjectContext::FindOrAddMinorObject(const MabRixObjectID& iID,
                                                              const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName,
                                                              const KelUnicodeString& iRevision,
                                                              const KelUnicodeString& iVersion)
{
  if (MabERixMinorObject* pMinor = FindMinorObject(iID))
    return pMinor;
  MabERixMinorObject* pMinor = Keep(_MinorObjects, iID, iType, iName, iRevision, iVersion);
  _MinorIndex.emplace(iID.GetKey(), pMinor);
  return pMinor;
}

MabERixRelationship* MabRixObjectContext::FindOrAddRelationship(const KelUnicodeString& iID,
                                                                const KelUnicodeString& iKind)
{
  const KelUnicodeString Key = MabRixObjectID::ComposeKey({&iID, &iKind});
  if (MabERixRelationship* pRelationship = FindIn(_RelationshipIndex, Key))
    return pRelationship;
  MabERixRelationship* pRelationship = Keep(_Relationships, iID, iKind);
  _RelationshipIndex.emplace(Key, pRelationship);
  return pRelationship;
}

MabERixRelation* MabRixObjectContext::FindOrAddRelation(const MabRixObjectID& iFrom,
                                                        const KelUnicodeString& iRelationshipID,
                                                        const MabRixObjectID& iTo)
{
  const KelUnicodeString From = iFrom.GetKey();
  const KelUnicodeString To = iTo.GetKey();
  const KelUnicodeString Key = MabRixObjectID::ComposeKey({&From, &iRelationshipID, &To});
  if (MabERixRelation* pRelation = FindIn(_RelationIndex, Key))
    return pRelation;
  MabERixRelation* pRelation = Keep(_Relations, iFrom, iRelationshipID, iTo);
  _RelationIndex.emplace(Key, pRelation);
  return pRelation;
}
