#include "MabRixPath.h"

MabRixPath MabRixPath::operator/(const MabRixPath& iRight) const
{
  if (!IsValid())
    return iRight;
  if (!iRight.IsValid())
    return *this;
  const bool bLeftEnds = _Path.View().back() == '/';
  const bool bRightStarts = iRight._Path.View().front() == '/';
  KelUnicodeString Joined = _Path;
  if (bLeftEnds && bRightStarts)
    Joined += KelUnicodeString(iRight._Path.View().substr(1));
  else
  {
    if (!bLeftEnds && !bRightStarts)
      Joined += "/";
    Joined += iRight._Path;
  }
  return MabRixPath(Joined);
}
