/// Identifier of the document behind a minor object: its CAD type, its name
/// and its file path. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixDocumentID_h
#define MabRixDocumentID_h

#include "KelUnicodeString.h"
#include "MabRixPath.h"

class MabRixDocumentID
{
public:
  MabRixDocumentID() = default;

  static MabRixDocumentID Create(const KelUnicodeString& iType, const KelUnicodeString& iName, const MabRixPath& iPath);
  /// This ID becomes Create(iType, iName, iPath), in the room it already has.
  void Assign(const KelUnicodeString& iType, const KelUnicodeString& iName, const MabRixPath& iPath);

  const KelUnicodeString& GetType() const { return _Type; }
  const KelUnicodeString& GetName() const { return _Name; }
  const MabRixPath& GetPath() const { return _Path; }

  bool operator==(const MabRixDocumentID& iOther) const
  {
    return _Type == iOther._Type && _Name == iOther._Name && _Path == iOther._Path;
  }
  bool operator!=(const MabRixDocumentID& iOther) const { return !(*this == iOther); }

private:
  KelUnicodeString _Type;
  KelUnicodeString _Name;
  MabRixPath _Path;
};

#endif
