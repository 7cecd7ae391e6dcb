#include "MabRixTemplateDetails.h"

bool MabRixTemplateDetails::operator==(const MabRixTemplateDetails& iOther) const
{
  return _Name == iOther._Name && _OID == iOther._OID && _Type == iOther._Type && _Revision == iOther._Revision &&
         _FileName == iOther._FileName && _Format == iOther._Format;
}
