// The three XML list and map handlers differ on purpose; one test per point
// of difference.
#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSAXHandlerXMLStringList.h"
#include "MabRixSAXHandlerXMLStringListMap.h"
#include "MabRixSAXHandlerXMLStringMap.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"
#include "MabRixValueTestSupport.h"

namespace
{
std::string Attribute(const char* iName, const char* iValue)
{
  return std::string("<attribute><name>") + iName + "</name><value>" + iValue + "</value></attribute>";
}

MabRixHandlerFactory XMLList() { return MabRixMake<MabRixSAXHandlerXMLStringList>(KelUnicodeString("item")); }
MabRixHandlerFactory XMLMap() { return MabRixMake<MabRixSAXHandlerXMLStringMap>(); }
MabRixHandlerFactory XMLKeyValueMap()
{
  return MabRixMake<MabRixSAXHandlerXMLStringMap>(KelUnicodeString("key"), KelUnicodeString("value"));
}
MabRixHandlerFactory XMLListMap() { return MabRixMake<MabRixSAXHandlerXMLStringListMap>(KelUnicodeString(",")); }

MabRixSAXHandlerBase* Impl(const MabIRixSAXHandler_var& iHandler)
{
  return KelImplCast<MabRixSAXHandlerBase>(iHandler.Get());
}

std::string ClassOf(const MabIRixSAXHandler_var& iHandler) { return !iHandler ? "<none>" : iHandler->GetImpl()->IsA(); }

MabRixStrings ListIn(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  return iReading.Values().empty() ? MabRixStrings{}
                                   : MabRixTexts(MabRixValueAs<MabRixStringListValue>(iReading.Values()[0])->_Value);
}

MabRixPairs MapIn(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  return iReading.Values().empty() ? MabRixPairs{}
                                   : MabRixEntries(MabRixValueAs<MabRixStringMapValue>(iReading.Values()[0])->_Value);
}

// Entries of a list map, each list joined with "|".
MabRixPairs ListMapIn(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  MabRixPairs Entries;
  if (iReading.Values().empty())
    return Entries;
  const KelUnicodeStringListKelUnicodeStringDico& Dico =
      MabRixValueAs<MabRixStringListMapValue>(iReading.Values()[0])->_Value;
  for (auto it = Dico.begin(); it != Dico.end(); ++it)
  {
    std::string Joined;
    for (const KelUnicodeString& Item : *it)
      Joined += (Joined.empty() ? "" : "|") + Item.ToUtf8();
    Entries.emplace_back(it.GetKey().ToUtf8(), Joined);
  }
  return Entries;
}

// A handler whose parent is gone by the time its element closes.
template <class Handler>
class Orphaned : public Handler
{
public:
  using Handler::Handler;
  // Stops holding the parent, so that it can go.
  void LetParentGo() { this->_spParentHandler.Loosen(); }
};

// Starts an orphaned handler on "e", lets its parent go, and closes "e".
template <class Handler, class... Arguments>
HRESULT CloseWithoutParent(MabRixTestReporter& ioReporter, const Arguments&... iArguments)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spParent = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Tree.Root()));
  Orphaned<Handler>* pHandler =
      new Orphaned<Handler>(*KelImplCast<MabRixSAXHandlerBase>(spParent.Get()), iArguments...);
  const MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(pHandler);
  EXPECT_EQ(spHandler->StartHandlingEvents("e", nullptr), S_OK);
  pHandler->LetParentGo();
  spParent = nullptr;
  EXPECT_EQ(pHandler->GetParentHandler(), nullptr);
  ioReporter.Clear();
  const HRESULT hr = spHandler->EndElement("e");
  EXPECT_TRUE(Tree.Values().empty());
  EXPECT_EQ(ioReporter.Texts(), (MabRixStrings{"ExpressionCheck:!!_spSAXParser && !!_spParentHandler",
                                               "ExpressionCheck:!!_spParentHandler"}));
  return hr;
}
}  // namespace

TEST(MabRixXMLHandlersDiffer, Items)
{
  // The list reads elements of its item name, nothing else.
  MabRixTestReading List =
      MabRixRead("<l><item>a</item><attribute><name>n</name><value>v</value></attribute><key>k</key></l>", XMLList());
  EXPECT_EQ(ListIn(List), (MabRixStrings{"a"}));
  // The map reads attribute elements, or key/value pairs in the other mode.
  MabRixTestReading Map =
      MabRixRead("<m><item>a</item>" + Attribute("n", "v") + "<key>k</key><value>w</value></m>", XMLMap());
  EXPECT_EQ(MapIn(Map), (MabRixPairs{{"n", "v"}}));
  MabRixTestReading Pairs =
      MabRixRead("<m><item>a</item>" + Attribute("n", "v") + "<key>k</key><value>w</value></m>", XMLKeyValueMap());
  EXPECT_EQ(MapIn(Pairs), (MabRixPairs{{"k", "w"}}));
  // The list map reads attribute elements.
  MabRixTestReading ListMap = MabRixRead("<m>" + Attribute("n", "v,w") + "</m>", XMLListMap());
  EXPECT_EQ(ListMapIn(ListMap), (MabRixPairs{{"n", "v|w"}}));
}

