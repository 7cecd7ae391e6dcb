// Large dictionaries (found through the index rather than a scan), entry
// stability, copies, moves and reuse after RemoveAll.
#include <gtest/gtest.h>

#include <memory_resource>
#include <string>
#include <utility>

#include "KelDicos.h"

namespace
{
KelUnicodeString KeyOf(int i) { return KelUnicodeString("key-" + std::to_string(i)); }

KelUnicodeStringKelUnicodeStringDico Numbered(int iCount)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  for (int i = 0; i < iCount; ++i)
    Dico.Insert(KeyOf(i), KelUnicodeString(std::to_string(i)));
  return Dico;
}
}  // namespace

TEST(KelDicoIndex, EveryKeyOfALargeDictionaryIsFoundAndOrderIsKept)
{
  const int Count = 5000;
  const KelUnicodeStringKelUnicodeStringDico Dico = Numbered(Count);
  ASSERT_EQ(Dico.Size(), Count);
  for (int i = 0; i < Count; ++i)
  {
    ASSERT_TRUE(Dico.HasKey(KeyOf(i))) << i;
    ASSERT_EQ(Dico[KeyOf(i)], KelUnicodeString(std::to_string(i)));
  }
  EXPECT_FALSE(Dico.HasKey("key-5000"));
  EXPECT_FALSE(Dico.HasKey(""));
  EXPECT_EQ(Dico.Find("key-"), nullptr);
  int Expected = 0;
  for (auto It = Dico.begin(); It != Dico.end(); ++It, ++Expected)
    ASSERT_EQ(It.GetKey(), KeyOf(Expected));
  EXPECT_EQ(Expected, Count);
}

TEST(KelDicoIndex, FirstValueWinsAtEverySize)
{
  for (const int Count : {1, 7, 8, 9, 16, 17, 100, 1000})
  {
    KelUnicodeStringKelUnicodeStringDico Dico = Numbered(Count);
    for (int i = 0; i < Count; ++i)
      ASSERT_FALSE(Dico.Insert(KeyOf(i), "again")) << Count << " " << i;
    EXPECT_EQ(Dico.Size(), Count);
    EXPECT_EQ(Dico[KeyOf(Count - 1)], KelUnicodeString(std::to_string(Count - 1)));
  }
}

TEST(KelDicoIndex, ValuesDoNotMoveWhenTheDictionaryGrows)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  KelUnicodeString& First = Dico["first"];
  First = "kept";
  for (int i = 0; i < 3000; ++i)
    Dico[KeyOf(i)] = "x";
  EXPECT_EQ(&First, &Dico["first"]);
  EXPECT_EQ(First, "kept");
}

TEST(KelDicoIndex, CopiesAreEqualAndIndependent)
{
  const KelUnicodeStringKelUnicodeStringDico Original = Numbered(300);
  KelUnicodeStringKelUnicodeStringDico Copy(Original);
  EXPECT_TRUE(Copy == Original);
  Copy.Insert("extra", "1");
  EXPECT_TRUE(Copy != Original);
  EXPECT_FALSE(Original.HasKey("extra"));
  EXPECT_TRUE(Copy.HasKey("key-299"));
  KelUnicodeStringKelUnicodeStringDico Assigned = Numbered(3);
  Assigned = Original;
  EXPECT_TRUE(Assigned == Original);
  EXPECT_FALSE(Assigned.Insert("key-150", "other"));
  EXPECT_TRUE(Assigned.Insert("key-300", "new"));
  EXPECT_EQ(Assigned.Size(), 301);
}

TEST(KelDicoIndex, AMovedFromDictionaryIsEmptyAndUsable)
{
  KelUnicodeStringKelUnicodeStringDico Source = Numbered(50);
  KelUnicodeStringKelUnicodeStringDico Target(std::move(Source));
  EXPECT_EQ(Target.Size(), 50);
  EXPECT_TRUE(Target.HasKey("key-49"));
  EXPECT_EQ(Source.Size(), 0);  // NOLINT: moved-from state is specified as empty
  EXPECT_TRUE(Source.Insert("a", "b"));
  EXPECT_EQ(Source["a"], "b");
  Target = std::move(Source);
  EXPECT_EQ(Target.Size(), 1);
  EXPECT_FALSE(Target.HasKey("key-1"));
}

