#include "MabRixUIElementIDList.h"

const MabRixUIElementID& MabRixUIElementIDList::operator[](int iPosition) const
{
  static const MabRixUIElementID None;
  if (iPosition < 0 || iPosition >= Size())
    return None;
  return _Items[static_cast<std::size_t>(iPosition)];
}
