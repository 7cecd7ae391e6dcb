#include "RixsaxNearest.h"

#include <algorithm>

namespace
{
// Levenshtein distance, one row at a time.
std::size_t Distance(const std::string& iLeft, const std::string& iRight)
{
  std::vector<std::size_t> Row(iRight.size() + 1);
  for (std::size_t j = 0; j <= iRight.size(); ++j)
    Row[j] = j;
  for (std::size_t i = 1; i <= iLeft.size(); ++i)
  {
    std::size_t Diagonal = Row[0];
    Row[0] = i;
    for (std::size_t j = 1; j <= iRight.size(); ++j)
    {
      const std::size_t Above = Row[j];
      Row[j] = std::min({Row[j] + 1, Row[j - 1] + 1, Diagonal + (iLeft[i - 1] == iRight[j - 1] ? 0 : 1)});
      Diagonal = Above;
    }
  }
  return Row[iRight.size()];
}
}  // namespace

std::string RixsaxDidYouMean(const std::string& iName, const std::vector<std::string>& iNames)
{
  // A third of the name may be wrong, at least two letters.
  const std::size_t Allowed = std::max<std::size_t>(2, iName.size() / 3);
  std::size_t Best = Allowed + 1;
  std::vector<std::string> Nearest;
  for (const std::string& Name : iNames)
  {
    const std::size_t Edits = (!iName.empty() && Name.rfind(iName, 0) == 0) ? 1 : Distance(iName, Name);
    if (Edits < Best)
    {
      Best = Edits;
      Nearest.clear();
    }
    if (Edits == Best)
      Nearest.push_back(Name);
  }
  if (Nearest.empty())
    return std::string();
  std::string Text = "; did you mean " + Nearest.front();
  for (std::size_t i = 1; i < Nearest.size(); ++i)
    Text += (i + 1 == Nearest.size() ? " or " : ", ") + Nearest[i];
  return Text + "?";
}
