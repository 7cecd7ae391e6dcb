#include <gtest/gtest.h>

#include "MabRixSAXHandlerStringList.h"
#include "MabRixStringListValue.h"
#include "MabRixStringUtils.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerStringList";

MabRixStrings ItemsOf(const MabIRixValue_var& iValue)
{
  MabRixStringListValue* pValue = MabRixValueAs<MabRixStringListValue>(iValue);
  EXPECT_NE(pValue, nullptr);
  return pValue ? MabRixTexts(pValue->_Value) : MabRixStrings{"<not a list value>"};
}
}  // namespace

TEST(MabRixSAXHandlerStringList, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerStringList* pHandler = new MabRixSAXHandlerStringList(Tree.Root(), ",");
  MabRixExpectRegistered<MabRixSAXHandlerStringList>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerStringList(*pHandler), static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerStringList, CutsTheTextAtEverySeparatorAndHandsUpTheOnlyReference)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead("<l>a;b;c</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(";")));
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringListValue");
  EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"a", "b", "c"}));
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerStringList, EmptyElementGivesTheSplitOfTheEmptyText)
{
  MabRixTestReading Reading = MabRixRead("<l/>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(";")));
  ASSERT_EQ(Reading.Values().size(), 1u);
  MabRixStringListValue* pValue = MabRixValueAs<MabRixStringListValue>(Reading.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(pValue->_Value, MabRixStringUtils::GetList("", ";"));
  EXPECT_EQ(pValue->_Value.Size(), 0);
}

TEST(MabRixSAXHandlerStringList, SeparatorCutAcrossTwoTextPiecesIsStillFound)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerStringList(Tree.Root(), "::"));
  MabRixTestReporter Reporter;
  ASSERT_EQ(spHandler->StartHandlingEvents("l", nullptr), S_OK);
  EXPECT_EQ(spHandler->Characters("a:"), S_OK);
  EXPECT_EQ(spHandler->Characters(":b"), S_OK);
  EXPECT_EQ(spHandler->EndElement("l"), S_OK);
  ASSERT_EQ(Tree.Values().size(), 1u);
  EXPECT_EQ(ItemsOf(Tree.Values()[0]), (MabRixStrings{"a", "b"}));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerStringList, TextFedByteByByteIsCutOnce)
{
  MabRixTestReading Reading =
      MabRixRead("<l>one::two::three</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString("::")), "", 1);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"one", "two", "three"}));
}

TEST(MabRixSAXHandlerStringList, WhiteSpaceAroundPiecesIsKept)
{
  MabRixTestReading Reading =
      MabRixRead("<l> a , b\n, c </l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(",")));
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{" a ", " b\n", " c "}));
}

TEST(MabRixSAXHandlerStringList, NestedElementFailsAfterReportingFalse)
{
  const MabRixStrings Texts{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"};
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    MabRixTestReading Reading =
        MabRixRead("<l>a,<x/>b</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(",")));
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_EQ(Reading._spParser->GetCallbackFailures().size(), 2u);
    EXPECT_STREQ(Reading._spParser->GetCallbackFailures()[0]._Event, "StartElement");
    EXPECT_STREQ(Reading._spParser->GetCallbackFailures()[1]._Event, "EndElement");
    EXPECT_EQ(Reporter.Texts(), Texts);
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_EQ(Reading.Values().size(), 1u);
    EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"a", "b"}));
  }
  {
    // Going on, the nested end delivers what was read so far.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    MabRixTestReading Reading =
        MabRixRead("<l>a,<x/>b</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(",")));
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_EQ(Reading._spParser->GetCallbackFailures().size(), 1u);
    EXPECT_EQ(Reporter.Texts(), Texts);
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_EQ(Reading.Values().size(), 2u);
    EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"a", ""}));
    EXPECT_EQ(ItemsOf(Reading.Values()[1]), (MabRixStrings{"a", "b"}));
  }
}

TEST(MabRixSAXHandlerStringList, EndOfNestedElementOfTheSameNameStopsOrDeliversEarly)
{
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    MabRixTestReading Reading =
        MabRixRead("<l>a,<l>b</l>,c</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(",")));
    EXPECT_EQ(Reporter.Count("ExpressionCheck:this->StopIfNecessary(iName)"), 1);
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_EQ(Reading.Values().size(), 1u);
    EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"a", "b", "c"}));
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    MabRixTestReading Reading =
        MabRixRead("<l>a,<l>b</l>,c</l>", MabRixMake<MabRixSAXHandlerStringList>(KelUnicodeString(",")));
    EXPECT_EQ(Reporter.Count("ExpressionCheck:this->StopIfNecessary(iName)"), 1);
    ASSERT_EQ(Reading.Values().size(), 2u);
    EXPECT_EQ(ItemsOf(Reading.Values()[0]), (MabRixStrings{"a", "b"}));
    EXPECT_EQ(ItemsOf(Reading.Values()[1]), (MabRixStrings{"a", "b", "c"}));
  }
}