TEST(KelDicoIndex, RemoveAllEmptiesAndTheDictionaryFillsAgain)
{
  KelUnicodeStringKelUnicodeStringDico Dico = Numbered(200);
  Dico.RemoveAll();
  EXPECT_EQ(Dico.Size(), 0);
  EXPECT_FALSE(Dico.HasKey("key-0"));
  EXPECT_TRUE(Dico.begin() == Dico.end());
  for (int i = 199; i >= 0; --i)
    ASSERT_TRUE(Dico.Insert(KeyOf(i), "again"));
  EXPECT_EQ(Dico.begin().GetKey(), "key-199");
  EXPECT_TRUE(Dico.HasKey("key-0"));
  EXPECT_EQ(Dico.Size(), 200);
}

TEST(KelDicoIndex, CountedValuesAreReleasedWithTheDictionary)
{
  class Counted : public KelBaseUnknown
  {
  public:
    explicit Counted(int& ioDestroyed) : _Destroyed(ioDestroyed) {}
    ~Counted() override { ++_Destroyed; }

  private:
    int& _Destroyed;
  };
  int Destroyed = 0;
  {
    KelBaseUnknown_varKelUnicodeStringDico Dico;
    for (int i = 0; i < 40; ++i)
      Dico.Insert(KeyOf(i), KelBaseUnknown_var::Adopt(new Counted(Destroyed)));
    KelBaseUnknown_varKelUnicodeStringDico Copy = Dico;
    Dico.RemoveAll();
    EXPECT_EQ(Destroyed, 0);
  }
  EXPECT_EQ(Destroyed, 40);
}

TEST(KelDicoIndex, TakeCompactMovesTheEntriesAndLeavesTheSourceEmptyAndUsable)
{
  for (const int Count : {0, 1, 3, 7, 8, 9, 40})
  {
    KelUnicodeStringKelUnicodeStringDico Source = Numbered(Count);
    KelUnicodeStringKelUnicodeStringDico Target = Numbered(2);
    Target.TakeCompact(Source);
    ASSERT_EQ(Target.Size(), Count) << Count;
    EXPECT_EQ(Target, Numbered(Count)) << Count;
    EXPECT_EQ(Source.Size(), 0) << Count;
    Source.Insert("again", "1");
    EXPECT_EQ(Source.Size(), 1);
    EXPECT_EQ(Source["again"], KelUnicodeString("1"));
  }
}

TEST(KelDicoIndex, ACompactDictionaryGrowsPastItsRoomWithEveryEntryKept)
{
  KelUnicodeStringKelUnicodeStringDico Source = Numbered(3);
  KelUnicodeStringKelUnicodeStringDico Compact;
  Compact.TakeCompact(Source);
  for (int i = 3; i < 100; ++i)
    ASSERT_TRUE(Compact.Insert(KeyOf(i), KelUnicodeString(std::to_string(i))));
  EXPECT_EQ(Compact, Numbered(100));
  EXPECT_FALSE(Compact.Insert(KeyOf(1), "other"));
  EXPECT_EQ(Compact[KeyOf(1)], KelUnicodeString("1"));
}

TEST(KelDicoIndex, ASmallCopyGrowsAndTheOriginalIsUntouched)
{
  const KelUnicodeStringKelUnicodeStringDico Original = Numbered(2);
  KelUnicodeStringKelUnicodeStringDico Copy(Original);
  for (int i = 2; i < 20; ++i)
    Copy.Insert(KeyOf(i), KelUnicodeString(std::to_string(i)));
  EXPECT_EQ(Copy, Numbered(20));
  EXPECT_EQ(Original, Numbered(2));
  Copy = Original;
  EXPECT_EQ(Copy, Original);
}

