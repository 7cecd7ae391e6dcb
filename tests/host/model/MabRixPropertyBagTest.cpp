#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "MabRixArena.h"
#include "MabRixContextStore.h"
#include "MabRixPropertyBag.h"

namespace
{
const MabRixPropertyId State = MabRixPropertyIdOf("State");
const MabRixPropertyId LockStatus = MabRixPropertyIdOf("LockStatus");
const MabRixPropertyId Folder = MabRixPropertyIdOf("ConnectedFolder");
const MabRixPropertyId DocumentID = MabRixPropertyIdOf("MinorDocumentID");
const MabRixPropertyId Thumbnail = MabRixPropertyIdOf("Thumbnail");

std::string Listing(const MabRixPropertyBag& iBag)
{
  std::string Text;
  for (const MabRixProperty& Property : iBag.GetSetProperties())
  {
    Text += std::string(Property._Name) + "=";
    if (const KelUnicodeString* pText = std::get_if<KelUnicodeString>(&Property._Value))
      Text += pText->ToUtf8();
    else if (const unsigned char* pFlag = std::get_if<unsigned char>(&Property._Value))
      Text += std::to_string(*pFlag);
    else
      Text += "#" + std::to_string(Property._Value.index());
    Text += ";";
  }
  return Text;
}

void ExpectEveryKindRoundTrips(MabRixArena& ioArena, MabRixPropertyBag& ioBag)
{
  const std::string Long(300, 'x');  // a length of two varint bytes
  ioBag.Set(ioArena, State, KelUnicodeString("short"));
  ioBag.Set(ioArena, LockStatus, static_cast<unsigned char>(TRUE));
  ioBag.Set(ioArena, Folder, KelUnicodeStringList{"", Long.c_str(), "c"});
  ioBag.Set(ioArena, DocumentID, MabRixDocumentID::Create("", "name", MabRixPath("/p")));
  ioBag.Set(ioArena, Thumbnail, MabRixPath(""));
  // Replaced by longer, shorter and other-typed values: each keeps its place.
  ioBag.Set(ioArena, State, KelUnicodeString(Long.c_str()));
  ioBag.Set(ioArena, LockStatus, KelUnicodeString("now a text"));
  ioBag.Set(ioArena, State, KelUnicodeString(""));
  EXPECT_EQ(Listing(ioBag), "State=;LockStatus=now a text;ConnectedFolder=#2;MinorDocumentID=#4;Thumbnail=#3;");
  EXPECT_EQ(ioBag.GetSetProperties().size(), 5u);

  KelUnicodeStringList List;
  EXPECT_EQ(ioBag.Get(Folder, List), S_OK);
  EXPECT_EQ(List, (KelUnicodeStringList{"", Long.c_str(), "c"}));
  MabRixDocumentID ID;
  EXPECT_EQ(ioBag.Get(DocumentID, ID), S_OK);
  EXPECT_EQ(ID, MabRixDocumentID::Create("", "name", MabRixPath("/p")));
  MabRixPath Path("untouched");
  EXPECT_EQ(ioBag.Get(Thumbnail, Path), S_OK);
  EXPECT_FALSE(Path.IsValid());
  unsigned char Flag = 7;
  EXPECT_EQ(ioBag.Get(LockStatus, Flag), E_FAIL);  // a text now
  EXPECT_EQ(Flag, 7);
  KelUnicodeString Text = "untouched";
  EXPECT_EQ(ioBag.Get(MabRixPropertyIdOf("Status"), Text), E_FAIL);
  EXPECT_EQ(Text, "untouched");
  EXPECT_EQ(ioBag.Get(State, Text), S_OK);
  EXPECT_EQ(Text, "");
  EXPECT_EQ(ioBag.GetSetProperties()[2]._Value, MabRixPropertyValue(KelUnicodeStringList{"", Long.c_str(), "c"}));
}
}  // namespace

TEST(MabRixPropertyBag, EveryKindOfValueRoundTrips)
{
  MabRixArena Arena;
  MabRixPropertyBag Bag;
  EXPECT_TRUE(Bag.GetSetProperties().empty());
  ExpectEveryKindRoundTrips(Arena, Bag);
  EXPECT_GT(Arena.GetTakenBytes(), 0u);
}

