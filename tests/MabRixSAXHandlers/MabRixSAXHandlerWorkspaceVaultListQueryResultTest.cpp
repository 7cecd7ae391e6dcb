#include <gtest/gtest.h>

#include "MabRixSAXHandlerWorkspaceVaultListQueryResult.h"
#include "MabRixTestSupport.h"
#include "MabRixWorkspaceVaultListQueryResultValue.h"

namespace
{
MabRixTestReading ReadVaults(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerWorkspaceVaultListQueryResult>());
}

const MabRixWorkspaceVaultListQueryResultValue& ResultOf(const MabRixTestReading& iReading)
{
  static const MabRixWorkspaceVaultListQueryResultValue None;
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixWorkspaceVaultListQueryResultValue* pValue =
      iReading.Values().empty() ? nullptr
                                : MabRixValueAs<MabRixWorkspaceVaultListQueryResultValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? *pValue : None;
}

MabRixVaultDetails Vault(const char* iRowID, const char* iName, const char* iOID, const char* iParentID,
                         const char* iType, const char* iRevision)
{
  MabRixVaultDetails Details;
  Details._RowID = iRowID;
  Details._Name = iName;
  Details._OID = iOID;
  Details._ParentID = iParentID;
  Details._Type = iType;
  Details._Revision = iRevision;
  return Details;
}
}  // namespace

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadVaults(R"(<?xml version="1.0" encoding="UTF-8"?>
<vaults>
  <row rowid="1" oid="800.2.7.1" parentid="51233.11.4.101" name="Production" revision="-" type="Vault"/>
  <row rowid="2" oid="800.2.7.2" parentid="51233.11.4.101" name="eService Sample" revision="-" type="Vault"/>
  <row rowid="3" oid="800.2.7.9" parentid="51233.11.4.101" name="Archive 2019" revision="1" type="Archive Vault"/>
</vaults>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixWorkspaceVaultListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._VaultDetails.Size(), 3);
  auto It = Result._VaultDetails.begin();
  EXPECT_EQ(It.GetKey(), "800.2.7.1");
  EXPECT_EQ(*It, Vault("1", "Production", "800.2.7.1", "51233.11.4.101", "Vault", "-"));
  ++It;
  EXPECT_EQ(It.GetKey(), "800.2.7.2");
  EXPECT_EQ(*It, Vault("2", "eService Sample", "800.2.7.2", "51233.11.4.101", "Vault", "-"));
  ++It;
  EXPECT_EQ(It.GetKey(), "800.2.7.9");
  EXPECT_EQ(*It, Vault("3", "Archive 2019", "800.2.7.9", "51233.11.4.101", "Archive Vault", "1"));
  EXPECT_EQ(Result._VaultOIDs, (KelUnicodeStringList{"800.2.7.1", "800.2.7.2", "800.2.7.9"}));
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, SameOidGivesOneDictionaryEntryAndTwoListEntries)
{
  const MabRixTestReading Reading = ReadVaults("<v><row oid='5' name='first'/><row oid='5' name='second'/></v>");
  const MabRixWorkspaceVaultListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._VaultDetails.Size(), 1);
  EXPECT_EQ(Result._VaultDetails["5"]._Name, "first");
  EXPECT_EQ(Result._VaultOIDs, (KelUnicodeStringList{"5", "5"}));
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, RowWithoutOidIsStoredUnderTheEmptyKeyOnceAndListedEachTime)
{
  const MabRixTestReading Reading = ReadVaults("<v><row name='a'/><row oid='1'/><row name='b'/></v>");
  const MabRixWorkspaceVaultListQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._VaultDetails.Size(), 2);
  EXPECT_EQ(Result._VaultDetails[""], Vault("", "a", "", "", "", ""));
  EXPECT_EQ(Result._VaultOIDs, (KelUnicodeStringList{"", "1", ""}));
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, RowContentIsIgnored)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadVaults("<v><row oid='1' parentid='p'>text<parentid>q</parentid></row></v>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixWorkspaceVaultListQueryResultValue& Result = ResultOf(Reading);
  EXPECT_EQ(Result._VaultDetails["1"], Vault("", "", "1", "p", "", ""));
  EXPECT_EQ(Result._VaultOIDs, (KelUnicodeStringList{"1"}));
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, NothingIsCarriedFromOneRowToTheNext)
{
  const MabRixTestReading Reading =
      ReadVaults("<v><row rowid='1' oid='1' parentid='p' name='n' revision='r' type='t'/><row oid='2'/></v>");
  EXPECT_EQ(ResultOf(Reading)._VaultDetails["2"], Vault("", "", "2", "", "", ""));
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, EmptyListGivesEmptyResult)
{
  const MabRixTestReading Reading = ReadVaults("<v></v>");
  EXPECT_EQ(ResultOf(Reading)._VaultDetails.Size(), 0);
  EXPECT_EQ(ResultOf(Reading)._VaultOIDs.Size(), 0);
}

TEST(MabRixSAXHandlerWorkspaceVaultListQueryResult, RegisteredUnderItsOwnClassName)
{
  const MabRixTestReading Reading = ReadVaults("<v/>");
  EXPECT_STREQ(Reading.Handler()->GetImpl()->IsA(), "MabRixSAXHandlerWorkspaceVaultListQueryResult");
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixWorkspaceVaultListQueryResultValue");
}
