#include "MabRixPath.h"

#include <string_view>

MabRixPath MabRixPath::operator/(const MabRixPath& iRight) const
{
  MabRixPath Joined;
  Joined.AssignJoined(*this, iRight);
  return Joined;
}

void MabRixPath::AssignJoined(const MabRixPath& iLeft, const MabRixPath& iRight)
{
  // The parts may be this path's own text: the result is built aside when so.
  if (this == &iLeft || this == &iRight)
  {
    *this = iLeft / iRight;
    return;
  }
  AssignJoined(iLeft._Path.View(), iRight._Path.View());
}

void MabRixPath::AssignJoined(std::string_view iLeft, std::string_view iRight)
{
  const std::string_view Left = iLeft;
  std::string_view Right = iRight;
  const bool bSlash = !Left.empty() && !Right.empty() && Left.back() != '/' && Right.front() != '/';
  if (!Left.empty() && !Right.empty() && Left.back() == '/' && Right.front() == '/')
    Right.remove_prefix(1);
  _Path.Clear();
  _Path.Reserve(Left.size() + (bSlash ? 1 : 0) + Right.size());
  _Path.AppendBytes(Left.data(), Left.size());
  if (bSlash)
    _Path.AppendBytes("/", 1);
  _Path.AppendBytes(Right.data(), Right.size());
}
