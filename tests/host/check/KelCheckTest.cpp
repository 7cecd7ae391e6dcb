#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "KelCheck.h"
#include "MabRixTestSupport.h"

namespace
{
// Reports through the macros from this file, as a library source would.
bool CheckPositive(int iValue) { return KelCheck(iValue > 0); }
}  // namespace

TEST(KelCheck, PassingCheckReportsNothing)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_TRUE(CheckPositive(1));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(KelCheck, FailingCheckReportsTheExpressionAsWrittenWithFileAndLine)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const int Line = __LINE__ + 1;
  const bool Result = KelCheck(!!Line && Line < 0);
  EXPECT_FALSE(Result);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:!!Line && Line < 0");
  EXPECT_EQ(Reporter.Reports()[0]._File, __FILE__);
  EXPECT_EQ(Reporter.Reports()[0]._Line, Line);
}

TEST(KelCheck, AnswerGoOnLetsTheOperationContinue)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  EXPECT_TRUE(CheckPositive(0));
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:iValue > 0"}));
}

TEST(KelCheck, CheckTextReportsTheGivenText)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_FALSE(KelCheckText(false, "ExpressionCheck:this->Something(x)"));
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:this->Something(x)"}));
}

TEST(KelCheck, WithoutAReporterTheAnswerIsStopAndNothingIsPrinted)
{
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int Answer = KelSysCheckFailure("ExpressionCheck:x", 0, 0, 0, "file", 1);
  const bool Result = CheckPositive(0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(Answer, 0);
  EXPECT_FALSE(Result);
}

TEST(KelCheck, ReporterScopesNestAndRestoreThePreviousReporter)
{
  MabRixTestReporter Outer(MabRixTestReporter::GoOn);
  {
    MabRixTestReporter Inner(MabRixTestReporter::Stop);
    EXPECT_FALSE(CheckPositive(0));
    EXPECT_EQ(Inner.Reports().size(), 1u);
  }
  EXPECT_TRUE(CheckPositive(0));
  EXPECT_EQ(Outer.Reports().size(), 1u);
}

TEST(KelCheck, ReporterIsPerThread)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  int OtherAnswer = -1;
  std::thread Other([&] { OtherAnswer = KelSysCheckFailure("ExpressionCheck:other", 0, 0, 0, "f", 2); });
  Other.join();
  EXPECT_EQ(OtherAnswer, 0);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(KelCheck, FatalErrorReachesTheInstalledHandler)
{
  MabRixThrowingFatalHandler Handler;
  try
  {
    KelFatal("AssertionFailed:pValue");
    FAIL() << "the fatal handler did not run";
  }
  catch (const MabRixFatalErrorRaised& iRaised)
  {
    EXPECT_STREQ(iRaised.what(), "AssertionFailed:pValue");
    EXPECT_EQ(iRaised._File, __FILE__);
  }
}

TEST(KelCheckDeathTest, DefaultFatalHandlerPrintsAndAborts)
{
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(KelFatalError("AssertionFailed:pValue", 0, 0, 0, "some/file", 12),
               "AssertionFailed:pValue \\(some/file:12\\)");
}
