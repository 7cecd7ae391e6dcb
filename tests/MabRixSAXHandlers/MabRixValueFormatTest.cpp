#include <gtest/gtest.h>

#include "MabRixBooleanValue.h"
#include "MabRixBooleanValueFormat.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSAXHandlerStringList.h"
#include "MabRixStringListValue.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixValueTestSupport.h"

namespace
{
// Reads the document element through the handler iFormat makes.
MabRixHandlerFactory Through(MabRixValueFormat& iFormat)
{
  return [&iFormat](MabRixSAXHandlerBase& iParent) {
    MabIRixSAXHandler_var spHandler;
    EXPECT_EQ(iFormat.GetSubHandler(iParent, spHandler), S_OK);
    return spHandler;
  };
}

// The handler iFormat makes: of class iClass, child of the parent, not
// started, held only by the caller.
void ExpectSubHandler(MabRixValueFormat& iFormat, const char* iClass)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler;
  ASSERT_EQ(iFormat.GetSubHandler(Tree.Root(), spHandler), S_OK);
  ASSERT_TRUE(!!spHandler);
  EXPECT_STREQ(spHandler->GetImpl()->IsA(), iClass);
  EXPECT_EQ(spHandler->GetRefCount(), 1u);
  MabRixSAXHandlerBase* pHandler = KelImplCast<MabRixSAXHandlerBase>(spHandler.Get());
  ASSERT_NE(pHandler, nullptr);
  EXPECT_EQ(pHandler->GetParentHandler(), static_cast<MabIRixSAXHandler*>(&Tree.Root()));
  EXPECT_TRUE(pHandler->GetElementName().IsEmpty());

  // Each call makes a new handler.
  MabIRixSAXHandler_var spOther;
  ASSERT_EQ(iFormat.GetSubHandler(Tree.Root(), spOther), S_OK);
  EXPECT_NE(spOther.Get(), spHandler.Get());
}
}  // namespace

TEST(MabRixValueFormat, EveryFormatIsRegisteredUnderItsOwnName)
{
  MabRixStringValueFormat String;
  MabRixBooleanValueFormat Boolean;
  MabRixStringListValueFormat List(",");
  const std::vector<const char*> Bases{"MabRixValueFormat", "KelBaseUnknown"};
  MabRixExpectRegistered<MabRixStringValueFormat>(String, "MabRixStringValueFormat", Bases);
  MabRixExpectRegistered<MabRixBooleanValueFormat>(Boolean, "MabRixBooleanValueFormat", Bases);
  MabRixExpectRegistered<MabRixStringListValueFormat>(List, "MabRixStringListValueFormat", Bases);
  EXPECT_STREQ(MabRixValueFormat::ClassId(), "MabRixValueFormat");
  EXPECT_STREQ(MabRixValueFormat::MetaObject()->_Framework, "MabRixCommandModel");
  EXPECT_STREQ(MabRixValueFormat::MetaObject()->_BaseName, "KelBaseUnknown");
  EXPECT_FALSE(String.IsAKindOf("MabRixBooleanValueFormat"));
}

TEST(MabRixValueFormat, EachFormatMakesItsOwnHandlerUnstarted)
{
  MabRixStringValueFormat String;
  MabRixBooleanValueFormat Boolean;
  MabRixStringListValueFormat List(",");
  ExpectSubHandler(String, "MabRixSAXHandlerString");
  ExpectSubHandler(Boolean, "MabRixSAXHandlerBoolean");
  ExpectSubHandler(List, "MabRixSAXHandlerStringList");
}

TEST(MabRixValueFormat, PreviousChildHandlerIsReleasedByGetSubHandler)
{
  MabRixTestTree Tree;
  MabRixStringValueFormat Format;
  MabIRixSAXHandler_var spChild = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBoolean(Tree.Root()));
  const MabIRixSAXHandler_var spWatch = spChild;
  ASSERT_EQ(spWatch->GetRefCount(), 2u);
  ASSERT_EQ(Format.GetSubHandler(Tree.Root(), spChild), S_OK);
  EXPECT_EQ(spWatch->GetRefCount(), 1u);
  EXPECT_STREQ(spChild->GetImpl()->IsA(), "MabRixSAXHandlerString");
}

TEST(MabRixValueFormat, StringFormatReadsText)
{
  MabRixStringValueFormat Format;
  MabRixTestReading Reading = MabRixRead("<v> a;b </v>", Through(Format));
  ASSERT_EQ(Reading.Values().size(), 1u);
  ASSERT_NE(MabRixValueAs<MabRixStringValue>(Reading.Values()[0]), nullptr);
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Reading.Values()[0])->_Value, " a;b ");
}

TEST(MabRixValueFormat, BooleanFormatReadsTruth)
{
  MabRixBooleanValueFormat Format;
  MabRixBooleanValueFormat Copy(Format);
  MabRixTestReading Reading = MabRixRead("<v>yes</v>", Through(Copy));
  ASSERT_EQ(Reading.Values().size(), 1u);
  ASSERT_NE(MabRixValueAs<MabRixBooleanValue>(Reading.Values()[0]), nullptr);
  EXPECT_EQ(MabRixValueAs<MabRixBooleanValue>(Reading.Values()[0])->_Value, 1);
}

TEST(MabRixValueFormat, ListFormatPassesItsSeparator)
{
  MabRixStringListValueFormat Format("|");
  MabRixTestReading Reading = MabRixRead("<v>a|b,c</v>", Through(Format));
  ASSERT_EQ(Reading.Values().size(), 1u);
  ASSERT_NE(MabRixValueAs<MabRixStringListValue>(Reading.Values()[0]), nullptr);
  EXPECT_EQ(MabRixTexts(MabRixValueAs<MabRixStringListValue>(Reading.Values()[0])->_Value),
            (MabRixStrings{"a", "b,c"}));
}

TEST(MabRixValueFormat, ListFormatCopyAndAssignmentCopyTheSeparator)
{
  const MabRixStringListValueFormat Original("|");
  MabRixStringListValueFormat Copy(Original);
  EXPECT_EQ(Copy.GetListSeparator(), "|");
  EXPECT_EQ(Copy.GetRefCount(), 1u);

  MabRixStringListValueFormat Assigned(",");
  Assigned = Original;
  EXPECT_EQ(Assigned.GetListSeparator(), "|");
  MabRixTestReading Reading = MabRixRead("<v>a|b,c</v>", Through(Assigned));
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(MabRixTexts(MabRixValueAs<MabRixStringListValue>(Reading.Values()[0])->_Value),
            (MabRixStrings{"a", "b,c"}));
}
