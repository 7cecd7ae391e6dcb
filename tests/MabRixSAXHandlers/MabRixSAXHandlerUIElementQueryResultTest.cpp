#include <gtest/gtest.h>

#include "MabRixSAXHandlerUIElementQueryResult.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"
#include "MabRixUIElementQueryResultValue.h"

namespace
{
const char* const CheckFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerUIElementQueryResult";

MabRixTestReading ReadElements(const std::string& iXml, const char* iKind = "Toolbar")
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerUIElementQueryResult>(KelUnicodeString(iKind)));
}

const MabRixUIElementQueryResultValue& ResultOf(const MabRixTestReading& iReading)
{
  static const MabRixUIElementQueryResultValue None;
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixUIElementQueryResultValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixUIElementQueryResultValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? *pValue : None;
}

MabRixSAXHandlerUIElementQueryResult* HandlerOf(const MabRixTestReading& iReading)
{
  return KelImplCast<MabRixSAXHandlerUIElementQueryResult>(iReading.Handler().Get());
}

MabRixUIElementID ID(const char* iKind, const char* iName, unsigned char iIsSystem)
{
  return MabRixUIElementID(iKind, iName, iIsSystem);
}
}  // namespace

TEST(MabRixSAXHandlerUIElementQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadElements(R"(<?xml version="1.0"?>
<uielements>
  <row>
    <name>Design Toolbar</name>
    <issystem>true</issystem>
    <default>CAD Part,CAD Assembly</default>
  </row>
  <row>
    <name>My Drawing Tools</name>
    <issystem>false</issystem>
    <default>CAD Drawing</default>
  </row>
  <row>
    <name>Review</name>
    <issystem>yes</issystem>
    <default>Document,,Markup</default>
  </row>
</uielements>)",
                                                 "Toolbar");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixUIElementQueryResultValue& Result = ResultOf(Reading);
  EXPECT_EQ(Result._UIElementIDs,
            (MabRixUIElementIDList{ID("Toolbar", "Design Toolbar", 1), ID("Toolbar", "My Drawing Tools", 0),
                                   ID("Toolbar", "Review", 1)}));
  ASSERT_EQ(Result._DefaultUIElementIDs.Size(), 5);
  auto It = Result._DefaultUIElementIDs.begin();
  const char* const Keys[] = {"CAD Part", "CAD Assembly", "CAD Drawing", "Document", "Markup"};
  const MabRixUIElementID IDs[] = {ID("Toolbar", "Design Toolbar", 1), ID("Toolbar", "Design Toolbar", 1),
                                   ID("Toolbar", "My Drawing Tools", 0), ID("Toolbar", "Review", 1),
                                   ID("Toolbar", "Review", 1)};
  for (int i = 0; i < 5; ++i, ++It)
  {
    EXPECT_EQ(It.GetKey(), Keys[i]);
    EXPECT_EQ(*It, IDs[i]);
  }
}

TEST(MabRixSAXHandlerUIElementQueryResult, TwoDefaultKeysGiveTwoEntriesWithTheSameID)
{
  const MabRixTestReading Reading = ReadElements("<u><row><name>T</name><default>A,B</default></row></u>", "Menu");
  const MabRixUIElementQueryResultValue& Result = ResultOf(Reading);
  ASSERT_EQ(Result._DefaultUIElementIDs.Size(), 2);
  EXPECT_EQ(Result._DefaultUIElementIDs["A"], ID("Menu", "T", 0));
  EXPECT_EQ(Result._DefaultUIElementIDs["B"], ID("Menu", "T", 0));
}

TEST(MabRixSAXHandlerUIElementQueryResult, EmptyItemBetweenTwoCommasGivesNoEntry)
{
  const MabRixTestReading Reading = ReadElements("<u><row><name>T</name><default>A,,B,</default></row></u>");
  const MabRixUIElementQueryResultValue& Result = ResultOf(Reading);
  EXPECT_EQ(Result._DefaultUIElementIDs.Size(), 2);
  EXPECT_FALSE(Result._DefaultUIElementIDs.HasKey(""));
}

TEST(MabRixSAXHandlerUIElementQueryResult, RowWithoutIssystemAfterASystemRowIsAlsoSystem)
{
  const MabRixTestReading Reading =
      ReadElements("<u><row><name>A</name><issystem>true</issystem></row><row><name>B</name></row></u>");
  EXPECT_EQ(ResultOf(Reading)._UIElementIDs, (MabRixUIElementIDList{ID("Toolbar", "A", 1), ID("Toolbar", "B", 1)}));
}

TEST(MabRixSAXHandlerUIElementQueryResult, SystemFlagIsFalseBeforeTheFirstIssystem)
{
  const MabRixTestReading Reading = ReadElements("<u><row><name>A</name></row></u>");
  EXPECT_EQ(ResultOf(Reading)._UIElementIDs, (MabRixUIElementIDList{ID("Toolbar", "A", 0)}));
}

