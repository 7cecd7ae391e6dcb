// Reading texts in place: comparisons that would otherwise lower-case a copy.
#ifndef MabRixTextSupport_h
#define MabRixTextSupport_h

#include <cstddef>
#include <string_view>

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

#endif
