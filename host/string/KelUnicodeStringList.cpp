#include "KelUnicodeStringList.h"

KelUnicodeString KelUnicodeStringList::Pop()
{
  if (_Items.empty())
    return KelUnicodeString();
  KelUnicodeString Last = std::move(_Items.back());
  _Items.pop_back();
  return Last;
}

const KelUnicodeString& KelUnicodeStringList::operator[](int iPosition) const
{
  static const KelUnicodeString Empty;
  if (iPosition < 0 || iPosition >= static_cast<int>(_Items.size()))
    return Empty;
  return _Items[static_cast<std::size_t>(iPosition)];
}
