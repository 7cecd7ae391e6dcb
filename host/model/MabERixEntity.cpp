#include "MabERixEntity.h"

KelImplementClass(MabERixEntity, KelBaseUnknown, "KelSystem")

MabERixEntity::MabERixEntity(MabRixContextStore& ioStore, const KelUnicodeString& iType, const KelUnicodeString& iName)
    : _bOwnsStore(false), _pStore(&ioStore), _pKeyType(Intern(iType)), _pKeyName(Intern(iName))
{
}

MabERixEntity::MabERixEntity(const MabERixEntity& iOther, std::nullptr_t)
    : _bOwnsStore(false), _pStore(iOther._pStore), _pKeyType(iOther._pKeyType), _pKeyName(iOther._pKeyName)
{
}

MabERixEntity::MabERixEntity(const KelUnicodeString& iType, const KelUnicodeString& iName)
    : MabERixEntity(*new MabRixContextStore(), iType, iName)
{
  _bOwnsStore = true;
}

MabERixEntity::~MabERixEntity()
{
  if (_bOwnsStore)
    _pStore->Release();
}
