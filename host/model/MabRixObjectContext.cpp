#include "MabRixObjectContext.h"

KelImplementClass(MabRixObjectContext, KelBaseUnknown, "KelSystem")

namespace
{
// Creates the entity, keeps it in iOwned (taking over the creation
// reference) and returns it.
template <class T, class... Args>
T* Keep(std::vector<KelVar<T>>& ioOwned, Args&&... iArgs)
{
  T* pEntity = new T(std::forward<Args>(iArgs)...);
  ioOwned.push_back(KelVar<T>::Adopt(pEntity));
  return pEntity;
}

std::size_t ObjectHash(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  return MabRixKeyHash({&iType, &iName});
}

std::size_t MajorHash(const KelUnicodeString& iType, const KelUnicodeString& iName, const KelUnicodeString& iRevision)
{
  return MabRixKeyHash({&iType, &iName, &iRevision});
}

std::size_t IDHash(const MabRixObjectID& iID) { return MabRixKeyHash({&iID.GetID(), &iID.GetType(), &iID.GetName()}); }

bool HasKey(const MabERixEntity& iEntity, const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  return iEntity.GetKeyType() == iType && iEntity.GetKeyName() == iName;
}
}  // namespace

MabERixObject* MabRixObjectContext::CreateObject(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  return NewReference(FindOrAddObject(iType, iName));
}

MabERixMajorObject* MabRixObjectContext::CreateMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName,
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
  return _ObjectIndex.Find(ObjectHash(iType, iName),
                           [&](const MabERixObject& iObject) { return HasKey(iObject, iType, iName); });
}

MabERixObject* MabRixObjectContext::FindOrAddObject(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  if (MabERixObject* pObject = FindObject(iType, iName))
    return pObject;
  MabERixObject* pObject = Keep(_Objects, iType, iName);
  _ObjectIndex.Add(ObjectHash(iType, iName), pObject);
  return pObject;
}

MabERixMajorObject* MabRixObjectContext::FindMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                                         const KelUnicodeString& iRevision) const
{
  return _MajorIndex.Find(MajorHash(iType, iName, iRevision), [&](const MabERixMajorObject& iMajor) {
    return HasKey(iMajor, iType, iName) && iMajor.GetKeyRevision() == iRevision;
  });
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
  _MajorIndex.Add(MajorHash(iMajor.GetKeyType(), iMajor.GetKeyName(), iMajor.GetKeyRevision()), &iMajor);
}

MabERixMinorObject* MabRixObjectContext::FindMinorObject(const MabRixObjectID& iID) const
{
  return _MinorIndex.Find(IDHash(iID), [&](const MabERixMinorObject& iMinor) { return iMinor.GetObjectID() == iID; });
}

MabERixMinorObject* MabRixObjectContext::FindOrAddMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName,
                                                              const KelUnicodeString& iRevision,
                                                              const KelUnicodeString& iVersion)
{
  if (MabERixMinorObject* pMinor = FindMinorObject(iID))
    return pMinor;
  MabERixMinorObject* pMinor = Keep(_MinorObjects, iID, iType, iName, iRevision, iVersion);
  _MinorIndex.Add(IDHash(iID), pMinor);
  return pMinor;
}

MabERixRelationship* MabRixObjectContext::FindOrAddRelationship(const KelUnicodeString& iID,
                                                                const KelUnicodeString& iKind)
{
  const std::size_t Hash = MabRixKeyHash({&iID, &iKind});
  if (MabERixRelationship* pRelationship = _RelationshipIndex.Find(Hash, [&](const MabERixRelationship& iRelationship) {
        return iRelationship.GetID() == iID && iRelationship.GetKind() == iKind;
      }))
    return pRelationship;
  MabERixRelationship* pRelationship = Keep(_Relationships, iID, iKind);
  _RelationshipIndex.Add(Hash, pRelationship);
  return pRelationship;
}

MabERixRelation* MabRixObjectContext::FindOrAddRelation(const MabRixObjectID& iFrom,
                                                        const KelUnicodeString& iRelationshipID,
                                                        const MabRixObjectID& iTo)
{
  const std::size_t Hash = MabRixKeyHash({&iFrom.GetID(), &iFrom.GetType(), &iFrom.GetName(), &iRelationshipID,
                                          &iTo.GetID(), &iTo.GetType(), &iTo.GetName()});
  if (MabERixRelation* pRelation = _RelationIndex.Find(Hash, [&](const MabERixRelation& iRelation) {
        return iRelation.GetFromObjectID() == iFrom && iRelation.GetRelationshipID() == iRelationshipID &&
               iRelation.GetToObjectID() == iTo;
      }))
    return pRelation;
  MabERixRelation* pRelation = Keep(_Relations, iFrom, iRelationshipID, iTo);
  _RelationIndex.Add(Hash, pRelation);
  return pRelation;
}
