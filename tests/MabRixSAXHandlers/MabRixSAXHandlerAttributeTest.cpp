#include <gtest/gtest.h>

#include "KelNullVarError.h"
#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixBooleanValueFormat.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixStringListValue.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerAttribute";
const char* const UnknownChild = "ExpressionCheck:iName == \"name\" || iName == \"value\"";
const char* const UnknownChildEnd = "ExpressionCheck:iName == \"value\" && !_pFormat";

MabRixHandlerFactory With(MabRixValueFormat& iFormat)
{
  return [&iFormat](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerAttribute(iParent, iFormat));
  };
}

MabRixHandlerFactory With(KelBaseUnknown_varKelUnicodeStringDico& iFormatMap)
{
  return [&iFormatMap](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerAttribute(iParent, iFormatMap));
  };
}

// The only value the reading handed up, as an attribute value.
MabRixAttributeValue* TheAttribute(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  if (iReading.Values().size() != 1u)
    return nullptr;
  EXPECT_STREQ(iReading.Values()[0]->GetImpl()->IsA(), "MabRixAttributeValue");
  return MabRixValueAs<MabRixAttributeValue>(iReading.Values()[0]);
}

std::string StringIn(const MabRixAttributeValue* ipAttribute)
{
  const MabRixStringValue* pValue = ipAttribute ? MabRixValueAs<MabRixStringValue>(ipAttribute->_Value) : nullptr;
  return pValue ? pValue->_Value.ToUtf8() : "<no string value>";
}

// A format whose handler cannot be made.
class FailingFormat : public MabRixValueFormat
{
public:
  HRESULT GetSubHandler(MabRixSAXHandlerBase&, MabIRixSAXHandler_var& oHandler) override
  {
    oHandler = nullptr;
    return E_FAIL;
  }
};

// A handler that refuses to start.
class RefusingHandler : public MabRixSAXHandlerBase
{
public:
  explicit RefusingHandler(MabRixSAXHandlerBase& iParent) : MabRixSAXHandlerBase(iParent) {}
  HRESULT StartHandlingEvents(const KelUnicodeString&, const KelISAXAttributeList_var&) override { return E_FAIL; }
};

class RefusingFormat : public MabRixValueFormat
{
public:
  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override
  {
    oHandler = MabIRixSAXHandler_var::Adopt(new RefusingHandler(iParent));
    return S_OK;
  }
};
}  // namespace

TEST(MabRixSAXHandlerAttribute, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixStringValueFormat Format;
  MabRixSAXHandlerAttribute* pHandler = new MabRixSAXHandlerAttribute(Tree.Root(), Format);
  MabRixExpectRegistered<MabRixSAXHandlerAttribute>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerAttribute(*pHandler), static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
  // The handler only borrowed the format.
  EXPECT_EQ(Format.GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerAttribute, SingleFormatReadsNameAndValueAndHandsUpTheOnlyReference)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat Format;
  MabRixTestReading Reading = MabRixRead("<attribute><name>color</name><value> red </value></attribute>", With(Format));
  EXPECT_EQ(Reading._Result, S_OK);
  MabRixAttributeValue* pAttribute = TheAttribute(Reading);
  ASSERT_NE(pAttribute, nullptr);
  EXPECT_EQ(pAttribute->_Name, "color");
  EXPECT_EQ(pAttribute->_Enforced, 0);
  EXPECT_STREQ(pAttribute->_Value->GetImpl()->IsA(), "MabRixStringValue");
  EXPECT_EQ(StringIn(pAttribute), " red ");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_EQ(pAttribute->_Value->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
  // The parser came back to the root at the attribute's close.
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
  EXPECT_EQ(Format.GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerAttribute, FormatMapSelectsTheFormatByName)
{
  MabRixStringValueFormat String;
  MabRixBooleanValueFormat Boolean;
  MabRixStringListValueFormat List(",");
  KelBaseUnknown_varKelUnicodeStringDico Formats;
  Formats.Insert("title", &String);
  Formats.Insert("locked", &Boolean);
  Formats.Insert("owners", &List);

  MabRixTestReading Title = MabRixRead("<a><name>title</name><value>x,y</value></a>", With(Formats));
  ASSERT_NE(TheAttribute(Title), nullptr);
  EXPECT_EQ(StringIn(TheAttribute(Title)), "x,y");

  MabRixTestReading Owners = MabRixRead("<a><name>owners</name><value>x,y</value></a>", With(Formats));
  ASSERT_NE(TheAttribute(Owners), nullptr);
  EXPECT_EQ(TheAttribute(Owners)->_Name, "owners");
  MabRixStringListValue* pList = MabRixValueAs<MabRixStringListValue>(TheAttribute(Owners)->_Value);
  ASSERT_NE(pList, nullptr);
  EXPECT_EQ(MabRixTexts(pList->_Value), (MabRixStrings{"x", "y"}));

  MabRixTestReading Locked = MabRixRead("<a><name>locked</name><value>true</value></a>", With(Formats));
  ASSERT_NE(TheAttribute(Locked), nullptr);
  MabRixBooleanValue* pBoolean = MabRixValueAs<MabRixBooleanValue>(TheAttribute(Locked)->_Value);
  ASSERT_NE(pBoolean, nullptr);
  EXPECT_EQ(pBoolean->_Value, 1);
}

TEST(MabRixSAXHandlerAttribute, NameWithoutAFormatInTheMapDeliversNothing)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat String;
  KelBaseUnknown_varKelUnicodeStringDico Formats;
  Formats.Insert("title", &String);
  MabRixTestReading Reading = MabRixRead("<a><name>other</name><value>v</value></a>", With(Formats));
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reading.Values().empty());
  EXPECT_TRUE(Reporter.Reports().empty());
  // The attribute's close still gave the parser back to the root.
  EXPECT_EQ(Reading.Handler()->GetImpl()->IsA(), std::string(Class));
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
}

