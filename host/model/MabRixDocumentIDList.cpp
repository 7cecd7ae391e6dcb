#include "MabRixDocumentIDList.h"

const MabRixDocumentID& MabRixDocumentIDList::operator[](int iPosition) const
{
  static const MabRixDocumentID Empty;
  if (iPosition < 0 || iPosition >= Size())
    return Empty;
  return _Items[static_cast<std::size_t>(iPosition)];
}
