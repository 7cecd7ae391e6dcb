#include <gtest/gtest.h>
#include "MabRixTestSupport.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
TEST(Smoke, StringHandlerReadsText)
{
  MabRixTestReading Reading = MabRixRead("<a>hello</a>", MabRixMake<MabRixSAXHandlerString>());
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Reading.Values()[0])->_Value, "hello");
}
