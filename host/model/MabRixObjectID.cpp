#include "MabRixObjectID.h"

#include <charconv>

MabRixObjectID::MabRixObjectID(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  if (!iType.IsEmpty() || !iName.IsEmpty())
    _pTypeName.reset(new TypeName{iType, iName});
}

MabRixObjectID::MabRixObjectID(const MabRixObjectID& iOther)
    : _ID(iOther._ID), _pTypeName(iOther._pTypeName ? new TypeName(*iOther._pTypeName) : nullptr)
{
}

MabRixObjectID& MabRixObjectID::operator=(const MabRixObjectID& iOther)
{
  if (this != &iOther)
    *this = MabRixObjectID(iOther);
  return *this;
}

const KelUnicodeString& MabRixObjectID::Empty()
{
  static const KelUnicodeString Text;
  return Text;
}

KelUnicodeString MabRixObjectID::GetKey() const { return ComposeKey({&_ID, &GetType(), &GetName()}); }

void MabRixObjectID::Assign(const KelUnicodeString& iID)
{
  _ID.Assign(iID.View());
  _pTypeName.reset();
}

void MabRixObjectID::Assign(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  _ID.Clear();
  if (iType.IsEmpty() && iName.IsEmpty())
  {
    _pTypeName.reset();
    return;
  }
  if (!_pTypeName)
    _pTypeName.reset(new TypeName{iType, iName});
  else
  {
    _pTypeName->_Type.Assign(iType.View());
    _pTypeName->_Name.Assign(iName.View());
  }
}

// One allocation, no temporary.
KelUnicodeString MabRixObjectID::ComposeKey(std::initializer_list<const KelUnicodeString*> iParts)
{
  std::size_t Size = 0;
  for (const KelUnicodeString* pPart : iParts)
    Size += pPart->GetLengthInByte() + 21;  // digits of a length, then ':'
  KelUnicodeString Key;
  Key.Reserve(Size);
  for (const KelUnicodeString* pPart : iParts)
  {
    char Digits[21];
    char* pEnd = std::to_chars(Digits, Digits + sizeof Digits - 1, pPart->GetLengthInByte()).ptr;
    *pEnd++ = ':';
    Key.AppendBytes(Digits, static_cast<std::size_t>(pEnd - Digits));
    Key.AppendBytes(pPart->View().data(), pPart->GetLengthInByte());
  }
  return Key;
}
