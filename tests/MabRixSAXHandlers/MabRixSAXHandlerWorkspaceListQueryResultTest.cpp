#include <gtest/gtest.h>

#include "MabRixSAXHandlerWorkspaceListQueryResult.h"
#include "MabRixTestSupport.h"
#include "MabRixWorkspaceListQueryResultValue.h"

namespace
{
MabRixTestReading ReadWorkspaces(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerWorkspaceListQueryResult>());
}

const MabRixWorkspaceListQueryResultValue& ResultOf(const MabRixTestReading& iReading)
{
  static const MabRixWorkspaceListQueryResultValue None;
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixWorkspaceListQueryResultValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixWorkspaceListQueryResultValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? *pValue : None;
}

MabRixWorkspaceDetails Workspace(const char* iRowID, const char* iName, const char* iOID, const char* iType,
                                 const char* iRevision)
{
  MabRixWorkspaceDetails Details;
  Details._RowID = iRowID;
  Details._Name = iName;
  Details._OID = iOID;
  Details._Type = iType;
  Details._Revision = iRevision;
  return Details;
}
}  // namespace

TEST(MabRixSAXHandlerWorkspaceListQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadWorkspaces(R"(<?xml version="1.0" encoding="UTF-8"?>
<workspaces>
  <row rowid="1" oid="51233.11.4.100" name="Default" revision="-" type="Workspace"/>
  <row rowid="2" oid="51233.11.4.101" name="Bike frame" revision="A" type="Workspace"/>
  <row rowid="3" oid="51233.11.4.102" name="Gearbox redesign" revision="B" type="Project Space"/>
</workspaces>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixWorkspaceListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._WorkspaceDetails.Size(), 3);
  auto It = Result._WorkspaceDetails.begin();
  EXPECT_EQ(It.GetKey(), "51233.11.4.100");
  EXPECT_EQ(*It, Workspace("1", "Default", "51233.11.4.100", "Workspace", "-"));
  ++It;
  EXPECT_EQ(It.GetKey(), "51233.11.4.101");
  EXPECT_EQ(*It, Workspace("2", "Bike frame", "51233.11.4.101", "Workspace", "A"));
  ++It;
  EXPECT_EQ(It.GetKey(), "51233.11.4.102");
  EXPECT_EQ(*It, Workspace("3", "Gearbox redesign", "51233.11.4.102", "Project Space", "B"));
  ASSERT_EQ(Result._WorkspaceOIDs.Size(), 3);
  EXPECT_EQ(Result._WorkspaceOIDs["Default"], "51233.11.4.100");
  EXPECT_EQ(Result._WorkspaceOIDs["Bike frame"], "51233.11.4.101");
  EXPECT_EQ(Result._WorkspaceOIDs["Gearbox redesign"], "51233.11.4.102");
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, SameNameWithAnotherOidStoresBothAndMapsTheNameToTheFirst)
{
  const MabRixTestReading Reading =
      ReadWorkspaces("<w><row oid='10' name='Main' type='first'/><row oid='20' name='Main' type='second'/></w>");
  const MabRixWorkspaceListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._WorkspaceDetails.Size(), 2);
  EXPECT_EQ(Result._WorkspaceDetails["10"]._Type, "first");
  EXPECT_EQ(Result._WorkspaceDetails["20"]._Type, "second");
  ASSERT_EQ(Result._WorkspaceOIDs.Size(), 1);
  EXPECT_EQ(Result._WorkspaceOIDs["Main"], "10");
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, SameOidKeepsTheFirstDetails)
{
  const MabRixTestReading Reading = ReadWorkspaces("<w><row oid='10' name='A'/><row oid='10' name='B'/></w>");
  const MabRixWorkspaceListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._WorkspaceDetails.Size(), 1);
  EXPECT_EQ(Result._WorkspaceDetails["10"]._Name, "A");
  // Each name is still mapped, both to the same OID.
  EXPECT_EQ(Result._WorkspaceOIDs["A"], "10");
  EXPECT_EQ(Result._WorkspaceOIDs["B"], "10");
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, RowWithoutOidIsStoredUnderTheEmptyKeyOnce)
{
  const MabRixTestReading Reading = ReadWorkspaces("<w><row name='A'/><row name='B'/></w>");
  const MabRixWorkspaceListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._WorkspaceDetails.Size(), 1);
  EXPECT_EQ(Result._WorkspaceDetails[""], Workspace("", "A", "", "", ""));
  EXPECT_EQ(Result._WorkspaceOIDs["B"], "");
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, RowContentIsIgnored)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading =
      ReadWorkspaces("<w><row oid='1' name='A'>some text<name>Other</name><oid>2</oid></row></w>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixWorkspaceListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._WorkspaceDetails.Size(), 1);
  EXPECT_EQ(Result._WorkspaceDetails["1"], Workspace("", "A", "1", "", ""));
  EXPECT_EQ(Result._WorkspaceOIDs.Size(), 1);
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, NothingIsCarriedFromOneRowToTheNext)
{
  const MabRixTestReading Reading =
      ReadWorkspaces("<w><row rowid='1' oid='1' name='A' revision='R' type='T'/><row oid='2'/></w>");
  EXPECT_EQ(ResultOf(Reading)._WorkspaceDetails["2"], Workspace("", "", "2", "", ""));
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, EmptyListGivesEmptyDictionaries)
{
  const MabRixTestReading Reading = ReadWorkspaces("<w/>");
  EXPECT_EQ(ResultOf(Reading)._WorkspaceDetails.Size(), 0);
  EXPECT_EQ(ResultOf(Reading)._WorkspaceOIDs.Size(), 0);
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, NestedElementOfTheOwnNameDoesNotCloseItEarly)
{
  const MabRixTestReading Reading = ReadWorkspaces("<w><w/><row oid='1'/></w>");
  EXPECT_EQ(ResultOf(Reading)._WorkspaceDetails.Size(), 1);
}

TEST(MabRixSAXHandlerWorkspaceListQueryResult, RegisteredUnderItsOwnClassName)
{
  const MabRixTestReading Reading = ReadWorkspaces("<w/>");
  EXPECT_STREQ(Reading.Handler()->GetImpl()->IsA(), "MabRixSAXHandlerWorkspaceListQueryResult");
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixWorkspaceListQueryResultValue");
}
