// The version of the headers and of the library a program runs with.
#include <MabRix/MabRixVersion.h>

#include <gtest/gtest.h>
#include <string>

TEST(MabRixVersion, TheStringIsMadeOfTheThreeNumbers)
{
  EXPECT_EQ(std::to_string(MABRIX_VERSION_MAJOR) + "." + std::to_string(MABRIX_VERSION_MINOR) + "." +
                std::to_string(MABRIX_VERSION_PATCH),
            MABRIX_VERSION_STRING);
}

TEST(MabRixVersion, TheLibraryRunningIsTheOneTheHeadersDescribe)
{
  EXPECT_STREQ(MABRIX_VERSION_STRING, MabRixGetVersion());
}
