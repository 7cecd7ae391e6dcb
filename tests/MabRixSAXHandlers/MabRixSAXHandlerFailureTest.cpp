#include <gtest/gtest.h>

#include "KelNullVarError.h"
#include "MabRixFailureResponse.h"
#include "MabRixSAXHandlerFailure.h"
#include "MabRixValueTestSupport.h"

namespace
{
const char* const Class = "MabRixSAXHandlerFailure";
const char* const MissingCommandName =
    "ExpressionCheck:SUCCEEDED(iAttributes->GetValue(\"cname\", _pFailureResponse->_CommandName))";
const char* const MissingErrorCode =
    "ExpressionCheck:SUCCEEDED(iAttributes->GetValue(\"errorcode\", _pFailureResponse->_ErrorCode))";
const char* const MissingSuccess = "ExpressionCheck:SUCCEEDED(iAttributes->GetValue(\"success\", Success))";

MabRixTestReading ReadFailure(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerFailure>());
}

// The response of the handler under test, as a failure response.
MabIRixFailureResponse_var ResponseOf(const MabRixTestReading& iReading)
{
  MabIRixResponse_var spResponse;
  EXPECT_EQ(iReading.Handler()->GetResponse(spResponse), S_OK);
  return MabIRixFailureResponse_var(spResponse);
}
}  // namespace

TEST(MabRixSAXHandlerFailure, HandlerAndResponseAreRegisteredUnderTheirOwnNames)
{
  MabRixTestTree Tree;
  MabRixSAXHandlerFailure* pHandler = new MabRixSAXHandlerFailure(Tree.Root());
  MabRixExpectRegistered<MabRixSAXHandlerFailure>(*pHandler, Class, {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerFailure(*pHandler), static_cast<MabIRixSAXHandler*>(pHandler));
  pHandler->Release();

  MabRixFailureResponse* pResponse = new MabRixFailureResponse();
  MabRixExpectRegistered<MabRixFailureResponse>(*pResponse, "MabRixFailureResponse", {"KelBaseUnknown"});
  EXPECT_EQ(CreateBOAMabIRixFailureResponseMabRixFailureResponse(*pResponse),
            static_cast<MabIRixFailureResponse*>(pResponse));
  EXPECT_TRUE(!!MabIRixResponse_var(pResponse));
  pResponse->Release();
}

TEST(MabRixSAXHandlerFailure, FailureElementYieldsCommandNameErrorCodeAndReason)
{
  MabRixTestReporter Reporter;
  MabRixTestReading Failure = MabRixRead(
      "<root><failure success=\"false\" cname=\"checkin\" errorcode=\"1042\">"
      "<reason>Locked by someone else</reason></failure><after/></root>",
      MabRixMake<MabRixSAXHandlerFailure>(), "failure");
  EXPECT_EQ(Failure._Result, S_OK);
  MabIRixFailureResponse_var spResponse = ResponseOf(Failure);
  ASSERT_TRUE(!!spResponse);
  EXPECT_STREQ(spResponse->GetImpl()->IsA(), "MabRixFailureResponse");
  EXPECT_EQ(spResponse->GetCommandName(), "checkin");
  EXPECT_EQ(spResponse->GetErrorCode(), "1042");
  EXPECT_EQ(spResponse->GetReason(), "Locked by someone else");
  EXPECT_EQ(spResponse->Success(), 0);
  EXPECT_EQ(spResponse->Request(), 0);
  // Nothing goes to the parent; the parser came back to it.
  EXPECT_TRUE(Failure.Values().empty());
  EXPECT_EQ(Failure._spRoot->EventsAfterStart(), 3);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerFailure, SuccessTrueIsReportedThenReadAsUsual)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixTestReading Reading =
        ReadFailure("<failure success=\"true\" cname=\"c\" errorcode=\"7\"><reason>r</reason></failure>");
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reading._spRoot->StartResult(), S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:Success != \"true\""}));
    MabRixExpectReportsFrom(Reporter, Class);
    MabIRixFailureResponse_var spResponse = ResponseOf(Reading);
    ASSERT_TRUE(!!spResponse);
    EXPECT_EQ(spResponse->GetCommandName(), "c");
    EXPECT_EQ(spResponse->GetErrorCode(), "7");
    EXPECT_EQ(spResponse->GetReason(), "r");
  }
}

