#include <gtest/gtest.h>

#include "MabRixSAXHandlerStringMap.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringUtils.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerStringMap";

MabRixHandlerFactory Map(const char* iFirst, const char* iSecond)
{
  return MabRixMake<MabRixSAXHandlerStringMap>(KelUnicodeString(iFirst), KelUnicodeString(iSecond));
}

MabRixPairs EntriesOf(const MabIRixValue_var& iValue)
{
  MabRixStringMapValue* pValue = MabRixValueAs<MabRixStringMapValue>(iValue);
  EXPECT_NE(pValue, nullptr);
  return pValue ? MabRixEntries(pValue->_Value) : MabRixPairs{{"<not a map value>", ""}};
}
}  // namespace

TEST(MabRixSAXHandlerStringMap, IsRegisteredUnderItsOwnName)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerStringMap* pHandler = new MabRixSAXHandlerStringMap(Tree.Root(), ";", "=");
  MabRixExpectRegistered<MabRixSAXHandlerStringMap>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerStringMap(*pHandler), static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();
}

TEST(MabRixSAXHandlerStringMap, CutsEntriesThenKeysWithTheSeparatorsInConstructorOrder)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Reading = MabRixRead("<m>a=1;b=2;a=3</m>", Map(";", "="));
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringMapValue");
  EXPECT_EQ(EntriesOf(Reading.Values()[0]), (MabRixPairs{{"a", "1"}, {"b", "2"}}));
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());

  // The same text with the separators swapped is cut the other way.
  MabRixTestReading Swapped = MabRixRead("<m>a=1;b=2</m>", Map("=", ";"));
  ASSERT_EQ(Swapped.Values().size(), 1u);
  EXPECT_EQ(EntriesOf(Swapped.Values()[0]), MabRixEntries(MabRixStringUtils::GetMap("a=1;b=2", "=", ";")));
}

TEST(MabRixSAXHandlerStringMap, EmptyElementGivesTheSplitOfTheEmptyText)
{
  MabRixTestReading Reading = MabRixRead("<m></m>", Map(";", "="));
  ASSERT_EQ(Reading.Values().size(), 1u);
  MabRixStringMapValue* pValue = MabRixValueAs<MabRixStringMapValue>(Reading.Values()[0]);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(pValue->_Value, MabRixStringUtils::GetMap("", ";", "="));
  EXPECT_EQ(pValue->_Value.Size(), 0);
}

TEST(MabRixSAXHandlerStringMap, SeparatorCutAcrossTwoTextPiecesIsStillFound)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler =
      MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerStringMap(Tree.Root(), ";;", "=="));
  ASSERT_EQ(spHandler->StartHandlingEvents("m", nullptr), S_OK);
  for (const char* Piece : {"a=", "=1;", ";b", "==2"})
    EXPECT_EQ(spHandler->Characters(Piece), S_OK);
  EXPECT_EQ(spHandler->EndElement("m"), S_OK);
  ASSERT_EQ(Tree.Values().size(), 1u);
  EXPECT_EQ(EntriesOf(Tree.Values()[0]), (MabRixPairs{{"a", "1"}, {"b", "2"}}));

  MabRixTestReading Reading = MabRixRead("<m>a==1;;b==2</m>", Map(";;", "=="), "", 1);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(EntriesOf(Reading.Values()[0]), (MabRixPairs{{"a", "1"}, {"b", "2"}}));
}

TEST(MabRixSAXHandlerStringMap, WhiteSpaceAroundPiecesIsKept)
{
  MabRixTestReading Reading = MabRixRead("<m> a = 1 ; b=2 </m>", Map(";", "="));
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(EntriesOf(Reading.Values()[0]), (MabRixPairs{{" a ", " 1 "}, {" b", "2 "}}));
}

TEST(MabRixSAXHandlerStringMap, NestedElementFailsAfterReportingFalse)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixTestReading Reading = MabRixRead("<m>a=1<x></x></m>", Map(";", "="));
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(Reporter.Texts(),
              (MabRixStrings{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
    MabRixExpectReportsFrom(Reporter, Class);
    // Going on, the nested end hands up a value early; stopping, it fails.
    ASSERT_EQ(Reading.Values().size(), Answer == MabRixTestReporter::GoOn ? 2u : 1u);
    EXPECT_EQ(Reading._spParser->GetCallbackFailures().size(), Answer == MabRixTestReporter::GoOn ? 1u : 2u);
    EXPECT_EQ(EntriesOf(Reading.Values().back()), (MabRixPairs{{"a", "1"}}));
  }
}
