#include <gtest/gtest.h>

#include "MabRixSAXHandlerStringMap.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListMapValueFormat.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringMapValueFormat.h"
#include "MabRixValueTestSupport.h"

namespace
{
MabRixHandlerFactory Through(MabRixValueFormat& iFormat)
{
  return [&iFormat](MabRixSAXHandlerBase& iParent) {
    MabIRixSAXHandler_var spHandler;
    EXPECT_EQ(iFormat.GetSubHandler(iParent, spHandler), S_OK);
    return spHandler;
  };
}

// Class of the handler iFormat makes; it is new, unstarted and held once.
std::string SubHandlerClass(MabRixValueFormat& iFormat)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler;
  EXPECT_EQ(iFormat.GetSubHandler(Tree.Root(), spHandler), S_OK);
  if (!spHandler)
    return "<none>";
  EXPECT_EQ(spHandler->GetRefCount(), 1u);
  EXPECT_TRUE(KelImplCast<MabRixSAXHandlerBase>(spHandler.Get())->GetElementName().IsEmpty());
  return spHandler->GetImpl()->IsA();
}

MabRixPairs MapIn(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringMapValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringMapValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? MabRixEntries(pValue->_Value) : MabRixPairs{};
}

const KelUnicodeStringListKelUnicodeStringDico* ListMapIn(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringListMapValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringListMapValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? &pValue->_Value : nullptr;
}

const char* const XMLEntries =
    "<v><attribute><name>a</name><value>1|2</value></attribute><attribute><name>b</name><value>3</value></attribute></"
    "v>";
}  // namespace

TEST(MabRixMapValueFormat, BothFormatsAreRegisteredUnderTheirOwnNames)
{
  MabRixStringMapValueFormat Map;
  MabRixStringListMapValueFormat ListMap(",");
  const std::vector<const char*> Bases{"MabRixValueFormat", "KelBaseUnknown"};
  MabRixExpectRegistered<MabRixStringMapValueFormat>(Map, "MabRixStringMapValueFormat", Bases);
  MabRixExpectRegistered<MabRixStringListMapValueFormat>(ListMap, "MabRixStringListMapValueFormat", Bases);
  EXPECT_STREQ(MabRixStringMapValueFormat::MetaObject()->_BaseName, "MabRixValueFormat");
}

TEST(MabRixMapValueFormat, DefaultMapFormatMakesAnXMLMapHandler)
{
  MabRixStringMapValueFormat Format;
  EXPECT_TRUE(Format.IsXML());
  EXPECT_TRUE(Format.GetFirstSeparator().IsEmpty());
  EXPECT_TRUE(Format.GetSecondSeparator().IsEmpty());
  EXPECT_EQ(SubHandlerClass(Format), "MabRixSAXHandlerXMLStringMap");
  MabRixTestReading Reading = MabRixRead(XMLEntries, Through(Format));
  EXPECT_EQ(MapIn(Reading), (MabRixPairs{{"a", "1|2"}, {"b", "3"}}));
}

TEST(MabRixMapValueFormat, MapFormatWithSeparatorsMakesADelimitedHandlerEvenWhenTheyAreEmpty)
{
  MabRixStringMapValueFormat Empty("", "");
  EXPECT_FALSE(Empty.IsXML());
  EXPECT_EQ(SubHandlerClass(Empty), "MabRixSAXHandlerStringMap");

  // The separators go to the handler in their order: entries, then key.
  MabRixStringMapValueFormat Format(";", "=");
  EXPECT_EQ(Format.GetFirstSeparator(), ";");
  EXPECT_EQ(Format.GetSecondSeparator(), "=");
  EXPECT_EQ(SubHandlerClass(Format), "MabRixSAXHandlerStringMap");
  MabRixTestReading Reading = MabRixRead("<v>a=1;b=2</v>", Through(Format));
  EXPECT_EQ(MapIn(Reading), (MabRixPairs{{"a", "1"}, {"b", "2"}}));
}

TEST(MabRixMapValueFormat, CopyOfAnXMLFormatIsStillXML)
{
  const MabRixStringMapValueFormat Map;
  MabRixStringMapValueFormat MapCopy(Map);
  EXPECT_TRUE(MapCopy.IsXML());
  EXPECT_EQ(MapCopy.GetRefCount(), 1u);
  EXPECT_EQ(SubHandlerClass(MapCopy), "MabRixSAXHandlerXMLStringMap");

  const MabRixStringListMapValueFormat ListMap("|");
  MabRixStringListMapValueFormat ListMapCopy(ListMap);
  EXPECT_TRUE(ListMapCopy.IsXML());
  EXPECT_EQ(ListMapCopy.GetListSeparator(), "|");
  EXPECT_EQ(SubHandlerClass(ListMapCopy), "MabRixSAXHandlerXMLStringListMap");
}

