/// Object context keyed by CAD object: one object and one minor object per
/// type and name, major objects per type, name and revision, and a current
/// revision per type and name.
///
/// Until SetMajorRevision names a current revision, the two-string
/// CreateMajorObject gives one revision-less major object of the type and
/// name; the first SetMajorRevision makes that major object the one of the
/// revision it names (unless that revision already has one). Once a revision
/// is current, the two-string CreateMajorObject gives (gets or creates) the
/// major object of the current revision. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixCADObjectContext_h
#define MabRixCADObjectContext_h

#include <memory_resource>
#include <unordered_map>

#include "MabRixObjectContext.h"

class MabRixCADObjectContext : public MabRixObjectContext
{
  KelDeclareClass

public:
  MabRixCADObjectContext() = default;

  using MabRixObjectContext::CreateMajorObject;
  /// The major object of the current revision (see above). New reference.
  MabERixMajorObject* CreateMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName);
  /// The minor object of a type and name. New reference.
  MabERixMinorObject* CreateMinorObject(const KelUnicodeString& iType, const KelUnicodeString& iName);

  /// Makes iRevision the current revision of the type and name (the object
  /// is got or created). E_FAIL, nothing changed, for an empty revision.
  HRESULT SetMajorRevision(const KelUnicodeString& iType, const KelUnicodeString& iName,
                           const KelUnicodeString& iRevision);

  /// The major object the two-string CreateMajorObject would give for iID's
  /// type and name, without creating it; null when there is none.
  virtual KelBaseUnknown_var GetMajorObject(const MabRixObjectID& iID);
  // GetObject and GetMinorObject take MabRixObjectID(type, name).

  // False for a major object made before any revision of its object was
  // known (its key revision is empty without being a revision of its own).
  bool IsRevisionKnown(const MabERixMajorObject& iMajor) const;

private:
  MabERixMajorObject* FindCurrentMajorObject(const KelUnicodeString& iType, const KelUnicodeString& iName) const;

  /// Revision-less major objects by their object: positions in
  /// GetMajorObjects(). Most last for one cadobject: their nodes come back
  /// to a pool instead of the heap.
  std::pmr::unsynchronized_pool_resource _PendingPool;
  std::pmr::unordered_map<const MabERixObject*, std::size_t> _PendingMajorIndex{&_PendingPool};
};

#endif
