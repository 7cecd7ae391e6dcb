#include "MabRixTNRObjectContext.h"

KelImplementClass(MabRixTNRObjectContext, MabRixObjectContext, "KelSystem")

MabERixMinorObject* MabRixTNRObjectContext::CreateMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType,
                                                              const KelUnicodeString& iName,
                                                              const KelUnicodeString& iRevision,
                                                              const KelUnicodeString& iVersion, unsigned char iCreate)
{
  if (!iCreate)
    return NewReference(FindMinorObject(iID));
  return NewReference(FindOrAddMinorObject(iID, iType, iName, iRevision, iVersion));
}

MabERixRelationship* MabRixTNRObjectContext::CreateRelationship(const KelUnicodeString& iID,
                                                                const KelUnicodeString& iKind)
{
  return FindOrAddRelationship(iID, iKind);
}

MabERixRelation* MabRixTNRObjectContext::CreateRelation(const MabRixObjectID& iFrom,
                                                        const KelUnicodeString& iRelationshipID,
                                                        const MabRixObjectID& iTo)
{
  return NewReference(FindOrAddRelation(iFrom, iRelationshipID, iTo));
}
