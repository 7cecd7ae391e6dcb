#include "MabERixObject.h"

KelImplementClass(MabERixObject, MabERixEntity, "KelSystem")

HRESULT MabERixObject::GetContextCurrentRevision(KelUnicodeString& oRevision) const
{
  if (!_pContextCurrentRevision)
    return E_FAIL;
  oRevision = *_pContextCurrentRevision;
  return S_OK;
}
