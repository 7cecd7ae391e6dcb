#include <gtest/gtest.h>

#include "MabRixSAXHandlerStringListMap.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringUtils.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerStringListMap";

MabRixHandlerFactory ListMap(const char* iFirst, const char* iSecond, const char* iList)
{
  return MabRixMake<MabRixSAXHandlerStringListMap>(KelUnicodeString(iFirst), KelUnicodeString(iSecond),
                                                   KelUnicodeString(iList));
}

MabRixStringListMapValue* ListMapOf(const MabIRixValue_var& iValue)
{
  MabRixStringListMapValue* pValue = MabRixValueAs<MabRixStringListMapValue>(iValue);
  EXPECT_NE(pValue, nullptr);
  return pValue;
}
}  // namespace

TEST(MabRixSAXHandlerStringListMap, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerStringListMap* pHandler = new MabRixSAXHandlerStringListMap(Tree.Root(), ";", "=", ",");
  MabRixExpectRegistered<MabRixSAXHandlerStringListMap>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerStringListMap(*pHandler),
            static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerStringListMap, CutsEntriesKeysAndListsWithTheSeparatorsInConstructorOrder)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead("<m>a=1,2;b=3</m>", ListMap(";", "=", ","));
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringListMapValue");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  MabRixStringListMapValue* pValue = ListMapOf(Reading.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  ASSERT_EQ(pValue->_Value.Size(), 2);
  EXPECT_EQ(MabRixTexts(pValue->_Value["a"]), (MabRixStrings{"1", "2"}));
  EXPECT_EQ(MabRixTexts(pValue->_Value["b"]), (MabRixStrings{"3"}));
  EXPECT_EQ(pValue->_Value.begin().GetKey(), "a");
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_EQ(pValue->_Value, MabRixStringUtils::GetListMap("a=1,2;b=3", ";", "=", ","));
}

TEST(MabRixSAXHandlerStringListMap, EmptyElementGivesTheSplitOfTheEmptyText)
{
  MabRixTestReading Reading = MabRixRead("<m/>", ListMap(";", "=", ","));
  ASSERT_EQ(Reading.Values().size(), 1u);
  MabRixStringListMapValue* pValue = ListMapOf(Reading.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(pValue->_Value, MabRixStringUtils::GetListMap("", ";", "=", ","));
  EXPECT_EQ(pValue->_Value.Size(), 0);
}

TEST(MabRixSAXHandlerStringListMap, SeparatorCutAcrossTwoTextPiecesIsStillFound)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler =
      MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerStringListMap(Tree.Root(), "||", "==", ",,"));
  ASSERT_EQ(spHandler->StartHandlingEvents("m", nullptr), S_OK);
  for (const char* Piece : {"a=", "=1,", ",2|", "|b==3"})
    EXPECT_EQ(spHandler->Characters(Piece), S_OK);
  EXPECT_EQ(spHandler->EndElement("m"), S_OK);
  ASSERT_EQ(Tree.Values().size(), 1u);
  MabRixStringListMapValue* pValue = ListMapOf(Tree.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  ASSERT_EQ(pValue->_Value.Size(), 2);
  EXPECT_EQ(MabRixTexts(pValue->_Value["a"]), (MabRixStrings{"1", "2"}));
  EXPECT_EQ(MabRixTexts(pValue->_Value["b"]), (MabRixStrings{"3"}));
}

TEST(MabRixSAXHandlerStringListMap, WhiteSpaceAroundPiecesIsKept)
{
  MabRixTestReading Reading = MabRixRead("<m> a = 1 , 2 </m>", ListMap(";", "=", ","));
  ASSERT_EQ(Reading.Values().size(), 1u);
  MabRixStringListMapValue* pValue = ListMapOf(Reading.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  ASSERT_TRUE(pValue->_Value.HasKey(" a "));
  EXPECT_EQ(MabRixTexts(pValue->_Value[" a "]), (MabRixStrings{" 1 ", " 2 "}));
}

TEST(MabRixSAXHandlerStringListMap, NestedElementFailsAfterReportingFalse)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixTestReading Reading = MabRixRead("<m>a=1<x/></m>", ListMap(";", "=", ","));
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(Reporter.Texts(),
              (MabRixStrings{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
    MabRixExpectReportsFrom(Reporter, Class);
    ASSERT_EQ(Reading.Values().size(), Answer == MabRixTestReporter::GoOn ? 2u : 1u);
    EXPECT_EQ(Reading._spParser->GetCallbackFailures().size(), Answer == MabRixTestReporter::GoOn ? 1u : 2u);
  }
}
