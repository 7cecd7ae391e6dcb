/// Object context keyed by type, name and revision: objects by type and name, major
/// objects by type, name and revision, minor objects by the MabRixObjectID they were
/// created with (the CAD id of the version), so that MabRixObjectID(cadid) finds a minor
/// object again (GetMinorObject). Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixTNRObjectContext_h
#define MabRixTNRObjectContext_h

#include "MabRixObjectContext.h"

class MabRixTNRObjectContext : public MabRixObjectContext
{
  KelDeclareClass

public:
  MabRixTNRObjectContext() = default;

  /// The minor object of iID. With iCreate TRUE it is got or created (type,
  /// name, revision and version are those of its creation); with FALSE it is
  /// only looked up: null when absent. New reference, caller releases.
  MabERixMinorObject* CreateMinorObject(const MabRixObjectID& iID, const KelUnicodeString& iType,
                                        const KelUnicodeString& iName, const KelUnicodeString& iRevision,
                                        const KelUnicodeString& iVersion, unsigned char iCreate);

  /// The relationship of an id and kind, got or created. The pointer stays
  /// the context's: the caller does NOT release it.
  MabERixRelationship* CreateRelationship(const KelUnicodeString& iID, const KelUnicodeString& iKind);

  /// The relation from iFrom to iTo through iRelationshipID, got or created.
  /// New reference, caller releases.
  MabERixRelation* CreateRelation(const MabRixObjectID& iFrom, const KelUnicodeString& iRelationshipID,
                                  const MabRixObjectID& iTo);
};

#endif
