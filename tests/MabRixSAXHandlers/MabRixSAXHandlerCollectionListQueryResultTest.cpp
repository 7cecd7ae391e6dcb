#include <gtest/gtest.h>

#include "MabRixBooleanValue.h"
#include "MabRixSAXHandlerCollectionListQueryResult.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

namespace
{
const char* const CheckFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerCollectionListQueryResult";

MabRixTestReading ReadCollections(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerCollectionListQueryResult>());
}

const KelUnicodeStringKelUnicodeStringDico& CollectionsOf(const MabRixTestReading& iReading)
{
  static const KelUnicodeStringKelUnicodeStringDico None;
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringMapValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringMapValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? pValue->_Value : None;
}

MabRixSAXHandlerCollectionListQueryResult* HandlerOf(const MabRixTestReading& iReading)
{
  return KelImplCast<MabRixSAXHandlerCollectionListQueryResult>(iReading.Handler().Get());
}

MabIRixValue_var StringValue(const char* iText)
{
  MabRixStringValue* pString = new MabRixStringValue();
  pString->_Value = iText;
  return MabIRixValue_var::Adopt(pString);
}
}  // namespace

TEST(MabRixSAXHandlerCollectionListQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadCollections(R"(<?xml version="1.0"?>
<collections>
  <row id="1">
    <name>Released parts</name>
    <description>Every part released in the last quarter</description>
  </row>
  <row id="2">
    <description> Parts under review </description>
    <name>Review</name>
  </row>
  <row id="3">
    <name>Empty</name>
    <description></description>
  </row>
</collections>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 3);
  auto It = Collections.begin();
  EXPECT_EQ(It.GetKey(), "Released parts");
  EXPECT_EQ(*It, "Every part released in the last quarter");
  ++It;
  EXPECT_EQ(It.GetKey(), "Review");
  EXPECT_EQ(*It, " Parts under review ");
  ++It;
  EXPECT_EQ(It.GetKey(), "Empty");
  EXPECT_EQ(*It, "");
}

TEST(MabRixSAXHandlerCollectionListQueryResult, ValueGoesToTheParentOnceWhenTheOwnElementCloses)
{
  const MabRixTestReading Reading = MabRixRead("<doc><c><row><name>a</name></row></c><next/></doc>",
                                               MabRixMake<MabRixSAXHandlerCollectionListQueryResult>(), "c");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(Reading.Values()[0].Get()->GetImpl(), HandlerOf(Reading)->GetCollectionListValue());
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST(MabRixSAXHandlerCollectionListQueryResult, TwoRowsWithTheSameNameKeepTheFirstDescription)
{
  const MabRixTestReading Reading = ReadCollections(
      "<c><row><name>A</name><description>first</description></row>"
      "<row><name>A</name><description>second</description></row></c>");
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  EXPECT_EQ(Collections["A"], "first");
}

TEST(MabRixSAXHandlerCollectionListQueryResult, RowWithoutNameAddsNothingAndItsDescriptionDoesNotLeak)
{
  const MabRixTestReading Reading =
      ReadCollections("<c><row><description>orphan</description></row><row><name>B</name></row></c>");
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  EXPECT_EQ(Collections["B"], "");
}

TEST(MabRixSAXHandlerCollectionListQueryResult, RowWithAnEmptyNameAddsNothing)
{
  const MabRixTestReading Reading = ReadCollections("<c><row><name></name><description>d</description></row></c>");
  EXPECT_EQ(CollectionsOf(Reading).Size(), 0);
}

TEST(MabRixSAXHandlerCollectionListQueryResult, RowWithNameAndNoDescriptionAddsAnEmptyDescription)
{
  const MabRixTestReading Reading = ReadCollections("<c><row><name>Solo</name></row></c>");
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  ASSERT_TRUE(Collections.HasKey("Solo"));
  EXPECT_EQ(Collections["Solo"], "");
}

TEST(MabRixSAXHandlerCollectionListQueryResult, ResponseWithNoRowsGivesAnEmptyMap)
{
  const MabRixTestReading Reading = ReadCollections("<collections></collections>");
  EXPECT_EQ(CollectionsOf(Reading).Size(), 0);
}

TEST(MabRixSAXHandlerCollectionListQueryResult, NameOutsideAnyRowJoinsTheNextRow)
{
  const MabRixTestReading Reading = ReadCollections("<c><name>Stray</name><row><description>d</description></row></c>");
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  EXPECT_EQ(Collections["Stray"], "d");
}

TEST(MabRixSAXHandlerCollectionListQueryResult, NameAfterTheLastRowIsNeverCommitted)
{
  const MabRixTestReading Reading = ReadCollections("<c><row><name>A</name></row><name>Late</name></c>");
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  EXPECT_TRUE(Collections.HasKey("A"));
}

TEST(MabRixSAXHandlerCollectionListQueryResult, OtherElementsAreIgnored)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading =
      ReadCollections("<c><row name='attr'><owner>x</owner><name>N</name></row><total>1</total></c>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const KelUnicodeStringKelUnicodeStringDico& Collections = CollectionsOf(Reading);
  ASSERT_EQ(Collections.Size(), 1);
  EXPECT_TRUE(Collections.HasKey("N"));
}

TEST(MabRixSAXHandlerCollectionListQueryResult, NullValueFailsTheCheck)
{
  const MabRixTestReading Reading = ReadCollections("<c/>");
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var()), E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:!!iValue");
  EXPECT_EQ(Reporter.Reports()[0]._File, CheckFile);
}

TEST(MabRixSAXHandlerCollectionListQueryResult, ValueOfAnotherClassOrForAnotherElementIsRefused)
{
  const MabRixTestReading Reading = ReadCollections("<c><row><name>A</name><other/></row></c>");
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixSAXHandlerCollectionListQueryResult* pHandler = HandlerOf(Reading);
  EXPECT_EQ(pHandler->Value(MabIRixValue_var::Adopt(new MabRixBooleanValue())), E_FAIL);
  // The last element this handler started is "other".
  EXPECT_EQ(pHandler->Value(StringValue("x")), E_FAIL);
  EXPECT_TRUE(Reporter.Reports().empty());
}
