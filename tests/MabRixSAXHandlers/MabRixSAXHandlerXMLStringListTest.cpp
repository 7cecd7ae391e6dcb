#include <gtest/gtest.h>

#include "MabRixSAXHandlerXMLStringList.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerXMLStringList";

MabRixHandlerFactory ListOf(const char* iItem)
{
  return MabRixMake<MabRixSAXHandlerXMLStringList>(KelUnicodeString(iItem));
}

MabRixStrings ItemsOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringListValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringListValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? MabRixTexts(pValue->_Value) : MabRixStrings{"<no list value>"};
}
}  // namespace

TEST(MabRixSAXHandlerXMLStringList, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerXMLStringList* pHandler = new MabRixSAXHandlerXMLStringList(Tree.Root(), "item");
  MabRixExpectRegistered<MabRixSAXHandlerXMLStringList>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerXMLStringList(*pHandler),
            static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerXMLStringList, ReadsTheItemTextsInDocumentOrder)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading =
      MabRixRead("<list><item>a</item><item> b </item><item/><item>a</item></list>", ListOf("item"));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(ItemsOf(Reading), (MabRixStrings{"a", " b ", "", "a"}));
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringListValue");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 0);
}

TEST(MabRixSAXHandlerXMLStringList, EmptyItemNameFailsEveryStartElement)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead("<list><item>a</item><other/><item>b</item></list>", ListOf(""));
  EXPECT_EQ(Reading._Result, E_FAIL);
  const std::vector<KelSAXCallbackFailure>& Failures = Reading._spParser->GetCallbackFailures();
  ASSERT_EQ(Failures.size(), 3u);
  for (const KelSAXCallbackFailure& Failure : Failures)
  {
    EXPECT_STREQ(Failure._Event, "StartElement");
    EXPECT_EQ(Failure._Result, E_FAIL);
  }
  EXPECT_TRUE(Reporter.Reports().empty());
  // Nothing was read, but the list still closes and hands up its value.
  EXPECT_EQ(ItemsOf(Reading), MabRixStrings{});
}

TEST(MabRixSAXHandlerXMLStringList, OtherElementsAreIgnoredWithTheirTextAndTheirEndsSucceed)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead(
      "<list>lead<item>a</item><other>zzz<deeper>y</deeper></other><item>b</item>tail</list>", ListOf("item"));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reading._spParser->GetCallbackFailures().empty());
  EXPECT_EQ(ItemsOf(Reading), (MabRixStrings{"a", "b"}));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerXMLStringList, EmptyListHandsUpAnEmptyValue)
{
  MabRixTestReading Reading = MabRixRead("<list/>", ListOf("item"));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(ItemsOf(Reading), MabRixStrings{});
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerXMLStringList, ValueOutsideAnItemFails)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler =
      MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringList(Tree.Root(), "item"));
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(new MabRixStringValue());
  EXPECT_EQ(spHandler->Value(spValue), E_FAIL);
}
