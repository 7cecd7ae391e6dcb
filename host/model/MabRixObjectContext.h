/// Common part of the object contexts: it owns every entity created in it and
/// releases them when it is destroyed. Each kind of entity is enumerated in
/// creation order. The entities and their data live in the context's store
/// (MabRixContextStore), which outlives the context while a caller holds any
/// of them. Ownership, threads, errors: @ref conventions.
///
/// Create operations get or create: a repeated creation for the same key
/// returns the same entity. Unless stated otherwise they return a new
/// reference that the caller releases, or null when the entity cannot be made. @file
#ifndef MabRixObjectContext_h
#define MabRixObjectContext_h

#include <vector>

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelVar.h"
#include "MabERixMajorObject.h"
#include "MabERixMinorObject.h"
#include "MabERixObject.h"
#include "MabERixRelation.h"
#include "MabERixRelationship.h"
#include "MabRixEntityIndex.h"
#include "MabRixObjectID.h"

class MabRixObjectContext : public KelBaseUnknown
{
  KelDeclareClass

public:
  MabRixObjectContext(const MabRixObjectContext&) = delete;
  MabRixObjectContext& operator=(const MabRixObjectContext&) = delete;

  /// The object of a type and name.
  MabERixObject* CreateObject(const KelUnicodeString& iType, const KelUnicodeString& iName);
  /// The major object of a type, name and revision; its object is got or
  /// created with it.
  MabERixMajorObject* CreateMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                        const KelUnicodeString& iRevision);

  /// The object of iID's type and name; null when there is none.
  virtual KelBaseUnknown_var GetObject(const MabRixObjectID& iID);
  /// The minor object created with an ID equal to iID; null when none.
  virtual KelBaseUnknown_var GetMinorObject(const MabRixObjectID& iID);

  /// Content, each kind in creation order.
  const std::vector<MabERixObject_var>& GetObjects() const { return _Objects; }
  const std::vector<MabERixMajorObject_var>& GetMajorObjects() const { return _MajorObjects; }
  const std::vector<MabERixMinorObject_var>& GetMinorObjects() const { return _MinorObjects; }
  const std::vector<MabERixRelationship_var>& GetRelationships() const { return _Relationships; }
  const std::vector<MabERixRelation_var>& GetRelations() const { return _Relations; }

protected:
  MabRixObjectContext();
  ~MabRixObjectContext() override;

  MabRixContextStore& GetStore() const { return *_pStore; }

  /// Finders and makers below return the context's own pointer (no new
  /// reference).
  MabERixObject* FindObject(const KelUnicodeString& iType, const KelUnicodeString& iName) const;
  MabERixObject* FindOrAddObject(const KelUnicodeString& iType, const KelUnicodeString& iName);
  MabERixMajorObject* FindMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                      const KelUnicodeString& iRevision) const;
  MabERixMajorObject* FindOrAddMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                           const KelUnicodeString& iRevision);
  /// A major object of iObject entered in no revision index.
  MabERixMajorObject* AddUnindexedMajorObject(MabERixObject& iObject, const KelUnicodeString& iRevision);
  /// Enters the major object at iPosition of GetMajorObjects() in the index
  /// of its key revision.
  void IndexMajorObject(std::size_t iPosition);
  MabERixMinorObject* FindMinorObject(const MabRixObjectID& iID) const;
  MabERixMinorObject* FindOrAddMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType,
                                           const KelUnicodeString& iName, const KelUnicodeString& iRevision,
                                           const KelUnicodeString& iVersion);
  /// The same for MabRixObjectID(iType, iName), without making that ID
  /// unless the minor object is new.
  MabERixMinorObject* FindOrAddMinorObject(const KelUnicodeString& iType, const KelUnicodeString& iName);
  MabERixRelationship* FindOrAddRelationship(const KelUnicodeString& iID, const KelUnicodeString& iKind);
  MabERixRelation* FindOrAddRelation(const MabRixObjectID& iFrom, const KelUnicodeString& iRelationshipID,
                                     const MabRixObjectID& iTo);

  /// A new reference to ipEntity for the caller (null stays null).
  template <class T>
  static T* NewReference(T* ipEntity)
  {
    if (ipEntity)
      ipEntity->AddRef();
    return ipEntity;
  }

private:
  MabRixContextStore* _pStore;  ///< one reference, released after every entity

  std::vector<MabERixObject_var> _Objects;
  std::vector<MabERixMajorObject_var> _MajorObjects;
  std::vector<MabERixMinorObject_var> _MinorObjects;
  std::vector<MabERixRelationship_var> _Relationships;
  std::vector<MabERixRelation_var> _Relations;

  /// The entities above by their keys (borrowed pointers).
  MabRixEntityIndex<MabERixObject> _ObjectIndex;
  MabRixEntityIndex<MabERixMajorObject> _MajorIndex;
  MabRixEntityIndex<MabERixMinorObject> _MinorIndex;
  MabRixEntityIndex<MabERixRelationship> _RelationshipIndex;
  MabRixEntityIndex<MabERixRelation> _RelationIndex;
};

#endif
