#include "MabRixStringUtils.h"

#include <string_view>

namespace
{
template <class F>
void ForEachPiece(std::string_view iText, std::string_view iSeparator, F&& iVisit)
{
  if (iText.empty())
    return;
  if (iSeparator.empty())
  {
    iVisit(iText);
    return;
  }
  std::size_t Start = 0;
  while (true)
  {
    const std::size_t Found = iText.find(iSeparator, Start);
    if (Found == std::string_view::npos)
    {
      iVisit(iText.substr(Start));
      return;
    }
    iVisit(iText.substr(Start, Found - Start));
    Start = Found + iSeparator.size();
  }
}

// Calls iVisit(key, value) for every entry with a non-empty key.
template <class F>
void ForEachEntry(std::string_view iText, std::string_view iFirst, std::string_view iSecond, F&& iVisit)
{
  ForEachPiece(iText, iFirst, [&](std::string_view iEntry) {
    if (iEntry.empty())
      return;
    const std::size_t Cut = iSecond.empty() ? std::string_view::npos : iEntry.find(iSecond);
    const std::string_view Key = iEntry.substr(0, Cut);
    const std::string_view Value =
        Cut == std::string_view::npos ? std::string_view() : iEntry.substr(Cut + iSecond.size());
    if (!Key.empty())
      iVisit(Key, Value);
  });
}
}  // namespace

KelUnicodeStringList MabRixStringUtils::GetList(const KelUnicodeString& iText, const KelUnicodeString& iSeparator)
{
  KelUnicodeStringList List;
  std::size_t Count = 0;
  ForEachPiece(iText.View(), iSeparator.View(), [&](std::string_view) { ++Count; });
  List.Reserve(Count);
  ForEachPiece(iText.View(), iSeparator.View(),
               [&](std::string_view iPiece) { List.Append(KelUnicodeString(iPiece)); });
  return List;
}

KelUnicodeStringKelUnicodeStringDico MabRixStringUtils::GetMap(const KelUnicodeString& iText,
                                                               const KelUnicodeString& iFirst,
                                                               const KelUnicodeString& iSecond)
{
  KelUnicodeStringKelUnicodeStringDico Map;
  ForEachEntry(iText.View(), iFirst.View(), iSecond.View(), [&](std::string_view iKey, std::string_view iValue) {
    Map.Insert(KelUnicodeString(iKey), KelUnicodeString(iValue));
  });
  return Map;
}

KelUnicodeStringListKelUnicodeStringDico MabRixStringUtils::GetListMap(const KelUnicodeString& iText,
                                                                       const KelUnicodeString& iFirst,
                                                                       const KelUnicodeString& iSecond,
                                                                       const KelUnicodeString& iThird)
{
  KelUnicodeStringListKelUnicodeStringDico Map;
  ForEachEntry(iText.View(), iFirst.View(), iSecond.View(), [&](std::string_view iKey, std::string_view iValue) {
    const KelUnicodeString Key(iKey);
    if (!Map.HasKey(Key))
      Map.Insert(Key, GetList(KelUnicodeString(iValue), iThird));
  });
  return Map;
}
