#include <gtest/gtest.h>

#include "MabRixBooleanValue.h"
#include "MabRixSAXHandlerTemplateListQueryResult.h"
#include "MabRixStringValue.h"
#include "MabRixTemplateQueryResultValue.h"
#include "MabRixTestSupport.h"

namespace
{
const char* const CheckFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerTemplateListQueryResult";

MabRixTestReading ReadTemplates(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerTemplateListQueryResult>());
}

const MabRixTemplateDetailsKelUnicodeStringDico& TemplatesOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixTemplateQueryResultValue* pValue = MabRixValueAs<MabRixTemplateQueryResultValue>(iReading.Values().at(0));
  EXPECT_NE(pValue, nullptr);
  return pValue->_Value;
}

MabRixSAXHandlerTemplateListQueryResult* HandlerOf(const MabRixTestReading& iReading)
{
  return KelImplCast<MabRixSAXHandlerTemplateListQueryResult>(iReading.Handler().Get());
}

MabRixTemplateDetails Template(const char* iName, const char* iOID, const char* iType, const char* iRevision,
                               const char* iFileName, const char* iFormat)
{
  MabRixTemplateDetails Details;
  Details._Name = iName;
  Details._OID = iOID;
  Details._Type = iType;
  Details._Revision = iRevision;
  Details._FileName = iFileName;
  Details._Format = iFormat;
  return Details;
}
}  // namespace

TEST(MabRixSAXHandlerTemplateListQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadTemplates(R"(<?xml version="1.0"?>
<templates>
  <row name="Bracket part" type="CAD Part" revision="A" oid="21345.5001.12.7">
    <filename>bracket_template.prt</filename>
    <format>prt</format>
  </row>
  <row name="Drawing A3" type="CAD Drawing" revision="B" oid="21345.5001.12.9">
    <filename>a3 frame.drw</filename>
    <format>drw</format>
  </row>
  <row name="Assembly" type="CAD Assembly" revision="1" oid="21345.5001.13.1">
    <filename>asm_start.asm</filename>
    <format>asm</format>
  </row>
</templates>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixTemplateDetailsKelUnicodeStringDico& Templates = TemplatesOf(Reading);
  ASSERT_EQ(Templates.Size(), 3);
  auto It = Templates.begin();
  EXPECT_EQ(It.GetKey(), "21345.5001.12.7");
  EXPECT_EQ(*It, Template("Bracket part", "21345.5001.12.7", "CAD Part", "A", "bracket_template.prt", "prt"));
  ++It;
  EXPECT_EQ(It.GetKey(), "21345.5001.12.9");
  EXPECT_EQ(*It, Template("Drawing A3", "21345.5001.12.9", "CAD Drawing", "B", "a3 frame.drw", "drw"));
  ++It;
  EXPECT_EQ(It.GetKey(), "21345.5001.13.1");
  EXPECT_EQ(*It, Template("Assembly", "21345.5001.13.1", "CAD Assembly", "1", "asm_start.asm", "asm"));
}

TEST(MabRixSAXHandlerTemplateListQueryResult, ValueGoesToTheParentOnceWhenTheOwnElementCloses)
{
  const MabRixTestReading Reading = MabRixRead("<doc><templates><row oid='1'/></templates><after/></doc>",
                                               MabRixMake<MabRixSAXHandlerTemplateListQueryResult>(), "templates");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(Reading.Values()[0].Get()->GetImpl(), HandlerOf(Reading)->GetTemplateQueryResultValue());
  // The parser came back to the root: it saw <after/> and the end of <doc>.
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST(MabRixSAXHandlerTemplateListQueryResult, RowWithFormatButNoFilenameCarriesTheEarlierFileName)
{
  const MabRixTestReading Reading = ReadTemplates(
      "<t><row oid='1'><filename>first.prt</filename><format>prt</format></row>"
      "<row oid='2'><format>drw</format></row></t>");
  const MabRixTemplateDetailsKelUnicodeStringDico& Templates = TemplatesOf(Reading);
  ASSERT_EQ(Templates.Size(), 2);
  EXPECT_EQ(Templates["2"]._FileName, "first.prt");
  EXPECT_EQ(Templates["2"]._Format, "drw");
}

TEST(MabRixSAXHandlerTemplateListQueryResult, RowWithoutFormatCarriesTheEarlierFormat)
{
  const MabRixTestReading Reading =
      ReadTemplates("<t><row oid='1'><filename>a</filename><format>prt</format></row><row oid='2'/></t>");
  const MabRixTemplateDetailsKelUnicodeStringDico& Templates = TemplatesOf(Reading);
  EXPECT_EQ(Templates["2"], Template("", "2", "", "", "a", "prt"));
}

TEST(MabRixSAXHandlerTemplateListQueryResult, TwoRowsWithTheSameOidKeepTheFirst)
{
  const MabRixTestReading Reading = ReadTemplates(
      "<t><row name='first' oid='7'><filename>1.prt</filename></row>"
      "<row name='second' oid='7'><filename>2.prt</filename></row></t>");
  const MabRixTemplateDetailsKelUnicodeStringDico& Templates = TemplatesOf(Reading);
  ASSERT_EQ(Templates.Size(), 1);
  EXPECT_EQ(Templates["7"]._Name, "first");
  EXPECT_EQ(Templates["7"]._FileName, "1.prt");
}

TEST(MabRixSAXHandlerTemplateListQueryResult, RowWithoutOidIsStoredUnderTheEmptyKeyOnce)
{
  const MabRixTestReading Reading =
      ReadTemplates("<t><row name='one'/><row name='two'/><row name='three' oid='3'/></t>");
  const MabRixTemplateDetailsKelUnicodeStringDico& Templates = TemplatesOf(Reading);
  ASSERT_EQ(Templates.Size(), 2);
  ASSERT_TRUE(Templates.HasKey(""));
  EXPECT_EQ(Templates[""]._Name, "one");
  EXPECT_EQ(Templates["3"]._Name, "three");
}

TEST(MabRixSAXHandlerTemplateListQueryResult, EmptyListGivesAnEmptyDictionary)
{
  const MabRixTestReading Reading = ReadTemplates("<templates></templates>");
  EXPECT_EQ(TemplatesOf(Reading).Size(), 0);
}

TEST(MabRixSAXHandlerTemplateListQueryResult, MissingAttributeGivesAnEmptyField)
{
  const MabRixTestReading Reading = ReadTemplates("<t><row name='n' oid='o'/></t>");
  // "type" and "revision" are absent: they stay empty and do not repeat "name".
  EXPECT_EQ(TemplatesOf(Reading)["o"], Template("n", "o", "", "", "", ""));
}

TEST(MabRixSAXHandlerTemplateListQueryResult, AttributesAreRewrittenAtEveryRowStart)
{
  const MabRixTestReading Reading = ReadTemplates("<t><row name='n' type='T' revision='R' oid='1'/><row oid='2'/></t>");
  EXPECT_EQ(TemplatesOf(Reading)["2"], Template("", "2", "", "", "", ""));
}

TEST(MabRixSAXHandlerTemplateListQueryResult, OtherElementsAreIgnored)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading =
      ReadTemplates("<t><row oid='1'><comment>x</comment><filename>f</filename></row><extra a='b'/></t>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_EQ(TemplatesOf(Reading)["1"]._FileName, "f");
}

TEST(MabRixSAXHandlerTemplateListQueryResult, NullValueFailsTheCheckAndStops)
{
  const MabRixTestReading Reading = ReadTemplates("<t/>");
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var()), E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:!!iValue");
  EXPECT_EQ(Reporter.Reports()[0]._File, CheckFile);
}

TEST(MabRixSAXHandlerTemplateListQueryResult, ValueOfAnotherClassIsRefused)
{
  const MabRixTestReading Reading = ReadTemplates("<t><row oid='1'><format>x</format></row></t>");
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabIRixValue_var spBoolean = MabIRixValue_var::Adopt(new MabRixBooleanValue());
  EXPECT_EQ(HandlerOf(Reading)->Value(spBoolean), E_FAIL);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerTemplateListQueryResult, StringValueForAnotherElementIsRefused)
{
  const MabRixTestReading Reading = ReadTemplates("<t><row oid='1'/></t>");
  MabRixStringValue* pString = new MabRixStringValue();
  pString->_Value = "stray";
  const MabIRixValue_var spString = MabIRixValue_var::Adopt(pString);
  // The last element started was "row".
  EXPECT_EQ(HandlerOf(Reading)->Value(spString), E_FAIL);
}

TEST(MabRixSAXHandlerTemplateListQueryResult, NestedElementInsideFilenameFailsOnlyThatChild)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  const MabRixTestReading Reading =
      ReadTemplates("<t><row oid='1'><filename>a<b/>c</filename><format>f</format></row></t>");
  // The String child refuses the nested element; the row is still read.
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(Reporter.Count("ExpressionCheck:FALSE"), 1);
  EXPECT_EQ(TemplatesOf(Reading)["1"]._Format, "f");
}

TEST(MabRixSAXHandlerTemplateListQueryResult, RegisteredUnderItsOwnClassName)
{
  const MabRixTestReading Reading = ReadTemplates("<t/>");
  const MabIRixSAXHandler_var spHandler = Reading.Handler();
  EXPECT_STREQ(spHandler->GetImpl()->IsA(), "MabRixSAXHandlerTemplateListQueryResult");
  EXPECT_TRUE(spHandler->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
  EXPECT_STREQ(MabRixSAXHandlerTemplateListQueryResult::MetaObject()->_Framework, "MabRixCommandModel");
}
