#include "MabRixWorkspaceDetails.h"

void MabRixWorkspaceDetails::Clear() { *this = MabRixWorkspaceDetails(); }

bool MabRixWorkspaceDetails::operator==(const MabRixWorkspaceDetails& iOther) const
{
  return _RowID == iOther._RowID && _Name == iOther._Name && _OID == iOther._OID && _Type == iOther._Type &&
         _Revision == iOther._Revision;
}
