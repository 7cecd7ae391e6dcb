// The index of a context's entities: every entity found by its key through
// growth, keys of equal hash told apart, entities entered after they were
// made.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabERixObject.h"
#include "MabRixEntityIndex.h"

namespace
{
struct Objects
{
  std::vector<MabERixObject_var> _List;
  MabRixEntityIndex<MabERixObject> _Index{_List};

  MabERixObject* FindOrAdd(std::size_t iHash, const std::string& iName)
  {
    const KelUnicodeString Name(iName.c_str());
    return _Index.FindOrAdd(
        iHash, [&](const MabERixObject& iObject) { return iObject.GetKeyName() == Name; },
        [&] {
          _List.push_back(MabERixObject_var::Adopt(new MabERixObject("T", Name)));
          return _List.back().Get();
        });
  }
  MabERixObject* Find(std::size_t iHash, const std::string& iName) const
  {
    const KelUnicodeString Name(iName.c_str());
    return _Index.Find(iHash, [&](const MabERixObject& iObject) { return iObject.GetKeyName() == Name; });
  }
};

std::size_t HashOf(const std::string& iName)
{
  const KelUnicodeString Type("T");
  const KelUnicodeString Name(iName.c_str());
  return MabRixKeyHash({&Type, &Name});
}
}  // namespace

TEST(MabRixEntityIndex, EveryEntityIsFoundAgainThroughGrowthAndMadeOnce)
{
  Objects Context;
  for (int i = 0; i < 3000; ++i)
    ASSERT_NE(Context.FindOrAdd(HashOf("n" + std::to_string(i)), "n" + std::to_string(i)), nullptr);
  ASSERT_EQ(Context._List.size(), 3000u);
  for (int i = 0; i < 3000; ++i)
  {
    const std::string Name = "n" + std::to_string(i);
    MabERixObject* pFound = Context.Find(HashOf(Name), Name);
    ASSERT_EQ(pFound, Context._List[i].Get()) << Name;
    ASSERT_EQ(Context.FindOrAdd(HashOf(Name), Name), pFound);
  }
  EXPECT_EQ(Context._List.size(), 3000u);
  EXPECT_EQ(Context.Find(HashOf("n3000"), "n3000"), nullptr);
}

TEST(MabRixEntityIndex, KeysOfTheSameHashAreToldApartByTheirParts)
{
  Objects Context;
  MabERixObject* pFirst = Context.FindOrAdd(42, "first");
  MabERixObject* pSecond = Context.FindOrAdd(42, "second");
  EXPECT_NE(pFirst, pSecond);
  EXPECT_EQ(Context.Find(42, "first"), pFirst);
  EXPECT_EQ(Context.Find(42, "second"), pSecond);
  EXPECT_EQ(Context.Find(42, "third"), nullptr);
}

TEST(MabRixEntityIndex, AnEntityMadeFirstIsEnteredByItsPosition)
{
  Objects Context;
  Context.FindOrAdd(HashOf("a"), "a");
  Context._List.push_back(MabERixObject_var::Adopt(new MabERixObject("T", "late")));
  EXPECT_EQ(Context.Find(HashOf("late"), "late"), nullptr);
  Context._Index.Add(HashOf("late"), 1);
  EXPECT_EQ(Context.Find(HashOf("late"), "late"), Context._List[1].Get());
  EXPECT_EQ(Context.FindOrAdd(HashOf("late"), "late"), Context._List[1].Get());
  EXPECT_EQ(Context._List.size(), 2u);
}
