#include <gtest/gtest.h>

#include <utility>

#include "KelVar.h"

namespace
{
class KelITestReader : public virtual KelBaseUnknown
{
public:
  virtual int Read() = 0;
};
typedef KelVar<KelITestReader> KelITestReader_var;

class KelITestWriter : public virtual KelBaseUnknown
{
public:
  virtual void Write(int iValue) = 0;
};
typedef KelVar<KelITestWriter> KelITestWriter_var;

class KelITestUnrelated : public virtual KelBaseUnknown
{};
typedef KelVar<KelITestUnrelated> KelITestUnrelated_var;

// Implements both interfaces; counts its destructions.
class KelTestCell : public virtual KelITestReader, public virtual KelITestWriter
{
public:
  explicit KelTestCell(int& ioDestroyed) : _Destroyed(ioDestroyed) {}
  ~KelTestCell() override { ++_Destroyed; }
  int Read() override { return _Value; }
  void Write(int iValue) override { _Value = iValue; }

private:
  int& _Destroyed;
  int _Value = 0;
};
}  // namespace

TEST(KelVar, ObjectStartsWithTheCreatorsReference)
{
  int Destroyed = 0;
  KelTestCell* pCell = new KelTestCell(Destroyed);
  EXPECT_EQ(pCell->GetRefCount(), 1u);
  pCell->AddRef();
  EXPECT_EQ(pCell->GetRefCount(), 2u);
  pCell->Release();
  EXPECT_EQ(Destroyed, 0);
  pCell->Release();
  EXPECT_EQ(Destroyed, 1);
}

TEST(KelVar, BuiltFromAPointerTakesANewReference)
{
  int Destroyed = 0;
  KelTestCell* pCell = new KelTestCell(Destroyed);
  {
    KelITestReader_var spReader(pCell);
    EXPECT_EQ(pCell->GetRefCount(), 2u);
  }
  EXPECT_EQ(pCell->GetRefCount(), 1u);
  pCell->Release();
  EXPECT_EQ(Destroyed, 1);
}

TEST(KelVar, AdoptTakesOverTheCreationReference)
{
  int Destroyed = 0;
  {
    KelITestReader_var spReader = KelITestReader_var::Adopt(new KelTestCell(Destroyed));
    EXPECT_EQ(spReader->GetRefCount(), 1u);
    KelITestReader_var spCopy = spReader;
    EXPECT_EQ(spReader->GetRefCount(), 2u);
    KelITestReader_var spMoved = std::move(spCopy);
    EXPECT_TRUE(!spCopy);
    EXPECT_EQ(spReader->GetRefCount(), 2u);
  }
  EXPECT_EQ(Destroyed, 1);
}

TEST(KelVar, ConversionReachesAnotherInterfaceOfTheSameObject)
{
  int Destroyed = 0;
  KelITestWriter_var spWriter = KelITestWriter_var::Adopt(new KelTestCell(Destroyed));
  KelITestReader_var spReader = spWriter;
  ASSERT_FALSE(!spReader);
  spWriter->Write(42);
  EXPECT_EQ(spReader->Read(), 42);
  EXPECT_EQ(spReader->GetImpl(), spWriter->GetImpl());
  EXPECT_TRUE(spReader == spWriter);
  EXPECT_EQ(spWriter->GetRefCount(), 2u);
  KelBaseUnknown_var spUnknown = spReader;
  KelITestWriter_var spBack = spUnknown;
  EXPECT_EQ(spBack.Get(), spWriter.Get());
}

TEST(KelVar, ConversionToAnInterfaceTheObjectLacksIsNull)
{
  int Destroyed = 0;
  KelITestReader_var spReader = KelITestReader_var::Adopt(new KelTestCell(Destroyed));
  KelITestUnrelated_var spUnrelated = spReader;
  EXPECT_TRUE(!spUnrelated);
  EXPECT_EQ(spUnrelated.Get(), nullptr);
  EXPECT_EQ(spReader->GetRefCount(), 1u);
  KelITestUnrelated_var spFromPointer(spReader.Get());
  EXPECT_TRUE(!spFromPointer);
  spUnrelated = spReader;
  EXPECT_TRUE(!spUnrelated);
}

TEST(KelVar, ArrowOnANullReferenceRaisesTheNullVarError)
{
  KelITestReader_var spReader;
  EXPECT_TRUE(!spReader);
  EXPECT_FALSE(static_cast<bool>(spReader));
  EXPECT_THROW(spReader->Read(), KelNullVarError);
  EXPECT_THROW(*spReader, KelNullVarError);
  KelITestReader_var spNull(nullptr);
  EXPECT_THROW(spNull->Read(), KelNullVarError);
  EXPECT_THROW(ThrowErrorNullVar(), KelNullVarError);
}

TEST(KelVar, AssignmentReleasesTheOldObject)
{
  int Destroyed = 0;
  KelITestReader_var spReader = KelITestReader_var::Adopt(new KelTestCell(Destroyed));
  spReader = KelITestReader_var::Adopt(new KelTestCell(Destroyed));
  EXPECT_EQ(Destroyed, 1);
  spReader = spReader;
  EXPECT_EQ(Destroyed, 1);
  EXPECT_EQ(spReader->GetRefCount(), 1u);
  spReader = nullptr;
  EXPECT_EQ(Destroyed, 2);
}

TEST(KelVar, ImplCastGivesTheImplementationOrNull)
{
  int Destroyed = 0;
  KelITestReader_var spReader = KelITestReader_var::Adopt(new KelTestCell(Destroyed));
  EXPECT_NE(KelImplCast<KelTestCell>(spReader.Get()), nullptr);
  EXPECT_EQ(KelImplCast<KelTestCell>(static_cast<KelITestReader*>(nullptr)), nullptr);
}
