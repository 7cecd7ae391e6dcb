// One document of attributes read through one format map, with a format of
// every kind: each attribute's value comes back as its format says.
#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixBooleanValueFormat.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListMapValueFormat.h"
#include "MabRixStringListValue.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringMapValueFormat.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixValueTestSupport.h"

namespace
{
// Reads a list of attribute elements, each through an attribute handler with
// the format map, and hands every attribute value on to its own parent.
class AttributeListReader : public MabRixSAXHandlerBase
{
public:
  AttributeListReader(MabRixSAXHandlerBase& iParent, KelBaseUnknown_varKelUnicodeStringDico& iFormats)
      : MabRixSAXHandlerBase(iParent), _Formats(iFormats)
  {
  }

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    (void)MabRixSAXHandlerBase::StartElement(iName, iAttributes);
    if (iName != "attribute")
      return S_OK;
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerAttribute(*this, _Formats));
    return _spChildHandler->StartHandlingEvents(iName, iAttributes);
  }
  HRESULT EndElement(const KelUnicodeString& iName) override
  {
    (void)StopIfNecessary(iName);
    return S_OK;
  }
  HRESULT Value(const MabIRixValue_var& iValue) override { return _spParentHandler->Value(iValue); }

private:
  KelBaseUnknown_varKelUnicodeStringDico& _Formats;
};

const char* const Document = R"(<attributes>
  <attribute><name>title</name><value>Main bracket, left</value></attribute>
  <attribute><name>locked</name><value type="Enforced">yes</value></attribute>
  <attribute><name>owners</name><value>ann;bob;cy</value></attribute>
  <attribute><name>props</name><value>
    <attribute><name>color</name><value>red</value></attribute>
    <attribute><name>mass</name><value>2 kg</value></attribute>
  </value></attribute>
  <attribute><name>views</name><value>front=a,b|top=c</value></attribute>
</attributes>)";

// The attribute value at iPosition: its name, and its value of class iClass.
template <class C>
C* ValueAt(const MabRixTestReading& iReading, std::size_t iPosition, const char* iName, const char* iClass)
{
  if (iPosition >= iReading.Values().size())
  {
    ADD_FAILURE() << "no value at " << iPosition;
    return nullptr;
  }
  const MabIRixValue_var& spValue = iReading.Values()[iPosition];
  EXPECT_STREQ(spValue->GetImpl()->IsA(), "MabRixAttributeValue");
  EXPECT_EQ(spValue->GetRefCount(), 1u);
  MabRixAttributeValue* pAttribute = MabRixValueAs<MabRixAttributeValue>(spValue);
  if (!pAttribute || !pAttribute->_Value)
  {
    ADD_FAILURE() << iName << " has no value";
    return nullptr;
  }
  EXPECT_EQ(pAttribute->_Name, iName);
  EXPECT_STREQ(pAttribute->_Value->GetImpl()->IsA(), iClass);
  return MabRixValueAs<C>(pAttribute->_Value);
}
}  // namespace

TEST(MabRixAttributeFormatMap, OneDocumentReadsEveryKindOfValue)
{
  MabRixTestReporter Reporter;
  MabRixStringValueFormat String;
  MabRixBooleanValueFormat Boolean;
  MabRixStringListValueFormat List(";");
  MabRixStringMapValueFormat XMLMap;
  MabRixStringListMapValueFormat ListMap("|", "=", ",");
  KelBaseUnknown_varKelUnicodeStringDico Formats;
  Formats.Insert("title", &String);
  Formats.Insert("locked", &Boolean);
  Formats.Insert("owners", &List);
  Formats.Insert("props", &XMLMap);
  Formats.Insert("views", &ListMap);

  MabRixTestReading Reading = MabRixRead(Document, [&Formats](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new AttributeListReader(iParent, Formats));
  });
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  ASSERT_EQ(Reading.Values().size(), 5u);

  const MabRixStringValue* pTitle = ValueAt<MabRixStringValue>(Reading, 0, "title", "MabRixStringValue");
  ASSERT_NE(pTitle, nullptr);
  EXPECT_EQ(pTitle->_Value, "Main bracket, left");
  EXPECT_EQ(pTitle->GetRefCount(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixAttributeValue>(Reading.Values()[0])->_Enforced, 0);

  const MabRixBooleanValue* pLocked = ValueAt<MabRixBooleanValue>(Reading, 1, "locked", "MabRixBooleanValue");
  ASSERT_NE(pLocked, nullptr);
  EXPECT_EQ(pLocked->_Value, 1);
  // The Boolean handler keeps its creation reference on purpose.
  EXPECT_EQ(pLocked->GetRefCount(), 2u);
  EXPECT_EQ(MabRixValueAs<MabRixAttributeValue>(Reading.Values()[1])->_Enforced, 1);

  const MabRixStringListValue* pOwners = ValueAt<MabRixStringListValue>(Reading, 2, "owners", "MabRixStringListValue");
  ASSERT_NE(pOwners, nullptr);
  EXPECT_EQ(MabRixTexts(pOwners->_Value), (MabRixStrings{"ann", "bob", "cy"}));
  EXPECT_EQ(pOwners->GetRefCount(), 1u);

  const MabRixStringMapValue* pProps = ValueAt<MabRixStringMapValue>(Reading, 3, "props", "MabRixStringMapValue");
  ASSERT_NE(pProps, nullptr);
  EXPECT_EQ(MabRixEntries(pProps->_Value), (MabRixPairs{{"color", "red"}, {"mass", "2 kg"}}));
  EXPECT_EQ(pProps->GetRefCount(), 1u);

  const MabRixStringListMapValue* pViews =
      ValueAt<MabRixStringListMapValue>(Reading, 4, "views", "MabRixStringListMapValue");
  ASSERT_NE(pViews, nullptr);
  ASSERT_EQ(pViews->_Value.Size(), 2);
  EXPECT_EQ(MabRixTexts(pViews->_Value["front"]), (MabRixStrings{"a", "b"}));
  EXPECT_EQ(MabRixTexts(pViews->_Value["top"]), (MabRixStrings{"c"}));
  EXPECT_EQ(pViews->GetRefCount(), 1u);

  // The formats were only borrowed.
  for (const MabRixValueFormat* pFormat :
       std::vector<const MabRixValueFormat*>{&String, &Boolean, &List, &XMLMap, &ListMap})
    EXPECT_EQ(pFormat->GetRefCount(), 2u);  // the caller's own and the map's
}
