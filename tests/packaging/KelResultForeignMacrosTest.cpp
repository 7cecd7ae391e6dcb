// A program whose platform header defines the result names as macros
// includes every header of the library after it, and both work together.
#include "ForeignResultMacros.h"
#include "MabRixEveryHeader.h"
#include "MabRixReadObjectList.h"

#include <gtest/gtest.h>

TEST(KelResultForeignMacros, TheMacrosStayThePlatformOnes)
{
  static_assert(FAILED(E_FAIL) && SUCCEEDED(S_FALSE) && TRUE == 1 && FALSE == 0);
  EXPECT_EQ(KelResult::Fail, E_FAIL);
  EXPECT_EQ(KelResult::Unexpected, E_UNEXPECTED);
  EXPECT_EQ(KelResult::OutOfMemory, E_OUTOFMEMORY);
  EXPECT_EQ(KelResult::InvalidArg, E_INVALIDARG);
  EXPECT_EQ(KelResult::OkFalse, S_FALSE);
}

TEST(KelResultForeignMacros, AHandlerWrittenWithTheMacrosReadsAnObjectList)
{
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  EXPECT_EQ(S_OK, MabRixReadObjectList(MabRixOneObjectList, pContext));
  ASSERT_EQ(1u, pContext->GetMinorObjects().size());
  EXPECT_STREQ("Bracket-100", pContext->GetMinorObjects().front()->GetKeyName().ConvertToChar());
  pContext->Release();
}
