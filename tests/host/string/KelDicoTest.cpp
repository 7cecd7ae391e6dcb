#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "KelDicos.h"

namespace
{
template <class V>
std::vector<std::string> KeysOf(const KelDico<V>& iDico)
{
  std::vector<std::string> Keys;
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
    Keys.push_back(It.GetKey().ToUtf8());
  return Keys;
}

class KelCountedObject : public KelBaseUnknown
{
public:
  explicit KelCountedObject(int& ioDestroyed) : _Destroyed(ioDestroyed) {}
  ~KelCountedObject() override { ++_Destroyed; }

private:
  int& _Destroyed;
};
}  // namespace

TEST(KelDico, IteratesInInsertionOrder)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  for (const char* Key : {"zeta", "alpha", "mu", "beta", "omega", "a", "z"})
    Dico.Insert(Key, KelUnicodeString(Key).Append("!"));
  EXPECT_EQ(KeysOf(Dico), (std::vector<std::string>{"zeta", "alpha", "mu", "beta", "omega", "a", "z"}));
  std::vector<std::string> Values;
  for (const KelUnicodeString& Value : Dico)
    Values.push_back(Value.ToUtf8());
  EXPECT_EQ(Values, (std::vector<std::string>{"zeta!", "alpha!", "mu!", "beta!", "omega!", "a!", "z!"}));
}

TEST(KelDico, InsertOfAPresentKeyKeepsTheExistingEntry)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  EXPECT_TRUE(Dico.Insert("k", "first"));
  EXPECT_TRUE(Dico.Insert("other", "x"));
  EXPECT_FALSE(Dico.Insert("k", "second"));
  EXPECT_EQ(Dico.Size(), 2);
  EXPECT_EQ(Dico["k"], "first");
  EXPECT_EQ(KeysOf(Dico), (std::vector<std::string>{"k", "other"}));
}

TEST(KelDico, KeysAreExactAndCaseSensitive)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  Dico.Insert("Key", "1");
  EXPECT_TRUE(Dico.HasKey("Key"));
  EXPECT_FALSE(Dico.HasKey("key"));
  EXPECT_FALSE(Dico.HasKey("Key "));
  EXPECT_TRUE(Dico.Insert("key", "2"));
  EXPECT_EQ(Dico.Size(), 2);
}

TEST(KelDico, FindAndConstIndexOfAnAbsentKeyAddNothing)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  Dico.Insert("a", "1");
  const KelUnicodeStringKelUnicodeStringDico& Const = Dico;
  EXPECT_EQ(Const["missing"], "");
  EXPECT_EQ(Const.Find("missing"), nullptr);
  ASSERT_NE(Const.Find("a"), nullptr);
  EXPECT_EQ(*Const.Find("a"), "1");
  EXPECT_EQ(Dico.Size(), 1);
}

TEST(KelDico, IndexOfAnAbsentKeyAddsAnEmptyEntryAtTheEnd)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  Dico.Insert("a", "1");
  Dico["b"] += "2";
  Dico["a"] += "1";
  EXPECT_EQ(KeysOf(Dico), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Dico["a"], "11");
  EXPECT_EQ(Dico["b"], "2");
}

TEST(KelDico, RemoveAllEmptiesAndAllowsNewEntries)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  Dico.Insert("a", "1");
  Dico.RemoveAll();
  EXPECT_EQ(Dico.Size(), 0);
  EXPECT_FALSE(Dico.HasKey("a"));
  EXPECT_TRUE(Dico.begin() == Dico.end());
  EXPECT_TRUE(Dico.Insert("a", "2"));
  EXPECT_EQ(Dico["a"], "2");
}

TEST(KelDico, CopyAndMoveKeepEntriesOrderAndLookup)
{
  KelUnicodeStringListKelUnicodeStringDico Dico;
  // Long keys live outside the string object: the index must follow copies.
  const std::string Long(100, 'k');
  Dico.Insert(KelUnicodeString(Long), KelUnicodeStringList{"x", "y"});
  Dico.Insert("short", KelUnicodeStringList{});
  KelUnicodeStringListKelUnicodeStringDico Copy = Dico;
  Dico.RemoveAll();
  EXPECT_EQ(KeysOf(Copy), (std::vector<std::string>{Long, "short"}));
  EXPECT_TRUE(Copy.HasKey(KelUnicodeString(Long)));
  EXPECT_EQ(Copy[KelUnicodeString(Long)], (KelUnicodeStringList{"x", "y"}));
  KelUnicodeStringListKelUnicodeStringDico Moved = std::move(Copy);
  EXPECT_TRUE(Moved.HasKey("short"));
  KelUnicodeStringListKelUnicodeStringDico Assigned;
  Assigned.Insert("old", KelUnicodeStringList{});
  Assigned = Moved;
  EXPECT_TRUE(Assigned == Moved);
  EXPECT_FALSE(Assigned.HasKey("old"));
  EXPECT_TRUE(Assigned.HasKey(KelUnicodeString(Long)));
  // Many insertions: entries never move, lookups stay right.
  for (int i = 0; i < 1000; ++i)
    Assigned.Insert(KelUnicodeString(std::to_string(i) + Long),
                    KelUnicodeStringList{KelUnicodeString(std::to_string(i))});
  for (int i = 0; i < 1000; i += 97)
    EXPECT_EQ(Assigned[KelUnicodeString(std::to_string(i) + Long)][0], KelUnicodeString(std::to_string(i)));
}

TEST(KelDico, ReferenceValuesAreHeldUntilRemoved)
{
  int Destroyed = 0;
  {
    KelBaseUnknown_varKelUnicodeStringDico Dico;
    KelCountedObject* pObject = new KelCountedObject(Destroyed);
    Dico.Insert("o", KelBaseUnknown_var::Adopt(pObject));
    EXPECT_EQ(pObject->GetRefCount(), 1u);
    KelBaseUnknown_varKelUnicodeStringDico Copy = Dico;
    EXPECT_EQ(pObject->GetRefCount(), 2u);
    Dico.RemoveAll();
    EXPECT_EQ(Destroyed, 0);
  }
  EXPECT_EQ(Destroyed, 1);
}