TEST(KelDicoIndex, ShrinkToFitKeepsEveryEntryAndTheDictionaryStillGrows)
{
  for (const int Count : {0, 1, 5, 8, 30})
  {
    KelUnicodeStringKelUnicodeStringDico Dico = Numbered(Count);
    Dico.ShrinkToFit();
    ASSERT_EQ(Dico, Numbered(Count)) << Count;
    for (int i = Count; i < Count + 12; ++i)
      ASSERT_TRUE(Dico.Insert(KeyOf(i), KelUnicodeString(std::to_string(i))));
    EXPECT_EQ(Dico, Numbered(Count + 12)) << Count;
  }
}

namespace
{
// Counts what a dictionary takes from it and gives back.
class CountingResource : public std::pmr::memory_resource
{
public:
  std::size_t _Live = 0;
  std::size_t _Allocations = 0;

private:
  void* do_allocate(std::size_t iBytes, std::size_t iAlignment) override
  {
    ++_Live;
    ++_Allocations;
    return std::pmr::new_delete_resource()->allocate(iBytes, iAlignment);
  }
  void do_deallocate(void* ipPiece, std::size_t iBytes, std::size_t iAlignment) override
  {
    --_Live;
    std::pmr::new_delete_resource()->deallocate(ipPiece, iBytes, iAlignment);
  }
  bool do_is_equal(const std::pmr::memory_resource& iOther) const noexcept override { return this == &iOther; }
};
}  // namespace

TEST(KelDicoMemory, EntriesOfADictionaryWithAMemoryResourceTakeTheirRoomFromIt)
{
  CountingResource Memory;
  {
    KelUnicodeStringKelUnicodeStringDico Dico(&Memory);
    for (int i = 0; i < 100; ++i)
      Dico.Insert(KeyOf(i), "v");
    EXPECT_GT(Memory._Live, 1u);  // the first chunk and larger ones
    EXPECT_EQ(Dico["key-99"], "v");
  }
  EXPECT_EQ(Memory._Live, 0u);
}

TEST(KelDicoMemory, CopiesAndDictionariesMovedOutOfAMemoryResourceLiveOnTheHeap)
{
  CountingResource Memory;
  auto* pDico = new KelUnicodeStringKelUnicodeStringDico(&Memory);
  for (int i = 0; i < 20; ++i)
    pDico->Insert(KeyOf(i), KelUnicodeString("value " + std::to_string(i)));
  const std::size_t Taken = Memory._Allocations;
  KelUnicodeStringKelUnicodeStringDico Copy(*pDico);
  KelUnicodeStringKelUnicodeStringDico Moved(std::move(*pDico));
  KelUnicodeStringKelUnicodeStringDico Assigned;
  Assigned = Copy;
  EXPECT_EQ(Memory._Allocations, Taken);  // none of them took room from it
  EXPECT_EQ(pDico->Size(), 0);            // NOLINT(bugprone-use-after-move): emptied by the move
  delete pDico;
  EXPECT_EQ(Memory._Live, 0u);  // the resource may go: the others hold nothing of it
  for (const KelUnicodeStringKelUnicodeStringDico* pHeld : {&Copy, &Moved, &Assigned})
  {
    ASSERT_EQ(pHeld->Size(), 20);
    EXPECT_EQ((*pHeld)[KeyOf(19)], "value 19");
    EXPECT_TRUE(pHeld->HasKey(KeyOf(0)));
  }
}

