#include <gtest/gtest.h>

#include "MabRixDocumentIDList.h"
#include "MabRixObjectID.h"
#include "MabRixPath.h"

TEST(MabRixPath, IsValidWhenNotEmpty)
{
  EXPECT_FALSE(MabRixPath().IsValid());
  EXPECT_FALSE(MabRixPath("").IsValid());
  EXPECT_TRUE(MabRixPath("a").IsValid());
}

TEST(MabRixPath, JoinPutsOneSlashBetweenTheSides)
{
  EXPECT_EQ((MabRixPath("/d") / MabRixPath("f.prt")).GetString(), "/d/f.prt");
  EXPECT_EQ((MabRixPath("/d/") / MabRixPath("f.prt")).GetString(), "/d/f.prt");
  EXPECT_EQ((MabRixPath("/d") / MabRixPath("/f.prt")).GetString(), "/d/f.prt");
  EXPECT_EQ((MabRixPath("/d/") / MabRixPath("/f.prt")).GetString(), "/d/f.prt");
  EXPECT_EQ((MabRixPath("KelDLN://Work Area") / MabRixPath("f.prt")).GetString(), "KelDLN://Work Area/f.prt");
}

TEST(MabRixPath, JoinWithAnEmptySideGivesTheOtherSideUnchanged)
{
  EXPECT_EQ((MabRixPath("") / MabRixPath("f/")).GetString(), "f/");
  EXPECT_EQ((MabRixPath("/d/") / MabRixPath("")).GetString(), "/d/");
  EXPECT_FALSE((MabRixPath() / MabRixPath()).IsValid());
}

TEST(MabRixPath, JoinsWithAString)
{
  const KelUnicodeString File = "f.prt";
  EXPECT_EQ((MabRixPath(KelUnicodeString("/d")) / File).GetString(), "/d/f.prt");
}

TEST(MabRixObjectID, EqualExactlyWhenAllPartsAre)
{
  EXPECT_EQ(MabRixObjectID("C1"), MabRixObjectID("C1"));
  EXPECT_NE(MabRixObjectID("C1"), MabRixObjectID("C2"));
  EXPECT_EQ(MabRixObjectID("Part", "P1"), MabRixObjectID("Part", "P1"));
  EXPECT_NE(MabRixObjectID("Part", "P1"), MabRixObjectID("Part", "P2"));
  EXPECT_NE(MabRixObjectID("Part"), MabRixObjectID("Part", ""));
  EXPECT_NE(MabRixObjectID("a:b", "c").GetKey(), MabRixObjectID("a", "b:c").GetKey());
  EXPECT_EQ(MabRixObjectID("Part", "P1").GetKey(), MabRixObjectID("Part", "P1").GetKey());
}

TEST(MabRixDocumentIDList, PositionOutsideReadsAsAnEmptyID)
{
  MabRixDocumentIDList List;
  List.Append(MabRixDocumentID::Create("Part", "P1", "/d/f"));
  EXPECT_EQ(List[0].GetName(), "P1");
  EXPECT_EQ(List[1], MabRixDocumentID());
  EXPECT_EQ(List[-1], MabRixDocumentID());
}
