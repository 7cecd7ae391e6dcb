#include "MabRixObjectContext.h"

KelImplementClass(MabRixObjectContext, KelBaseUnknown, "KelSystem")

namespace
{
// Creates the entity in ioStore, keeps it in ioOwned (taking over the
// creation reference) and returns it.
template <class T, class... Args>
T* Keep(MabRixContextStore& ioStore, std::vector<KelVar<T>>& ioOwned, Args&&... iArgs)
{
  KelVar<T> spEntity = KelVar<T>::Adopt(new (ioStore) T(std::forward<Args>(iArgs)...));
  ioOwned.push_back(std::move(spEntity));
  return ioOwned.back().Get();
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

MabRixObjectContext::MabRixObjectContext()
    : _pStore(new MabRixContextStore()), _ObjectIndex(_Objects), _MajorIndex(_MajorObjects), _MinorIndex(_MinorObjects),
      _RelationshipIndex(_Relationships), _RelationIndex(_Relations)
{
}

MabRixObjectContext::~MabRixObjectContext()
{
  _Relations.clear();
  _Relationships.clear();
  _MinorObjects.clear();
  _MajorObjects.clear();
  _Objects.clear();
  _pStore->Release();
}

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
  return _ObjectIndex.FindOrAdd(
      ObjectHash(iType, iName), [&](const MabERixObject& iObject) { return HasKey(iObject, iType, iName); },
      [&] { return Keep(*_pStore, _Objects, *_pStore, iType, iName); });
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
  return _MajorIndex.FindOrAdd(
      MajorHash(iType, iName, iRevision),
      [&](const MabERixMajorObject& iMajor) {
        return HasKey(iMajor, iType, iName) && iMajor.GetKeyRevision() == iRevision;
      },
      [&] { return AddUnindexedMajorObject(*FindOrAddObject(iType, iName), iRevision); });
}

MabERixMajorObject* MabRixObjectContext::AddUnindexedMajorObject(MabERixObject& iObject,
                                                                 const KelUnicodeString& iRevision)
{
  return Keep(*_pStore, _MajorObjects, iObject, iRevision);
}

void MabRixObjectContext::IndexMajorObject(std::size_t iPosition)
{
  const MabERixMajorObject& Major = *_MajorObjects[iPosition];
  _MajorIndex.Add(MajorHash(Major.GetKeyType(), Major.GetKeyName(), Major.GetKeyRevision()), iPosition);
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
  return _MinorIndex.FindOrAdd(
      IDHash(iID), [&](const MabERixMinorObject& iMinor) { return iMinor.GetObjectID() == iID; },
      [&] { return Keep(*_pStore, _MinorObjects, *_pStore, iID, iType, iName, iRevision, iVersion); });
}

MabERixMinorObject* MabRixObjectContext::FindOrAddMinorObject(const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName)
{
  static const KelUnicodeString NoID;
  const auto Matches = [&](const MabERixMinorObject& iMinor) {
    const MabRixObjectID& ID = iMinor.GetObjectID();
    return ID.GetID().IsEmpty() && ID.GetType() == iType && ID.GetName() == iName;
  };
  return _MinorIndex.FindOrAdd(MabRixKeyHash({&NoID, &iType, &iName}), Matches, [&] {
    return Keep(*_pStore, _MinorObjects, *_pStore, MabRixObjectID(iType, iName), iType, iName, NoID, NoID);
  });
}

MabERixRelationship* MabRixObjectContext::FindOrAddRelationship(const KelUnicodeString& iID,
                                                                const KelUnicodeString& iKind)
{
  return _RelationshipIndex.FindOrAdd(
      MabRixKeyHash({&iID, &iKind}),
      [&](const MabERixRelationship& iRelationship) {
        return iRelationship.GetID() == iID && iRelationship.GetKind() == iKind;
      },
      [&] { return Keep(*_pStore, _Relationships, *_pStore, iID, iKind); });
}

MabERixRelation* MabRixObjectContext::FindOrAddRelation(const MabRixObjectID& iFrom,
                                                        const KelUnicodeString& iRelationshipID,
                                                        const MabRixObjectID& iTo)
{
  const std::size_t Hash = MabRixKeyHash({&iFrom.GetID(), &iFrom.GetType(), &iFrom.GetName(), &iRelationshipID,
                                          &iTo.GetID(), &iTo.GetType(), &iTo.GetName()});
  return _RelationIndex.FindOrAdd(
      Hash,
      [&](const MabERixRelation& iRelation) {
        return iRelation.GetFromObjectID() == iFrom && iRelation.GetRelationshipID() == iRelationshipID &&
               iRelation.GetToObjectID() == iTo;
      },
      [&] { return Keep(*_pStore, _Relations, iFrom, iRelationshipID, iTo); });
}
