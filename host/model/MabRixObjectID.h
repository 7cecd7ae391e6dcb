/// Identifier of an object in an object context: either a single id (the CAD id of a minor
/// object in a TNR context) or a type and a name (the key of an object in a CAD context). Two
/// IDs are equal when all their parts are. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixObjectID_h
#define MabRixObjectID_h

#include <initializer_list>
#include <memory>

#include "KelUnicodeString.h"

class MabRixObjectID
{
public:
  MabRixObjectID() = default;
  explicit MabRixObjectID(const KelUnicodeString& iID) : _ID(iID) {}
  MabRixObjectID(const KelUnicodeString& iType, const KelUnicodeString& iName);
  MabRixObjectID(const MabRixObjectID& iOther);
  MabRixObjectID(MabRixObjectID&& ioOther) noexcept = default;
  MabRixObjectID& operator=(const MabRixObjectID& iOther);
  MabRixObjectID& operator=(MabRixObjectID&& ioOther) noexcept = default;

  /// This ID becomes MabRixObjectID(iID), or MabRixObjectID(iType, iName),
  /// in the room it already has.
  void Assign(const KelUnicodeString& iID);
  void Assign(const KelUnicodeString& iType, const KelUnicodeString& iName);

  const KelUnicodeString& GetID() const { return _ID; }
  const KelUnicodeString& GetType() const { return _pTypeName ? _pTypeName->_Type : Empty(); }
  const KelUnicodeString& GetName() const { return _pTypeName ? _pTypeName->_Name : Empty(); }

  /// A text that identifies the ID: equal keys exactly for equal IDs.
  KelUnicodeString GetKey() const;

  bool operator==(const MabRixObjectID& iOther) const
  {
    return _ID == iOther._ID && GetType() == iOther.GetType() && GetName() == iOther.GetName();
  }
  bool operator!=(const MabRixObjectID& iOther) const { return !(*this == iOther); }

  /// One text made of the parts, each prefixed with its byte length, so that
  /// different part lists never give the same key.
  static KelUnicodeString ComposeKey(std::initializer_list<const KelUnicodeString*> iParts);

private:
  /// An ID has an id or a type and name, seldom both: the type and name take
  /// room only when there are some (a TNR context keeps millions of IDs).
  struct TypeName
  {
    KelUnicodeString _Type;
    KelUnicodeString _Name;
  };

  static const KelUnicodeString& Empty();

  KelUnicodeString _ID;
  std::unique_ptr<TypeName> _pTypeName;  ///< null while both are empty
};

#endif