TEST(MabRixArena, PiecesAreAlignedAndTheLatestGrowsInPlace)
{
  MabRixArena Arena;
  char* pFirst = static_cast<char*>(Arena.Allocate(3, 1));
  void* pAligned = Arena.Allocate(8, 8);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pAligned) % 8, 0u);
  EXPECT_FALSE(Arena.Extend(pFirst, 3, 4));  // not the latest any more
  EXPECT_TRUE(Arena.Extend(pAligned, 8, 64));
  // A piece larger than any chunk so far gets a chunk of its own.
  char* pLarge = static_cast<char*>(Arena.Allocate(1 << 20, 16));
  pLarge[(1 << 20) - 1] = 'x';
  EXPECT_GE(Arena.GetReservedBytes(), std::size_t(1) << 20);
}

TEST(MabRixArena, BlockSizesLeaveRoomToGrowAndFitTheNextBlockOfAboutTheirSize)
{
  EXPECT_EQ(MabRixArena::BlockBytes(1), 16u);
  EXPECT_EQ(MabRixArena::BlockBytes(17), 32u);
  EXPECT_EQ(MabRixArena::BlockBytes(64), 64u);
  EXPECT_EQ(MabRixArena::BlockBytes(65), 96u);
  EXPECT_EQ(MabRixArena::BlockBytes(97), 128u);
  EXPECT_EQ(MabRixArena::BlockBytes(177), 192u);
  EXPECT_EQ(MabRixArena::BlockBytes(1000), 1024u);
  EXPECT_EQ(MabRixArena::BlockBytes(1025), 1536u);
}

TEST(MabRixArena, ABlockGivenBackServesTheNextBlockOfItsSize)
{
  MabRixArena Arena;
  void* pBlock = Arena.AllocateBlock(96);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pBlock) % alignof(void*), 0u);
  Arena.Allocate(8);  // the block is no longer the latest piece
  Arena.RecycleBlock(pBlock, 96);
  EXPECT_NE(Arena.AllocateBlock(64), pBlock);  // another size
  const std::size_t Taken = Arena.GetTakenBytes();
  EXPECT_EQ(Arena.AllocateBlock(96), pBlock);
  EXPECT_EQ(Arena.GetTakenBytes(), Taken);
  EXPECT_NE(Arena.AllocateBlock(96), pBlock);  // taken once only
}

TEST(MabRixPropertyBag, ABlockThatMovesLeavesItsRoomToTheNextBag)
{
  MabRixArena Arena;
  MabRixPropertyBag First;
  MabRixPropertyBag Second;
  First.Set(Arena, MabRixPropertyIdOf("Name"), KelUnicodeString("a name of twenty-five b"));
  Second.Set(Arena, MabRixPropertyIdOf("Name"), KelUnicodeString("x"));
  // The first bag is not the latest piece: it moves, and the third bag takes
  // its old room instead of new room.
  First.Set(Arena, MabRixPropertyIdOf("Type"), KelUnicodeString("a type long enough to move the block"));
  const std::size_t Taken = Arena.GetTakenBytes();
  MabRixPropertyBag Third;
  Third.Set(Arena, MabRixPropertyIdOf("Name"), KelUnicodeString("a name of twenty-five b"));
  EXPECT_EQ(Arena.GetTakenBytes(), Taken);
  KelUnicodeString Name;
  EXPECT_EQ(First.Get(MabRixPropertyIdOf("Name"), Name), S_OK);
  EXPECT_EQ(Name, "a name of twenty-five b");
  EXPECT_EQ(Third.Get(MabRixPropertyIdOf("Name"), Name), S_OK);
  EXPECT_EQ(Name, "a name of twenty-five b");
}

TEST(MabRixContextStore, OneCopyOfEachText)
{
  MabRixContextStore* pStore = new MabRixContextStore();
  const KelUnicodeString& Part = pStore->Intern("a type name longer than a short string");
  for (int i = 0; i < 100; ++i)
    pStore->Intern("name" + std::to_string(i));  // the table grows
  EXPECT_EQ(&pStore->Intern("a type name longer than a short string"), &Part);
  EXPECT_EQ(Part, "a type name longer than a short string");
  EXPECT_EQ(pStore->Intern("name42"), "name42");
  EXPECT_NE(&pStore->Intern(""), &Part);
  pStore->Release();
}