TEST(MabRixSAXHandlerUIElementQueryResult, RowWithoutNameOrDefaultTakesThePreviousRows)
{
  const MabRixTestReading Reading =
      ReadElements("<u><row><name>A</name><default>K</default></row><row><issystem>true</issystem></row></u>");
  const MabRixUIElementQueryResultValue& Result = ResultOf(Reading);
  EXPECT_EQ(Result._UIElementIDs, (MabRixUIElementIDList{ID("Toolbar", "A", 0), ID("Toolbar", "A", 1)}));
  // The carried key is offered again; the first entry of a key stays.
  ASSERT_EQ(Result._DefaultUIElementIDs.Size(), 1);
  EXPECT_EQ(Result._DefaultUIElementIDs["K"], ID("Toolbar", "A", 0));
}

TEST(MabRixSAXHandlerUIElementQueryResult, EmptyResponseGivesAnEmptyListAndDictionary)
{
  const MabRixTestReading Reading = ReadElements("<u></u>");
  EXPECT_EQ(ResultOf(Reading)._UIElementIDs.Size(), 0);
  EXPECT_EQ(ResultOf(Reading)._DefaultUIElementIDs.Size(), 0);
}

TEST(MabRixSAXHandlerUIElementQueryResult, ValueGoesToTheParentOnceWhenTheOwnElementCloses)
{
  const MabRixTestReading Reading =
      MabRixRead("<r><u><row><name>a</name></row></u><after/></r>",
                 MabRixMake<MabRixSAXHandlerUIElementQueryResult>(KelUnicodeString("k")), "u");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(Reading.Values()[0].Get()->GetImpl(), HandlerOf(Reading)->GetUIElementQueryResultValue());
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST(MabRixSAXHandlerUIElementQueryResult, ChildHandlerIsClearedAtEveryStart)
{
  const MabRixTestReading Reading = ReadElements("<u><row><name>a</name></row></u>");
  EXPECT_TRUE(!!HandlerOf(Reading)->GetChildHandler());
  const MabRixTestReading Later = ReadElements("<u><row><name>a</name><other/></row></u>");
  EXPECT_FALSE(!!HandlerOf(Later)->GetChildHandler());
}

TEST(MabRixSAXHandlerUIElementQueryResult, ValueForAnotherElementIsRefused)
{
  const MabRixTestReading Reading = ReadElements("<u><row/></u>");
  MabRixStringValue* pString = new MabRixStringValue();
  const MabIRixValue_var spString = MabIRixValue_var::Adopt(pString);
  EXPECT_EQ(HandlerOf(Reading)->Value(spString), E_FAIL);
  EXPECT_EQ(ResultOf(Reading)._UIElementIDs, (MabRixUIElementIDList{ID("Toolbar", "", 0)}));
}

TEST(MabRixSAXHandlerUIElementQueryResult, ValueWithoutTheExpectedObjectIsFatal)
{
  MabRixThrowingFatalHandler Fatal;
  const MabRixTestReading Reading = ReadElements("<u><row><name>a</name></row></u>");
  // The current element is "name": a null value has no string behind it.
  try
  {
    (void)HandlerOf(Reading)->Value(MabIRixValue_var());
    FAIL() << "no fatal error";
  }
  catch (const MabRixFatalErrorRaised& Raised)
  {
    EXPECT_STREQ(Raised.what(), "AssertionFailed:pValue");
    EXPECT_EQ(Raised._File, CheckFile);
  }
}

TEST(MabRixSAXHandlerUIElementQueryResult, ValueOfTheWrongClassIsFatal)
{
  MabRixThrowingFatalHandler Fatal;
  const MabRixTestReading Reading = ReadElements("<u><row><default>a</default></row></u>");
  MabRixStringValue* pString = new MabRixStringValue();
  const MabIRixValue_var spString = MabIRixValue_var::Adopt(pString);
  EXPECT_THROW((void)HandlerOf(Reading)->Value(spString), MabRixFatalErrorRaised);
}

TEST(MabRixSAXHandlerUIElementQueryResult, ChildrenAreStringStringListAndBoolean)
{
  const char* const Elements[][2] = {{"name", "MabRixSAXHandlerString"},
                                     {"default", "MabRixSAXHandlerStringList"},
                                     {"issystem", "MabRixSAXHandlerBoolean"}};
  for (const auto& Element : Elements)
  {
    const std::string Xml = std::string("<u><row><") + Element[0] + ">x</" + Element[0] + "></row></u>";
    const MabRixTestReading Reading = ReadElements(Xml);
    ASSERT_TRUE(!!HandlerOf(Reading)->GetChildHandler());
    EXPECT_STREQ(HandlerOf(Reading)->GetChildHandler()->GetImpl()->IsA(), Element[1]);
  }
}
