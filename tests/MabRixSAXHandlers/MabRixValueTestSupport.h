// Helpers shared by the tests of the value handlers, value formats and the
// attribute handler.
#ifndef MabRixValueTestSupport_h
#define MabRixValueTestSupport_h

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KelDicos.h"
#include "MabRixTestSupport.h"

// The file a library class's checks report.
inline std::string MabRixCheckFileOf(const std::string& iClass)
{
  return "MabRixCommandModel/MabRixSAXHandlers.m/src/" + iClass;
}

// Every report was made by iClass's source file.
inline void MabRixExpectReportsFrom(const MabRixTestReporter& iReporter, const std::string& iClass)
{
  for (const MabRixCheckReport& Report : iReporter.Reports())
  {
    EXPECT_EQ(Report._File, MabRixCheckFileOf(iClass)) << Report._Text;
    EXPECT_GT(Report._Line, 0) << Report._Text;
  }
}

// A class record: own name, base chain, framework, no creation by name.
template <class C>
void MabRixExpectRegistered(const KelBaseUnknown& iObject, const char* iName, const std::vector<const char*>& iBases)
{
  EXPECT_STREQ(iObject.IsA(), iName);
  EXPECT_STREQ(C::ClassId(), iName);
  EXPECT_STREQ(C::MetaObject()->_Name, iName);
  EXPECT_STREQ(C::MetaObject()->_Framework, "MabRixCommandModel");
  EXPECT_EQ(iObject.GetMetaObject(), C::MetaObject());
  EXPECT_TRUE(iObject.IsAKindOf(iName));
  for (const char* Base : iBases)
    EXPECT_TRUE(iObject.IsAKindOf(Base)) << Base;
  EXPECT_FALSE(iObject.IsAKindOf("MabRixSAXHandlerNothing"));
  EXPECT_EQ(C::CreateItself(), nullptr);
}

// A parser and a root handler, for driving a handler by direct calls.
struct MabRixTestTree
{
  MabRixTestTree()
  {
    _spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
    KelISAXParser_var spParser(_spParser);
    _spRoot = KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(spParser, nullptr, ""));
  }
  // The parser holds the handler it was last given, which holds the parser:
  // no document ends here to make it let go.
  ~MabRixTestTree() { _spParser->SetDocumentHandler(nullptr); }
  MabRixTestTree(const MabRixTestTree&) = delete;
  MabRixTestTree& operator=(const MabRixTestTree&) = delete;
  MabRixSAXHandlerBase& Root() { return *_spRoot.Get(); }
  const std::vector<MabIRixValue_var>& Values() const { return _spRoot->Values(); }

  KelVar<KelExpatParser> _spParser;
  KelVar<MabRixTestRootHandler> _spRoot;
};

inline KelUnicodeStringList MabRixList(std::initializer_list<KelUnicodeString> iItems)
{
  return KelUnicodeStringList(iItems);
}

// Entries of a dictionary as (key, value) texts, in its order.
inline std::vector<std::pair<std::string, std::string>> MabRixEntries(const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  std::vector<std::pair<std::string, std::string>> Entries;
  for (auto it = iDico.begin(); it != iDico.end(); ++it)
    Entries.emplace_back(it.GetKey().ToUtf8(), (*it).ToUtf8());
  return Entries;
}

// Texts of a list.
inline std::vector<std::string> MabRixTexts(const KelUnicodeStringList& iList)
{
  std::vector<std::string> Texts;
  for (const KelUnicodeString& Item : iList)
    Texts.push_back(Item.ToUtf8());
  return Texts;
}

typedef std::vector<std::pair<std::string, std::string>> MabRixPairs;
typedef std::vector<std::string> MabRixStrings;

#endif