TEST(MabRixSAXHandlerAttribute, ValueBeforeNameWithAFormatMapIsSkipped)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat String;
  KelBaseUnknown_varKelUnicodeStringDico Formats;
  Formats.Insert("n", &String);
  // The value has no format yet, so nothing reads it; the name then starts
  // an attribute value that never gets a value.
  MabRixTestReading Reading = MabRixRead("<a><value>v</value><name>n</name></a>", With(Formats));
  EXPECT_EQ(Reading._Result, S_OK);
  MabRixAttributeValue* pAttribute = TheAttribute(Reading);
  ASSERT_NE(pAttribute, nullptr);
  EXPECT_EQ(pAttribute->_Name, "n");
  EXPECT_TRUE(!pAttribute->_Value);
  EXPECT_TRUE(Reporter.Reports().empty());

  // With no format for the name either, nothing at all is handed up.
  MabRixTestReading Unknown = MabRixRead("<a><value>v</value><name>m</name></a>", With(Formats));
  EXPECT_TRUE(Unknown.Values().empty());
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerAttribute, ValueBeforeNameWithASingleFormatHasNoAttributeValueToKeepIt)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixStringValueFormat Format;
    MabRixTestReading Reading = MabRixRead("<a><value>v</value><name>n</name></a>", With(Format));
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:_pAttributeValue", "ExpressionCheck:_pFormatMap"}));
    MabRixExpectReportsFrom(Reporter, Class);
    // Stopping, the value's end fails; going on, the value is dropped.
    EXPECT_EQ(Reading._Result, Answer == MabRixTestReporter::Stop ? E_FAIL : S_OK);
    EXPECT_TRUE(Reading.Values().empty());
  }
}

TEST(MabRixSAXHandlerAttribute, EnforcedTypeInCapitalsSetsTheFlag)
{
  MabRixStringValueFormat Format;
  for (const char* Type : {"enforced", "ENFORCED", "EnForced"})
  {
    MabRixTestReading Reading =
        MabRixRead(std::string("<a><name>n</name><value type=\"") + Type + "\">v</value></a>", With(Format));
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_EQ(TheAttribute(Reading)->_Enforced, 1) << Type;
    EXPECT_EQ(StringIn(TheAttribute(Reading)), "v");
  }
}

TEST(MabRixSAXHandlerAttribute, AnyOtherTypeClearsTheEnforcedFlag)
{
  MabRixStringValueFormat Format;
  for (const char* Value : {"<value type=\"optional\">v</value>", "<value type=\" enforced\">v</value>",
                            "<value type=\"\">v</value>", "<value>v</value>"})
  {
    MabRixTestReading Reading = MabRixRead(std::string("<a><name>n</name>") + Value + "</a>", With(Format));
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_EQ(TheAttribute(Reading)->_Enforced, 0) << Value;
  }
}

