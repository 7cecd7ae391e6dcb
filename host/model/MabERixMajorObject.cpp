#include "MabERixMajorObject.h"

KelImplementClass(MabERixMajorObject, MabERixEntity, "KelSystem")

MabERixMajorObject::MabERixMajorObject(MabERixObject& iObject, const KelUnicodeString& iRevision)
    : MabERixEntity(iObject, nullptr), _pKeyRevision(Intern(iRevision)), _spObject(&iObject)
{
}

HRESULT MabERixMajorObject::GetCurrentMajorRevision(KelUnicodeString& oRevision) const
{
  return _spObject->GetContextCurrentRevision(oRevision);
}
