#include "MabRixUIElementID.h"

MabRixUIElementID::MabRixUIElementID(const KelUnicodeString& iKind, const KelUnicodeString& iName,
                                     const unsigned char& iIsSystem)
    : _Kind(iKind), _Name(iName), _IsSystem(iIsSystem)
{
}

bool MabRixUIElementID::operator==(const MabRixUIElementID& iOther) const
{
  return _Kind == iOther._Kind && _Name == iOther._Name && _IsSystem == iOther._IsSystem;
}