TEST(MabRixMapValueFormat, AssignmentFromADelimitedFormatMakesAnXMLFormatDelimited)
{
  MabRixStringMapValueFormat Map;
  Map = MabRixStringMapValueFormat(";", "=");
  EXPECT_FALSE(Map.IsXML());
  EXPECT_EQ(Map.GetFirstSeparator(), ";");
  EXPECT_EQ(Map.GetSecondSeparator(), "=");
  EXPECT_EQ(SubHandlerClass(Map), "MabRixSAXHandlerStringMap");
  EXPECT_EQ(Map.GetRefCount(), 1u);

  MabRixStringListMapValueFormat ListMap("|");
  ListMap = MabRixStringListMapValueFormat(";", "=", ",");
  EXPECT_FALSE(ListMap.IsXML());
  EXPECT_EQ(ListMap.GetFirstSeparator(), ";");
  EXPECT_EQ(ListMap.GetSecondSeparator(), "=");
  EXPECT_EQ(ListMap.GetListSeparator(), ",");
  EXPECT_EQ(SubHandlerClass(ListMap), "MabRixSAXHandlerStringListMap");

  // And back: assignment copies the form too.
  ListMap = MabRixStringListMapValueFormat("|");
  EXPECT_TRUE(ListMap.IsXML());
  EXPECT_TRUE(ListMap.GetFirstSeparator().IsEmpty());
  EXPECT_EQ(SubHandlerClass(ListMap), "MabRixSAXHandlerXMLStringListMap");
}

TEST(MabRixMapValueFormat, XMLListMapFormatStillCarriesTheListSeparator)
{
  MabRixStringListMapValueFormat Format("|");
  EXPECT_TRUE(Format.IsXML());
  EXPECT_TRUE(Format.GetFirstSeparator().IsEmpty());
  EXPECT_TRUE(Format.GetSecondSeparator().IsEmpty());
  EXPECT_EQ(Format.GetListSeparator(), "|");
  MabRixTestReading Reading = MabRixRead(XMLEntries, Through(Format));
  const KelUnicodeStringListKelUnicodeStringDico* pEntries = ListMapIn(Reading);
  ASSERT_NE(pEntries, nullptr);
  ASSERT_EQ(pEntries->Size(), 2);
  EXPECT_EQ(MabRixTexts((*pEntries)["a"]), (MabRixStrings{"1", "2"}));
  EXPECT_EQ(MabRixTexts((*pEntries)["b"]), (MabRixStrings{"3"}));
}

TEST(MabRixMapValueFormat, DelimitedListMapFormatPassesItsThreeSeparatorsInOrder)
{
  MabRixStringListMapValueFormat Format(";", "=", ",");
  EXPECT_EQ(SubHandlerClass(Format), "MabRixSAXHandlerStringListMap");
  MabRixTestReading Reading = MabRixRead("<v>a=1,2;b=3</v>", Through(Format));
  const KelUnicodeStringListKelUnicodeStringDico* pEntries = ListMapIn(Reading);
  ASSERT_NE(pEntries, nullptr);
  ASSERT_EQ(pEntries->Size(), 2);
  EXPECT_EQ(MabRixTexts((*pEntries)["a"]), (MabRixStrings{"1", "2"}));
  EXPECT_EQ(MabRixTexts((*pEntries)["b"]), (MabRixStrings{"3"}));
}

TEST(MabRixMapValueFormat, PreviousChildHandlerIsReleasedByGetSubHandler)
{
  MabRixTestTree Tree;
  MabRixStringMapValueFormat Map;
  MabRixStringListMapValueFormat ListMap(";", "=", ",");
  MabIRixSAXHandler_var spChild = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerStringMap(Tree.Root(), ";", "="));
  const MabIRixSAXHandler_var spFirst = spChild;
  ASSERT_EQ(Map.GetSubHandler(Tree.Root(), spChild), S_OK);
  EXPECT_EQ(spFirst->GetRefCount(), 1u);
  const MabIRixSAXHandler_var spSecond = spChild;
  ASSERT_EQ(ListMap.GetSubHandler(Tree.Root(), spChild), S_OK);
  EXPECT_EQ(spSecond->GetRefCount(), 1u);
  EXPECT_STREQ(spChild->GetImpl()->IsA(), "MabRixSAXHandlerStringListMap");
}
