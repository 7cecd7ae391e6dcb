// Identifier of an object in an object context: either a single id (the CAD
// id of a minor object in a TNR context) or a type and a name (the key of an
// object in a CAD context). Two IDs are equal when all their parts are.
#ifndef MabRixObjectID_h
#define MabRixObjectID_h

#include <initializer_list>

#include "KelUnicodeString.h"

class MabRixObjectID
{
public:
  MabRixObjectID() = default;
  explicit MabRixObjectID(const KelUnicodeString& iID) : _ID(iID) {}
  MabRixObjectID(const KelUnicodeString& iType, const KelUnicodeString& iName) : _Type(iType), _Name(iName) {}

  const KelUnicodeString& GetID() const { return _ID; }
  const KelUnicodeString& GetType() const { return _Type; }
  const KelUnicodeString& GetName() const { return _Name; }

  // A text that identifies the ID: equal keys exactly for equal IDs.
  KelUnicodeString GetKey() const;

  bool operator==(const MabRixObjectID& iOther) const
  {
    return _ID == iOther._ID && _Type == iOther._Type && _Name == iOther._Name;
  }
  bool operator!=(const MabRixObjectID& iOther) const { return !(*this == iOther); }

  // One text made of the parts, each prefixed with its byte length, so that
  // different part lists never give the same key.
  static KelUnicodeString ComposeKey(std::initializer_list<const KelUnicodeString*> iParts);

private:
  KelUnicodeString _ID;
  KelUnicodeString _Type;
  KelUnicodeString _Name;
};

#endif
