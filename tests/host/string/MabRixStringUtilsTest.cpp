#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "MabRixStringUtils.h"

namespace
{
std::vector<std::string> Items(const KelUnicodeStringList& iList)
{
  std::vector<std::string> Result;
  for (const KelUnicodeString& Item : iList)
    Result.push_back(Item.ToUtf8());
  return Result;
}

std::vector<std::pair<std::string, std::string>> Entries(const KelUnicodeStringKelUnicodeStringDico& iMap)
{
  std::vector<std::pair<std::string, std::string>> Result;
  for (auto It = iMap.begin(); It != iMap.end(); ++It)
    Result.emplace_back(It.GetKey().ToUtf8(), (*It).ToUtf8());
  return Result;
}

std::vector<std::pair<std::string, std::vector<std::string>>> Entries(
    const KelUnicodeStringListKelUnicodeStringDico& iMap)
{
  std::vector<std::pair<std::string, std::vector<std::string>>> Result;
  for (auto It = iMap.begin(); It != iMap.end(); ++It)
    Result.emplace_back(It.GetKey().ToUtf8(), Items(*It));
  return Result;
}

typedef std::vector<std::string> Strings;
typedef std::vector<std::pair<std::string, std::string>> Pairs;
}  // namespace

TEST(MabRixStringUtils, GetListOfEmptyTextIsEmpty)
{
  EXPECT_EQ(MabRixStringUtils::GetList("", ",").Size(), 0);
  EXPECT_EQ(MabRixStringUtils::GetList("", "").Size(), 0);
}

TEST(MabRixStringUtils, GetListWithAnEmptySeparatorGivesTheWholeText)
{
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a,b", "")), (Strings{"a,b"}));
}

TEST(MabRixStringUtils, GetListCutsAtEverySeparatorInOrder)
{
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a,b,c", ",")), (Strings{"a", "b", "c"}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList("abc", ",")), (Strings{"abc"}));
}

TEST(MabRixStringUtils, GetListKeepsEmptyPieces)
{
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a,,b", ",")), (Strings{"a", "", "b"}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a,", ",")), (Strings{"a", ""}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList(",a", ",")), (Strings{"", "a"}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList(",", ",")), (Strings{"", ""}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList(",,", ",")), (Strings{"", "", ""}));
}

TEST(MabRixStringUtils, GetListTakesMultiCharacterSeparatorsWhole)
{
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a||b|c||", "||")), (Strings{"a", "b|c", ""}));
  // Occurrences do not overlap: "|||" is one separator then a "|".
  EXPECT_EQ(Items(MabRixStringUtils::GetList("a|||b", "||")), (Strings{"a", "|b"}));
}

TEST(MabRixStringUtils, GetListCutsNonAsciiTextOnCharacters)
{
  // "é€ö€" cut by "€", and "a€b" cut by "€" as a multi-byte separator.
  EXPECT_EQ(Items(MabRixStringUtils::GetList("\xC3\xA9\xE2\x82\xAC\xC3\xB6\xE2\x82\xAC", "\xE2\x82\xAC")),
            (Strings{"\xC3\xA9", "\xC3\xB6", ""}));
  EXPECT_EQ(Items(MabRixStringUtils::GetList("\xC3\xA9;\xC3\xB6", ";")), (Strings{"\xC3\xA9", "\xC3\xB6"}));
}

TEST(MabRixStringUtils, GetMapCutsEntriesThenKeyAndValueAtTheFirstSecondSeparator)
{
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("a=1;b=2=3", ";", "=")), (Pairs{{"a", "1"}, {"b", "2=3"}}));
}

TEST(MabRixStringUtils, GetMapEntryWithoutSecondSeparatorIsAKeyWithAnEmptyValue)
{
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("a;b=2", ";", "=")), (Pairs{{"a", ""}, {"b", "2"}}));
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("a=;b", ";", "=")), (Pairs{{"a", ""}, {"b", ""}}));
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("a=1", ";", "")), (Pairs{{"a=1", ""}}));
}

TEST(MabRixStringUtils, GetMapSkipsEmptyEntriesAndEmptyKeys)
{
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap(";a=1;;=2;b=;", ";", "=")), (Pairs{{"a", "1"}, {"b", ""}}));
  EXPECT_EQ(MabRixStringUtils::GetMap("", ";", "=").Size(), 0);
  EXPECT_EQ(MabRixStringUtils::GetMap(";;", ";", "=").Size(), 0);
}

TEST(MabRixStringUtils, GetMapFirstEntryOfAKeyWins)
{
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("k=1;j=0;k=2", ";", "=")), (Pairs{{"k", "1"}, {"j", "0"}}));
}

TEST(MabRixStringUtils, GetMapWithMultiCharacterAndNonAsciiSeparators)
{
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("a::1&&b::2::x&&", "&&", "::")), (Pairs{{"a", "1"}, {"b", "2::x"}}));
  EXPECT_EQ(Entries(MabRixStringUtils::GetMap("\xC3\xA9\xC2\xA7"
                                              "1\xE2\x82\xAC"
                                              "b\xC2\xA7\xC3\xB6",
                                              "\xE2\x82\xAC", "\xC2\xA7")),
            (Pairs{{"\xC3\xA9", "1"}, {"b", "\xC3\xB6"}}));
}

TEST(MabRixStringUtils, GetListMapCutsEachValueIntoAList)
{
  const KelUnicodeStringListKelUnicodeStringDico Map = MabRixStringUtils::GetListMap("a=1,2;b=;c;d=3,,", ";", "=", ",");
  const std::vector<std::pair<std::string, Strings>> Expected{
      {"a", {"1", "2"}}, {"b", {}}, {"c", {}}, {"d", {"3", "", ""}}};
  EXPECT_EQ(Entries(Map), Expected);
}

TEST(MabRixStringUtils, GetListMapSkipsEmptyEntriesAndKeysAndKeepsTheFirstEntryOfAKey)
{
  const KelUnicodeStringListKelUnicodeStringDico Map = MabRixStringUtils::GetListMap(";=x;k=1|2;;k=3", ";", "=", "|");
  const std::vector<std::pair<std::string, Strings>> Expected{{"k", {"1", "2"}}};
  EXPECT_EQ(Entries(Map), Expected);
  EXPECT_EQ(MabRixStringUtils::GetListMap("", ";", "=", "|").Size(), 0);
}

TEST(MabRixStringUtils, GetListMapWithAnEmptyThirdSeparatorKeepsTheValueWhole)
{
  const std::vector<std::pair<std::string, Strings>> Expected{{"k", {"1|2"}}};
  EXPECT_EQ(Entries(MabRixStringUtils::GetListMap("k=1|2", ";", "=", "")), Expected);
}
