#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabRixBoundedList.h"

TEST(MabRixBoundedList, KeepsTheFirstEntriesUpToItsLimitAndCountsTheRest)
{
  MabRixBoundedList<std::string> List(2);
  EXPECT_TRUE(List.Add("a"));
  EXPECT_TRUE(List.Add("b"));
  EXPECT_FALSE(List.Add("c"));
  EXPECT_EQ(List.Entries(), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(List.size(), 2u);
  EXPECT_EQ(List.Omitted(), 1u);
  EXPECT_EQ(List.Total(), 3u);
  List.AddOmitted(4);
  EXPECT_EQ(List.Total(), 7u);
  List.Clear();
  EXPECT_TRUE(List.empty());
  EXPECT_EQ(List.Total(), 0u);
  EXPECT_EQ(List.Limit(), 2u);
}

TEST(MabRixBoundedList, ALimitOfZeroOnlyCounts)
{
  MabRixBoundedList<int> List(0);
  EXPECT_FALSE(List.Add(1));
  EXPECT_TRUE(List.empty());
  EXPECT_EQ(List.Omitted(), 1u);
}

TEST(MabRixBoundedList, HasAThousandPlacesUnlessToldOtherwise)
{
  MabRixBoundedList<int> List;
  EXPECT_EQ(List.Limit(), 1000u);
  for (int Index = 0; Index < 1001; ++Index)
    List.Add(Index);
  EXPECT_EQ(List.size(), 1000u);
  EXPECT_EQ(List.back(), 999);
  EXPECT_EQ(List.Omitted(), 1u);
}
