#include "MabRixObjectID.h"

#include <string>

KelUnicodeString MabRixObjectID::GetKey() const { return ComposeKey({&_ID, &_Type, &_Name}); }

KelUnicodeString MabRixObjectID::ComposeKey(std::initializer_list<const KelUnicodeString*> iParts)
{
  std::string Key;
  for (const KelUnicodeString* pPart : iParts)
  {
    Key += std::to_string(pPart->GetLengthInByte());
    Key += ':';
    Key += pPart->ToUtf8();
  }
  return KelUnicodeString(std::move(Key));
}
