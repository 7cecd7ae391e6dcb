#include "MabERixObject.h"

KelImplementClass(MabERixObject, MabERixEntity, "KelSystem")

HRESULT MabERixObject::GetContextCurrentRevision(KelUnicodeString& oRevision) const
{
  if (!_bHasContextCurrentRevision)
    return E_FAIL;
  oRevision = _ContextCurrentRevision;
  return S_OK;
}
