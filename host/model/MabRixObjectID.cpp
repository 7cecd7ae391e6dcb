#include "MabRixObjectID.h"

#include <charconv>
#include <string>

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

// One allocation, no temporary.
KelUnicodeString MabRixObjectID::ComposeKey(std::initializer_list<const KelUnicodeString*> iParts)
{
  std::size_t Size = 0;
  for (const KelUnicodeString* pPart : iParts)
    Size += pPart->GetLengthInByte() + 21;  // digits of a length, then ':'
  std::string Key;
  Key.reserve(Size);
  for (const KelUnicodeString* pPart : iParts)
  {
    char Digits[20];
    const char* pEnd = std::to_chars(Digits, Digits + sizeof Digits, pPart->GetLengthInByte()).ptr;
    Key.append(Digits, static_cast<std::size_t>(pEnd - Digits));
    Key += ':';
    Key += pPart->ToUtf8();
  }
  return KelUnicodeString(std::move(Key));
}