TEST(KelDicoMemory, MovingIntoADictionaryWithAMemoryResourceKeepsItsResource)
{
  CountingResource Memory;
  KelUnicodeStringKelUnicodeStringDico Target(&Memory);
  for (const int Count : {3, 12})
  {
    KelUnicodeStringKelUnicodeStringDico Source = Numbered(Count);
    Target = std::move(Source);
    EXPECT_GT(Memory._Live, 0u);
    ASSERT_EQ(Target.Size(), Count);
    EXPECT_EQ(Target[KeyOf(Count - 1)], KelUnicodeString(std::to_string(Count - 1)));
    KelUnicodeStringKelUnicodeStringDico Compact = Numbered(5);
    Target.TakeCompact(Compact);
    EXPECT_EQ(Target.Size(), 5);
    EXPECT_EQ(Compact.Size(), 0);
  }
  Target.ShrinkToFit();
  EXPECT_EQ(Target[KeyOf(4)], "4");
  Target.RemoveAll();
  Target.Insert("after", "all");
  EXPECT_EQ(Target["after"], "all");
}

TEST(KelDicoRecycle, RecycleEmptiesTheDictionary)
{
  KelUnicodeStringKelUnicodeStringDico Dico = Numbered(5);
  Dico.Recycle();
  EXPECT_EQ(Dico.Size(), 0);
  EXPECT_FALSE(Dico.HasKey(KeyOf(0)));
  EXPECT_EQ(Dico.begin(), Dico.end());
  EXPECT_TRUE(Dico.Insert(KeyOf(3), "new"));
  EXPECT_FALSE(Dico.Insert(KeyOf(3), "again"));  // first wins, among the new entries only
  EXPECT_EQ(Dico[KeyOf(3)], "new");
  EXPECT_EQ(Dico.Size(), 1);
}

TEST(KelDicoRecycle, TheNextEntriesTakeTheRoomOfTheRecycledTexts)
{
  KelUnicodeStringKelUnicodeStringDico Dico;
  Dico.Insert("first", "a text longer than fifteen bytes, on the heap");
  Dico.Insert("second", "another text longer than fifteen bytes");
  const char* pFirstRoom = Dico["first"].ConvertToChar();
  const char* pSecondRoom = Dico["second"].ConvertToChar();
  Dico.Recycle();
  Dico.Insert("one", "a shorter text, still long");
  Dico.Insert("two", "the second one, long too");
  EXPECT_EQ(Dico["one"].ConvertToChar(), pFirstRoom);
  EXPECT_EQ(Dico["two"].ConvertToChar(), pSecondRoom);
  EXPECT_EQ(Dico["one"], "a shorter text, still long");
  EXPECT_EQ(Dico["two"], "the second one, long too");
}

TEST(KelDicoRecycle, ALargeDictionaryRecycledGrowsAgainWithEveryKeyFound)
{
  KelUnicodeStringKelUnicodeStringDico Dico = Numbered(50);
  for (int Round = 0; Round < 3; ++Round)
  {
    Dico.Recycle();
    for (int i = 0; i < 30; ++i)
      ASSERT_TRUE(Dico.Insert(KeyOf(100 + i), KelUnicodeString(std::to_string(i))));
    ASSERT_EQ(Dico.Size(), 30);
    for (int i = 0; i < 30; ++i)
      ASSERT_EQ(Dico[KeyOf(100 + i)], KelUnicodeString(std::to_string(i)));
    EXPECT_FALSE(Dico.HasKey(KeyOf(0)));
  }
}

TEST(KelDicoRecycle, CopiesMovesAndRemoveAllOfARecycledDictionarySeeOnlyItsEntries)
{
  KelUnicodeStringKelUnicodeStringDico Dico = Numbered(6);
  Dico.Recycle();
  Dico.Insert("kept", "value");
  const KelUnicodeStringKelUnicodeStringDico Copy(Dico);
  EXPECT_EQ(Copy.Size(), 1);
  KelUnicodeStringKelUnicodeStringDico Moved(std::move(Dico));
  EXPECT_EQ(Moved.Size(), 1);
  EXPECT_EQ(Moved["kept"], "value");
  Moved.Insert("more", "values");  // into a place kept by the recycling
  EXPECT_EQ(Moved.Size(), 2);
  Moved.RemoveAll();  // every kept place goes too (the sanitizers check it)
  EXPECT_EQ(Moved.Size(), 0);
  Moved.Insert("after", "all");
  EXPECT_EQ(Moved["after"], "all");
}