TEST(MabRixSAXHandlerFailure, MissingCommandNameIsReportedAndReadsEmpty)
{
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixTestReading Reading = ReadFailure("<failure success=\"false\" errorcode=\"7\"><reason>r</reason></failure>");
    EXPECT_EQ(Reading._spRoot->StartResult(), S_OK);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{MissingCommandName}));
    MabRixExpectReportsFrom(Reporter, Class);
    MabIRixFailureResponse_var spResponse = ResponseOf(Reading);
    ASSERT_TRUE(!!spResponse);
    EXPECT_EQ(spResponse->GetCommandName(), "");
    EXPECT_EQ(spResponse->GetErrorCode(), "7");
    EXPECT_EQ(spResponse->GetReason(), "r");
  }
}

TEST(MabRixSAXHandlerFailure, EveryMissingAttributeIsReportedInOrder)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixTestReading Reading = ReadFailure("<failure><reason>r</reason></failure>");
  EXPECT_EQ(Reading._spRoot->StartResult(), S_OK);
  EXPECT_EQ(Reporter.Texts(), (MabRixStrings{MissingCommandName, MissingErrorCode, MissingSuccess}));
  MabRixExpectReportsFrom(Reporter, Class);
  MabIRixFailureResponse_var spResponse = ResponseOf(Reading);
  ASSERT_TRUE(!!spResponse);
  EXPECT_EQ(spResponse->GetErrorCode(), "");
  EXPECT_EQ(spResponse->GetReason(), "r");
}

TEST(MabRixSAXHandlerFailure, TwoReasonElementsTheLastOneWins)
{
  MabRixTestReading Reading = ReadFailure(
      "<failure success=\"false\" cname=\"c\" errorcode=\"1\"><reason>first</reason><reason>second</reason></failure>");
  MabIRixFailureResponse_var spResponse = ResponseOf(Reading);
  ASSERT_TRUE(!!spResponse);
  EXPECT_EQ(spResponse->GetReason(), "second");
}

TEST(MabRixSAXHandlerFailure, OnlyTextInsideTheReasonReachesIt)
{
  MabRixTestReading Reading = ReadFailure(
      "<failure success=\"false\" cname=\"c\" errorcode=\"1\">before<reason>a<b>x</b> c</reason>after<other>o</other>"
      "</failure>");
  MabIRixFailureResponse_var spResponse = ResponseOf(Reading);
  ASSERT_TRUE(!!spResponse);
  EXPECT_EQ(spResponse->GetReason(), "ax c");
}

TEST(MabRixSAXHandlerFailure, GetResponseBeforeAnyParsingYieldsThreeEmptyTexts)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(Tree.Root()));
  MabIRixResponse_var spResponse;
  EXPECT_EQ(spHandler->GetResponse(spResponse), S_OK);
  MabIRixFailureResponse_var spFailure(spResponse);
  ASSERT_TRUE(!!spFailure);
  EXPECT_EQ(spFailure->GetCommandName(), "");
  EXPECT_EQ(spFailure->GetErrorCode(), "");
  EXPECT_EQ(spFailure->GetReason(), "");
  // The handler keeps its own reference; the caller got a new one.
  EXPECT_EQ(spFailure->GetRefCount(), 3u);
  spResponse = nullptr;
  spHandler = nullptr;
  EXPECT_EQ(spFailure->GetRefCount(), 1u);
  EXPECT_EQ(spFailure->GetReason(), "");
}

TEST(MabRixSAXHandlerFailure, NullAttributeListFailsTheStart)
{
  MabRixTestTree Tree;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(Tree.Root()));
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(spHandler->StartHandlingEvents("failure", nullptr), E_FAIL);
    EXPECT_EQ(Reporter.Texts(), (MabRixStrings{"ExpressionCheck:!!iAttributes"}));
    MabRixExpectReportsFrom(Reporter, Class);
    EXPECT_TRUE(KelImplCast<MabRixSAXHandlerBase>(spHandler.Get())->GetElementName().IsEmpty());
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    EXPECT_THROW(spHandler->StartHandlingEvents("failure", nullptr), KelNullVarError);
  }
}

TEST(MabRixSAXHandlerFailure, ResponseCopyAndAssignmentCopyTheThreeTexts)
{
  MabRixFailureResponse Original;
  Original._CommandName = "c";
  Original._Reason = "r";
  Original._ErrorCode = "e";
  MabRixFailureResponse Copy(Original);
  EXPECT_EQ(Copy.GetCommandName(), "c");
  EXPECT_EQ(Copy.GetReason(), "r");
  EXPECT_EQ(Copy.GetErrorCode(), "e");
  EXPECT_EQ(Copy.GetRefCount(), 1u);
  MabRixFailureResponse Assigned;
  Assigned = Original;
  EXPECT_EQ(Assigned.GetCommandName(), "c");
  EXPECT_EQ(Assigned.GetReason(), "r");
  EXPECT_EQ(Assigned.GetErrorCode(), "e");
}