TEST(MabRixXMLHandlersDiffer, ChildHandler)
{
  MabRixTestReading List = MabRixRead("<l><item>a</item></l>", XMLList());
  EXPECT_EQ(ClassOf(Impl(List.Handler())->GetChildHandler()), "MabRixSAXHandlerString");

  // The attribute handler of the map reads its value with a string format.
  MabRixTestReading Map = MabRixRead("<m>" + Attribute("n", "v") + "</m>", XMLMap());
  const MabIRixSAXHandler_var& spMapChild = Impl(Map.Handler())->GetChildHandler();
  EXPECT_EQ(ClassOf(spMapChild), "MabRixSAXHandlerAttribute");
  EXPECT_EQ(ClassOf(Impl(spMapChild)->GetChildHandler()), "MabRixSAXHandlerString");

  MabRixTestReading Pairs = MabRixRead("<m><key>k</key><value>w</value></m>", XMLKeyValueMap());
  EXPECT_EQ(ClassOf(Impl(Pairs.Handler())->GetChildHandler()), "<none>");

  // The attribute handler of the list map reads its value with a list format.
  MabRixTestReading ListMap = MabRixRead("<m>" + Attribute("n", "v") + "</m>", XMLListMap());
  const MabIRixSAXHandler_var& spListMapChild = Impl(ListMap.Handler())->GetChildHandler();
  EXPECT_EQ(ClassOf(spListMapChild), "MabRixSAXHandlerAttribute");
  EXPECT_EQ(ClassOf(Impl(spListMapChild)->GetChildHandler()), "MabRixSAXHandlerStringList");
}

TEST(MabRixXMLHandlersDiffer, ValueTypeTest)
{
  MabRixTestTree Tree;
  const MabIRixValue_var spList = MabIRixValue_var::Adopt(new MabRixStringListValue());
  {
    // The list tests nothing: a value that is not a string is fatal.
    MabRixThrowingFatalHandler Fatal;
    const MabIRixSAXHandler_var spHandler =
        MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringList(Tree.Root(), "item"));
    ASSERT_EQ(spHandler->StartElement("item", nullptr), S_OK);
    try
    {
      (void)spHandler->Value(spList);
      ADD_FAILURE() << "no fatal error";
    }
    catch (const MabRixFatalErrorRaised& Error)
    {
      EXPECT_STREQ(Error.what(), "AssertionFailed:pValue");
      EXPECT_EQ(Error._File, MabRixCheckFileOf("MabRixSAXHandlerXMLStringList"));
    }
  }
  MabRixAttributeValue* pAttribute = new MabRixAttributeValue();
  pAttribute->_Name = "n";
  pAttribute->_Value = spList;
  const MabIRixValue_var spAttributeWithList = MabIRixValue_var::Adopt(pAttribute);
  {
    // The map wants an attribute holding a string; a failed check gives 0.
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringMap(Tree.Root()));
    EXPECT_EQ(spHandler->Value(spList), S_OK);
    EXPECT_EQ(spHandler->Value(spAttributeWithList), S_OK);
    EXPECT_EQ(Reporter.Texts(),
              (MabRixStrings{"ExpressionCheck:!!iValue && MabIRixValue_Type == \"MabRixAttributeValue\"",
                             "ExpressionCheck:MabIRixValue_Type == \"MabRixStringValue\""}));
    MabRixExpectReportsFrom(Reporter, "MabRixSAXHandlerXMLStringMap");
  }
  {
    // The list map wants an attribute holding a list; a failed check fails.
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabIRixSAXHandler_var spHandler =
        MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerXMLStringListMap(Tree.Root(), ","));
    EXPECT_EQ(spHandler->Value(spList), E_FAIL);
    EXPECT_EQ(spHandler->Value(spAttributeWithList), S_OK);
    pAttribute->_Value = MabIRixValue_var::Adopt(new MabRixStringValue());
    EXPECT_EQ(spHandler->Value(spAttributeWithList), E_FAIL);
    EXPECT_EQ(Reporter.Texts(),
              (MabRixStrings{"ExpressionCheck:!!iValue && MabIRixValue_Type == \"MabRixAttributeValue\"",
                             "ExpressionCheck:MabIRixValue_Type == \"MabRixStringListValue\""}));
    MabRixExpectReportsFrom(Reporter, "MabRixSAXHandlerXMLStringListMap");
  }
}

