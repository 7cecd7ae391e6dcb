// Reading texts in place: comparisons that would otherwise lower-case a copy,
// and attribute values copied straight into a handler's own string.
#ifndef MabRixTextSupport_h
#define MabRixTextSupport_h

#include <cstddef>
#include <string_view>

#include "KelISAXAttributeList.h"
#include "KelUnicodeString.h"

// True when iText, its ASCII letters lowered (as KelUnicodeString::ToLower
// lowers them), equals iLower.
inline bool MabRixEqualsLowered(std::string_view iText, std::string_view iLower)
{
  if (iText.size() != iLower.size())
    return false;
  for (std::size_t i = 0; i < iText.size(); ++i)
  {
    const char c = iText[i] >= 'A' && iText[i] <= 'Z' ? static_cast<char>(iText[i] - 'A' + 'a') : iText[i];
    if (c != iLower[i])
      return false;
  }
  return true;
}

// oValue becomes the value of the attribute iName, in the room it already has
// (the name needs no string of its own either); a missing attribute, or a
// missing list, fails and leaves oValue as it was.
inline HRESULT MabRixCopyAttribute(const KelISAXAttributeList_var& iAttributes, std::string_view iName,
                                   KelUnicodeString& oValue)
{
  std::string_view Value;
  const HRESULT Result = !iAttributes ? E_FAIL : iAttributes->GetValueView(iName, Value);
  if (SUCCEEDED(Result))
    oValue.Assign(Value);
  return Result;
}

#endif
