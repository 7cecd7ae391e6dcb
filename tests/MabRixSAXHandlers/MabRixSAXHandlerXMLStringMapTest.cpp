#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerXMLStringMap.h"
#include "MabRixStringListValue.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerXMLStringMap";
const char* const NotAnAttribute = "ExpressionCheck:!!iValue && MabIRixValue_Type == \"MabRixAttributeValue\"";
const char* const NotAString = "ExpressionCheck:MabIRixValue_Type == \"MabRixStringValue\"";

MabRixHandlerFactory AttributeMode() { return MabRixMake<MabRixSAXHandlerXMLStringMap>(); }

MabRixHandlerFactory KeyValueMode(const char* iKey, const char* iValue)
{
  return MabRixMake<MabRixSAXHandlerXMLStringMap>(KelUnicodeString(iKey), KelUnicodeString(iValue));
}

MabRixPairs EntriesOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringMapValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringMapValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? MabRixEntries(pValue->_Value) : MabRixPairs{{"<no map value>", ""}};
}

std::string Attribute(const char* iName, const char* iValue)
{
  return std::string("<attribute><name>") + iName + "</name><value>" + iValue + "</value></attribute>";
}

MabIRixValue_var AttributeHolding(const char* iName, MabIRixValue* ipValue)
{
  MabRixAttributeValue* pAttribute = new MabRixAttributeValue();
  pAttribute->_Name = iName;
  pAttribute->_Value = MabIRixValue_var::Adopt(ipValue);
  return MabIRixValue_var::Adopt(pAttribute);
}
}  // namespace

TEST(MabRixSAXHandlerXMLStringMap, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerXMLStringMap* pHandler = new MabRixSAXHandlerXMLStringMap(Tree.Root());
  MabRixExpectRegistered<MabRixSAXHandlerXMLStringMap>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerXMLStringMap(*pHandler),
            static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerXMLStringMap, AttributeModeReadsAttributeNamesAndStringValues)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead(
      "<map>" + Attribute("b", " 2 ") + Attribute("a", "1,x") + Attribute("e", "") + "</map>", AttributeMode());
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"b", " 2 "}, {"a", "1,x"}, {"e", ""}}));
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringMapValue");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerXMLStringMap, KeyValueModeReadsPairsInOrder)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading =
      MabRixRead("<map><key>A</key><value>1</value><key>B</key><value>2</value></map>", KeyValueMode("key", "value"));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"A", "1"}, {"B", "2"}}));
  EXPECT_TRUE(Reporter.Reports().empty());
  // The texts come from the buffer: no child handler is made.
  EXPECT_TRUE(!KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetChildHandler());
}

TEST(MabRixSAXHandlerXMLStringMap, KeyValueModeValueBeforeAnyKeyIsIgnored)
{
  MabRixTestReading Reading =
      MabRixRead("<map><value>0</value><key>A</key><value>1</value></map>", KeyValueMode("key", "value"));
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"A", "1"}}));
}

TEST(MabRixSAXHandlerXMLStringMap, KeyValueModeSecondValueForOneKeyIsIgnored)
{
  MabRixTestReading Reading =
      MabRixRead("<map><key>A</key><value>1</value><value>2</value><key>A</key><value>3</value></map>",
                 KeyValueMode("key", "value"));
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"A", "1"}}));
}

TEST(MabRixSAXHandlerXMLStringMap, KeyValueModeEmptyKeySuppressesTheEntry)
{
  MabRixTestReading Reading =
      MabRixRead("<map><key>A</key><value>1</value><key></key><value>2</value><key>B</key><value>3</value></map>",
                 KeyValueMode("key", "value"));
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"A", "1"}, {"B", "3"}}));
}

TEST(MabRixSAXHandlerXMLStringMap, AttributeModeIgnoresKeyValuePairs)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading =
      MabRixRead("<map><key>A</key><value>1</value>" + Attribute("b", "2") + "</map>", AttributeMode());
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"b", "2"}}));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerXMLStringMap, KeyValueModeIgnoresAttributeElements)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading =
      MabRixRead("<map>" + Attribute("a", "1") + "<k>B</k><v>2</v></map>", KeyValueMode("k", "v"));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(EntriesOf(Reading), (MabRixPairs{{"B", "2"}}));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerXMLStringMap, EmptyMapHandsUpAnEmptyValueInBothModes)
{
  MabRixTestReading Attributes = MabRixRead("<map/>", AttributeMode());
  EXPECT_EQ(EntriesOf(Attributes), MabRixPairs{});
  MabRixTestReading Pairs = MabRixRead("<map></map>", KeyValueMode("key", "value"));
  EXPECT_EQ(EntriesOf(Pairs), MabRixPairs{});
}

TEST(MabRixSAXHandlerXMLStringMap, ValueThatIsNotAnAttributeIsReportedAndSkipped)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringMap(Tree.Root()));
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(spHandler->Value(MabIRixValue_var::Adopt(new MabRixStringValue())), S_OK);
    EXPECT_EQ(spHandler->Value(nullptr), S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAnAttribute, NotAnAttribute}));
    MabRixExpectReportsFrom(Reporter, Class);
  }
  {
    // Going on, the next check finds no attribute value behind it.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    EXPECT_EQ(spHandler->Value(MabIRixValue_var::Adopt(new MabRixStringValue())), S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAnAttribute, "ExpressionCheck:pValue"}));
    MabRixExpectReportsFrom(Reporter, Class);
  }
}

TEST(MabRixSAXHandlerXMLStringMap, AttributeHoldingAnotherKindIsReportedAndSkipped)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestTree Tree;
    MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringMap(Tree.Root()));
    ASSERT_EQ(spHandler->StartHandlingEvents("map", nullptr), S_OK);
    MabRixTestReporter Reporter(Answer);
    EXPECT_EQ(spHandler->Value(AttributeHolding("a", new MabRixStringListValue())), S_OK);
    EXPECT_EQ(spHandler->Value(AttributeHolding("b", nullptr)), S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{NotAString, NotAString}));
    MabRixExpectReportsFrom(Reporter, Class);
    EXPECT_EQ(spHandler->EndElement("map"), S_OK);
    ASSERT_EQ(Tree.Values().size(), 1u);
    EXPECT_EQ(MabRixEntries(MabRixValueAs<MabRixStringMapValue>(Tree.Values()[0])->_Value), MabRixPairs{});
  }
}