TEST(MabRixSAXHandlerAttribute, SecondValueElementIsSkipped)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat Format;
  MabRixTestReading Reading =
      MabRixRead("<a><name>n</name><value>first</value><value type=\"enforced\">second</value></a>", With(Format));
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_NE(TheAttribute(Reading), nullptr);
  EXPECT_EQ(StringIn(TheAttribute(Reading)), "first");
  EXPECT_EQ(TheAttribute(Reading)->_Enforced, 0);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerAttribute, TextInsideTheAttributeElementDoesNotLeakIntoTheName)
{
  MabRixStringValueFormat Format;
  MabRixTestReading Reading = MabRixRead("<a>lead<name>n</name>middle<value>v</value>tail</a>", With(Format));
  ASSERT_NE(TheAttribute(Reading), nullptr);
  EXPECT_EQ(TheAttribute(Reading)->_Name, "n");
  EXPECT_EQ(StringIn(TheAttribute(Reading)), "v");
}

TEST(MabRixSAXHandlerAttribute, UnknownChildIsReportedAndIgnored)
{
  MabRixStringValueFormat Format;
  {
    // Stopping, the unknown element leaves the text gathered so far alone.
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    MabRixTestReading Reading = MabRixRead("<a><name>ab<x/>cd</name><value>v</value></a>", With(Format));
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{UnknownChild, UnknownChildEnd}));
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_EQ(TheAttribute(Reading)->_Name, "abcd");
  }
  {
    // Going on, it is treated like a child: the text is cleared.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    MabRixTestReading Reading = MabRixRead("<a><name>ab<x/>cd</name><value>v</value></a>", With(Format));
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{UnknownChild, UnknownChildEnd}));
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_EQ(TheAttribute(Reading)->_Name, "cd");
    EXPECT_EQ(StringIn(TheAttribute(Reading)), "v");
  }
}

TEST(MabRixSAXHandlerAttribute, SecondNameReplacesAndReleasesTheAttributeValue)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat Format;
  MabRixTestReading Reading = MabRixRead("<a><name>first</name><name>second</name><value>v</value></a>", With(Format));
  ASSERT_NE(TheAttribute(Reading), nullptr);
  EXPECT_EQ(TheAttribute(Reading)->_Name, "second");
  EXPECT_EQ(StringIn(TheAttribute(Reading)), "v");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerAttribute, NameAfterTheValueWithASingleFormatRenamesTheAttribute)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixStringValueFormat Format;
    MabRixTestReading Reading =
        MabRixRead("<a><name>first</name><value>v</value><name>second</name></a>", With(Format));
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:_pFormatMap"}));
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_EQ(TheAttribute(Reading)->_Name, "second");
    EXPECT_EQ(StringIn(TheAttribute(Reading)), "v");
  }
}

TEST(MabRixSAXHandlerAttribute, HandlerThatCannotBeMadeFailsTheValue)
{
  FailingFormat Format;
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    MabRixTestReading Reading = MabRixRead("<a><name>n</name><value>v</value></a>", With(Format));
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:SUCCEEDED(hr) && !!_spChildHandler"}));
    MabRixExpectReportsFrom(Reporter, Class);
    EXPECT_EQ(Reading._Result, E_FAIL);
    // The attribute value exists (from the name) but has no value.
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_TRUE(!TheAttribute(Reading)->_Value);
  }
  {
    // Going on uses the missing handler: the host's null-reference error.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    EXPECT_THROW(MabRixRead("<a><name>n</name><value>v</value></a>", With(Format)), KelNullVarError);
  }
}

TEST(MabRixSAXHandlerAttribute, ValueHandlerThatWillNotStartIsReported)
{
  RefusingFormat Format;
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixTestReading Reading = MabRixRead("<a><name>n</name><value>v</value></a>", With(Format));
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:SUCCEEDED(hr)"}));
    MabRixExpectReportsFrom(Reporter, Class);
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_NE(TheAttribute(Reading), nullptr);
    EXPECT_TRUE(!TheAttribute(Reading)->_Value);
  }
}