TEST(MabRixXMLHandlersDiffer, DuplicateKeys)
{
  MabRixTestReading List = MabRixRead("<l><item>a</item><item>b</item><item>a</item></l>", XMLList());
  EXPECT_EQ(ListIn(List), (MabRixStrings{"a", "b", "a"}));
  // The host dictionary's Insert keeps the first value of a key.
  MabRixTestReading Map =
      MabRixRead("<m>" + Attribute("k", "1") + Attribute("j", "2") + Attribute("k", "3") + "</m>", XMLMap());
  EXPECT_EQ(MapIn(Map), (MabRixPairs{{"k", "1"}, {"j", "2"}}));
  MabRixTestReading Pairs =
      MabRixRead("<m><key>k</key><value>1</value><key>k</key><value>3</value></m>", XMLKeyValueMap());
  EXPECT_EQ(MapIn(Pairs), (MabRixPairs{{"k", "1"}}));
  MabRixTestReading ListMap = MabRixRead("<m>" + Attribute("k", "1,2") + Attribute("k", "3") + "</m>", XMLListMap());
  EXPECT_EQ(ListMapIn(ListMap), (MabRixPairs{{"k", "1|2"}}));
}

TEST(MabRixXMLHandlersDiffer, EndTagNotItsOwn)
{
  MabRixTestReading List = MabRixRead("<l><x>t</x><item>a</item></l>", XMLList());
  EXPECT_EQ(List._Result, S_OK);
  EXPECT_EQ(ListIn(List), (MabRixStrings{"a"}));

  // The key/value bookkeeping runs at such ends.
  MabRixTestReading Map = MabRixRead("<m><x>t</x>" + Attribute("n", "v") + "</m>", XMLMap());
  EXPECT_EQ(Map._Result, S_OK);
  EXPECT_EQ(MapIn(Map), (MabRixPairs{{"n", "v"}}));
  MabRixTestReading Pairs = MabRixRead("<m><key>k</key><value>w</value></m>", XMLKeyValueMap());
  EXPECT_EQ(Pairs._Result, S_OK);
  EXPECT_EQ(MapIn(Pairs), (MabRixPairs{{"k", "w"}}));

  MabRixTestReading ListMap = MabRixRead("<m><x>t</x>" + Attribute("n", "v") + "</m>", XMLListMap());
  EXPECT_EQ(ListMap._Result, E_FAIL);
  ASSERT_EQ(ListMap._spParser->GetCallbackFailures().size(), 1u);
  EXPECT_EQ(ListMap._spParser->GetCallbackFailures()[0]._Result, E_FAIL);
  EXPECT_EQ(ListMapIn(ListMap), (MabRixPairs{{"n", "v"}}));
}

TEST(MabRixXMLHandlersDiffer, MissingParentAtTheEnd)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_EQ(CloseWithoutParent<MabRixSAXHandlerXMLStringList>(Reporter, KelUnicodeString("item")), S_OK);
  EXPECT_EQ(Reporter.Reports().back()._File, MabRixCheckFileOf("MabRixSAXHandlerXMLStringList"));
  EXPECT_EQ(CloseWithoutParent<MabRixSAXHandlerXMLStringMap>(Reporter), S_OK);
  EXPECT_EQ(Reporter.Reports().back()._File, MabRixCheckFileOf("MabRixSAXHandlerXMLStringMap"));
  EXPECT_EQ(CloseWithoutParent<MabRixSAXHandlerXMLStringListMap>(Reporter, KelUnicodeString(",")), E_FAIL);
  EXPECT_EQ(Reporter.Reports().back()._File, MabRixCheckFileOf("MabRixSAXHandlerXMLStringListMap"));
}

TEST(MabRixXMLHandlersDiffer, CharacterBuffer)
{
  // Cleared at every start tag by the maps, never by the list.
  MabRixTestReading List = MabRixRead("<l>ab<x/>cd</l>", XMLList());
  EXPECT_EQ(Impl(List.Handler())->GetCharacters(), "abcd");
  MabRixTestReading Map = MabRixRead("<m>ab<x/>cd</m>", XMLMap());
  EXPECT_EQ(Impl(Map.Handler())->GetCharacters(), "cd");
  MabRixTestReading ListMap = MabRixRead("<m>ab<x/>cd</m>", XMLListMap());
  EXPECT_EQ(Impl(ListMap.Handler())->GetCharacters(), "cd");
}
