#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerXMLStringListMap.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerXMLStringListMap";
const char* const NotAnAttribute = "ExpressionCheck:!!iValue && MabIRixValue_Type == \"MabRixAttributeValue\"";
const char* const NotAList = "ExpressionCheck:MabIRixValue_Type == \"MabRixStringListValue\"";

MabRixHandlerFactory ListMap(const char* iSeparator)
{
  return MabRixMake<MabRixSAXHandlerXMLStringListMap>(KelUnicodeString(iSeparator));
}

const MabRixStringListMapValue* ListMapOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringListMapValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringListMapValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue;
}

std::string Attribute(const char* iName, const char* iValue)
{
  return std::string("<attribute><name>") + iName + "</name><value>" + iValue + "</value></attribute>";
}
}  // namespace

TEST(MabRixSAXHandlerXMLStringListMap, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerXMLStringListMap* pHandler = new MabRixSAXHandlerXMLStringListMap(Tree.Root(), ",");
  MabRixExpectRegistered<MabRixSAXHandlerXMLStringListMap>(*pHandler, Class,
                                                           {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerXMLStringListMap(*pHandler),
            static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerXMLStringListMap, ReadsEachAttributeValueCutIntoAList)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading =
      MabRixRead("<m>" + Attribute("a", "1|2| 3") + Attribute("b", "") + Attribute("c", "x,y") + "</m>", ListMap("|"));
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixStringListMapValue* pValue = ListMapOf(Reading);
  ASSERT_NE(pValue, nullptr);
  ASSERT_EQ(pValue->_Value.Size(), 3);
  EXPECT_EQ(MabRixTexts(pValue->_Value["a"]), (MabRixStrings{"1", "2", " 3"}));
  EXPECT_EQ(MabRixTexts(pValue->_Value["b"]), MabRixStrings{});
  EXPECT_EQ(MabRixTexts(pValue->_Value["c"]), (MabRixStrings{"x,y"}));
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringListMapValue");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerXMLStringListMap, UnknownElementInsideFailsAtItsEnd)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead("<m><x>t</x>" + Attribute("a", "1") + "</m>", ListMap(","));
  EXPECT_EQ(Reading._Result, E_FAIL);
  const std::vector<KelSAXCallbackFailure>& Failures = Reading._spParser->GetCallbackFailures();
  ASSERT_EQ(Failures.size(), 1u);
  EXPECT_STREQ(Failures[0]._Event, "EndElement");
  EXPECT_EQ(Failures[0]._Element, "x");
  EXPECT_TRUE(Reporter.Reports().empty());
  // The rest is read as usual.
  const MabRixStringListMapValue* pValue = ListMapOf(Reading);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(MabRixTexts(pValue->_Value["a"]), (MabRixStrings{"1"}));
}

TEST(MabRixSAXHandlerXMLStringListMap, EmptyMapHandsUpAnEmptyValue)
{
  MabRixTestReading Reading = MabRixRead("<m></m>", ListMap(","));
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixStringListMapValue* pValue = ListMapOf(Reading);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(pValue->_Value.Size(), 0);
}

TEST(MabRixSAXHandlerXMLStringListMap, ValueThatIsNotAnAttributeFails)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler =
      MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringListMap(Tree.Root(), ","));
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(spHandler->Value(MabIRixValue_var::Adopt(new MabRixStringListValue())), E_FAIL);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAnAttribute}));
    MabRixExpectReportsFrom(Reporter, Class);
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    EXPECT_EQ(spHandler->Value(nullptr), E_FAIL);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAnAttribute, "ExpressionCheck:pValue"}));
  }
}

TEST(MabRixSAXHandlerXMLStringListMap, AttributeHoldingAnotherKindFailsWhenStopped)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestTree Tree;
    MabIRixSAXHandler_var spHandler =
        MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringListMap(Tree.Root(), ","));
    MabRixAttributeValue* pAttribute = new MabRixAttributeValue();
    pAttribute->_Name = "a";
    pAttribute->_Value = MabIRixValue_var::Adopt(new MabRixStringValue());
    const MabIRixValue_var spAttribute = MabIRixValue_var::Adopt(pAttribute);
    MabRixTestReporter Reporter(Answer);
    // Going on, the entry is still skipped: there is no list behind it.
    EXPECT_EQ(spHandler->Value(spAttribute), Answer == MabRixTestReporter::Stop ? E_FAIL : S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAList}));
    MabRixExpectReportsFrom(Reporter, Class);
  }
}
