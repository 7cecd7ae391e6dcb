#include <gtest/gtest.h>

#include <vector>

#include "KelUnicodeStringList.h"

TEST(KelUnicodeStringList, AppendAndPushAddAtTheEndInOrder)
{
  KelUnicodeStringList List;
  List.Append("a");
  List.Push("b");
  List.Append("c");
  ASSERT_EQ(List.Size(), 3);
  EXPECT_EQ(List[0], "a");
  EXPECT_EQ(List[1], "b");
  EXPECT_EQ(List[2], "c");
  std::vector<KelUnicodeString> Visited(List.begin(), List.end());
  EXPECT_EQ(Visited, (std::vector<KelUnicodeString>{"a", "b", "c"}));
}

TEST(KelUnicodeStringList, PopRemovesAndReturnsTheLastPushed)
{
  KelUnicodeStringList List{"a", "b"};
  EXPECT_EQ(List.Pop(), "b");
  EXPECT_EQ(List.Size(), 1);
  EXPECT_EQ(List.Pop(), "a");
  EXPECT_EQ(List.Size(), 0);
  EXPECT_EQ(List.Pop(), "");
  EXPECT_EQ(List.Size(), 0);
}

TEST(KelUnicodeStringList, IndexOutsideTheListYieldsTheEmptyString)
{
  const KelUnicodeStringList List{"a", "b"};
  EXPECT_EQ(List[-1], "");
  EXPECT_EQ(List[-1000], "");
  EXPECT_EQ(List[2], "");
  EXPECT_EQ(List[1000], "");
  EXPECT_EQ(KelUnicodeStringList()[0], "");
  // Positions size - 2 and size - 1 read the last two items.
  EXPECT_EQ(List[List.Size() - 2], "a");
  EXPECT_EQ(List[List.Size() - 1], "b");
}

TEST(KelUnicodeStringList, CopiesAreIndependentAndCompareByContent)
{
  KelUnicodeStringList First{"a"};
  KelUnicodeStringList Second = First;
  Second.Append("b");
  EXPECT_EQ(First.Size(), 1);
  EXPECT_TRUE(First != Second);
  First.Append("b");
  EXPECT_TRUE(First == Second);
  First.RemoveAll();
  EXPECT_EQ(First.Size(), 0);
}
