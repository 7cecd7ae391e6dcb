#include <gtest/gtest.h>

#include <cstring>

#include "MabERixMajorObject.h"
#include "MabERixMinorObject.h"
#include "MabERixObject.h"
#include "MabRixObjectDetailsResponse.h"

namespace
{
std::vector<std::string> Names(const MabERixEntity& iEntity)
{
  std::vector<std::string> Result;
  for (const MabRixProperty& Property : iEntity.GetSetProperties())
    Result.push_back(Property._Name);
  return Result;
}
}  // namespace

TEST(MabERixEntity, GetterOfAPropertyNeverSetFailsAndLeavesTheOutputAlone)
{
  const MabERixObject_var spObject = MabERixObject_var::Adopt(new MabERixObject("Part", "P1"));
  KelUnicodeString Text = "before";
  EXPECT_TRUE(FAILED(spObject->GetCADType(Text)));
  EXPECT_TRUE(FAILED(spObject->GetName(Text)));
  EXPECT_EQ(Text, "before");
  EXPECT_TRUE(spObject->GetSetProperties().empty());
}

TEST(MabERixEntity, AnEmptyTextIsAValueLikeAnyOther)
{
  const MabERixObject_var spObject = MabERixObject_var::Adopt(new MabERixObject("Part", "P1"));
  EXPECT_EQ(spObject->_SetName(""), S_OK);
  KelUnicodeString Text = "before";
  EXPECT_EQ(spObject->GetName(Text), S_OK);
  EXPECT_EQ(Text, "");
}

TEST(MabERixEntity, SetPropertiesAreListedInTheOrderOfFirstSetting)
{
  const MabERixObject_var spObject = MabERixObject_var::Adopt(new MabERixObject("Part", "P1"));
  MabERixMajorObject_var spMajor = MabERixMajorObject_var::Adopt(new MabERixMajorObject(*spObject, "A"));
  spMajor->_SetLockStatus(TRUE);
  spMajor->_SetState("Frozen");
  spMajor->_SetLockStatus(FALSE);  // keeps its place, takes the new value
  spMajor->_SetConnectedFolder(KelUnicodeStringList{"f1", "f2"});
  EXPECT_EQ(Names(*spMajor), (std::vector<std::string>{"LockStatus", "State", "ConnectedFolder"}));
  unsigned char bLocked = 7;
  EXPECT_EQ(spMajor->GetLockStatus(bLocked), S_OK);
  EXPECT_EQ(bLocked, FALSE);
  KelUnicodeStringList Folders;
  EXPECT_EQ(spMajor->GetConnectedFolder(Folders), S_OK);
  EXPECT_EQ(Folders, (KelUnicodeStringList{"f1", "f2"}));
  const MabRixPropertyValue& Value = spMajor->GetSetProperties()[1]._Value;
  ASSERT_TRUE(std::holds_alternative<KelUnicodeString>(Value));
  EXPECT_EQ(std::get<KelUnicodeString>(Value), "Frozen");
}

TEST(MabERixEntity, MinorObjectKeepsTypedPropertiesAndStartsWithThePointerFlagFalse)
{
  MabERixMinorObject_var spMinor =
      MabERixMinorObject_var::Adopt(new MabERixMinorObject(MabRixObjectID("C1"), "Part", "P1", "A", "1"));
  EXPECT_EQ(spMinor->_bPointer, FALSE);
  EXPECT_EQ(spMinor->GetObjectID(), MabRixObjectID("C1"));
  EXPECT_EQ(spMinor->GetKeyType(), "Part");
  EXPECT_EQ(spMinor->GetKeyVersion(), "1");

  MabRixDocumentID DocumentID;
  EXPECT_TRUE(FAILED(spMinor->GetDocumentID(DocumentID)));
  MabRixDocumentIDList List;
  List.Append(MabRixDocumentID::Create("x", "y", "z"));
  EXPECT_TRUE(FAILED(spMinor->GetDocumentIDList(List)));
  EXPECT_EQ(List.Size(), 1);  // untouched

  spMinor->_SetThumbnail(MabRixPath("/t/p.png"));
  spMinor->_SetMinorDocumentID(MabRixDocumentID::Create("Part", "P1", "/d/p.prt"));
  spMinor->_SetAction("lock");
  spMinor->_SetUUIDConflict(TRUE);
  EXPECT_EQ(Names(*spMinor), (std::vector<std::string>{"Thumbnail", "MinorDocumentID", "Action", "UUIDConflict"}));
  EXPECT_EQ(spMinor->GetDocumentID(DocumentID), S_OK);
  EXPECT_EQ(DocumentID, MabRixDocumentID::Create("Part", "P1", "/d/p.prt"));
  EXPECT_EQ(spMinor->GetDocumentIDList(List), S_OK);
  ASSERT_EQ(List.Size(), 1);
  EXPECT_EQ(List[0].GetPath(), MabRixPath("/d/p.prt"));
  MabRixPath Thumbnail;
  EXPECT_EQ(spMinor->GetThumbnail(Thumbnail), S_OK);
  EXPECT_EQ(Thumbnail.GetString(), "/t/p.png");
}

TEST(MabERixEntity, MajorObjectFlagAndTextPropertiesOfTheSameNameAreDistinctOverloads)
{
  const MabERixObject_var spObject = MabERixObject_var::Adopt(new MabERixObject("Part", "P1"));
  MabERixMajorObject_var spMajor = MabERixMajorObject_var::Adopt(new MabERixMajorObject(*spObject, "A"));
  KelUnicodeString Revision = "none";
  EXPECT_TRUE(FAILED(spMajor->GetCurrentMajorRevision(Revision)));  // no context revision
  EXPECT_EQ(Revision, "none");
  spMajor->_SetCurrentMajorRevision(TRUE);
  unsigned char bCurrent = FALSE;
  EXPECT_EQ(spMajor->GetCurrentMajorRevision(bCurrent), S_OK);
  EXPECT_EQ(bCurrent, TRUE);
  EXPECT_TRUE(FAILED(spMajor->GetCurrentMajorRevision(Revision)));
  EXPECT_EQ(spMajor->GetOwnerObject(), spObject.Get());
  EXPECT_EQ(spObject->GetRefCount(), 2u);  // the major object holds its object
}

TEST(MabERixEntity, ClassesAreRegistered)
{
  const MabERixObject_var spObject = MabERixObject_var::Adopt(new MabERixObject("Part", "P1"));
  EXPECT_STREQ(spObject->IsA(), "MabERixObject");
  EXPECT_TRUE(spObject->IsAKindOf("MabERixEntity"));
  EXPECT_TRUE(spObject->IsAKindOf("KelBaseUnknown"));
}

TEST(MabRixObjectDetailsResponse, CannotResolveUUIDConflictsUnlessSet)
{
  MabRixObjectDetailsResponse Response;
  EXPECT_EQ(Response.CanResolveUUIDConflict(), FALSE);
  Response._SetCanResolveUUIDConflict(TRUE);
  EXPECT_EQ(Response.CanResolveUUIDConflict(), TRUE);
}
