#include "MabRixVaultDetails.h"

void MabRixVaultDetails::Clear() { *this = MabRixVaultDetails(); }

bool MabRixVaultDetails::operator==(const MabRixVaultDetails& iOther) const
{
  return _RowID == iOther._RowID && _Name == iOther._Name && _OID == iOther._OID && _ParentID == iOther._ParentID &&
         _Type == iOther._Type && _Revision == iOther._Revision;
}
