#include "MabRixObjectID.h"

#include <charconv>
#include <string>

KelUnicodeString MabRixObjectID::GetKey() const { return ComposeKey({&_ID, &_Type, &_Name}); }

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
