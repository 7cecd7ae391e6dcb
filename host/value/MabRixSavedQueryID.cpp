#include "MabRixSavedQueryID.h"

MabRixSavedQueryID::MabRixSavedQueryID(const KelUnicodeString& iName, const KelUnicodeString& iDescription)
    : _Name(iName), _Description(iDescription)
{
}

bool MabRixSavedQueryID::operator==(const MabRixSavedQueryID& iOther) const
{
  return _Name == iOther._Name && _Description == iOther._Description;
}
