#include <gtest/gtest.h>

#include "KelNullVarError.h"
#include "MabRixObjectModelTestSupport.h"
#include "MabRixSAXHandlerLockUnlockExObjectDetailsList.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
typedef std::vector<std::string> Texts;
typedef MabRixSAXHandlerLockUnlockExObjectDetailsList Handler;
const char* const HandlerFile =
    "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerLockUnlockExObjectDetailsList";

MabRixTestReading ReadLock(const std::string& iXml, MabRixCADObjectContext& ioContext, unsigned char iSuccess = TRUE)
{
  return MabRixRead(iXml, MabRixMake<Handler>(&ioContext, iSuccess));
}

// The major object the handler fills for a type and name (no revision is
// ever made current here).
MabERixMajorObject* Major(MabRixCADObjectContext& iContext, const char* iName)
{
  return KelImplCast<MabERixMajorObject>(iContext.GetMajorObject(MabRixObjectID("Part", iName)).Get());
}

void ExpectUnexpectedError() { MabRixExpectUnexpectedError(HandlerFile); }

// Started as a lock answer unless told otherwise.
struct DirectHandler : MabRixStartedHandler<Handler>
{
  explicit DirectHandler(MabRixCADObjectContext* ipContext, unsigned char iSuccess = TRUE)
      : MabRixStartedHandler<Handler>(ipContext, iSuccess)
  {
  }
};

MabIRixValue_var Text(const char* iText) { return MabRixTextValue(iText); }
}  // namespace

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ReadsARealisticLockResponseIntoTheContext)
{
  KelError::KelCleanLastError();
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadLock(
      "<lockresult>\n"
      " <cadobject type='Part' name='bracket' action='lock' bustype='UG Model' busrevision='B' busid='11.22'"
      "  zqversion='B.3' dirname='/work/parts' filename='bracket.prt' lockedby='alice' islocked='TRUE'"
      "  unknown='x'/>\n"
      " <reason>locked by alice</reason>\n"
      " <cadobject type='Part' name='frame' action='lock' zqtype='UG Assembly' zqversion='C'"
      "  filename='frame.prt' lockedby='' islocked='false'>\n"
      "  <reason>already locked</reason>\n"
      "  <ignored attr='1'>text</ignored>\n"
      " </cadobject>\n"
      "</lockresult>",
      Context, TRUE);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_FALSE(MabRixGetLastError()._Present);
  EXPECT_TRUE(Reading.Values().empty());

  ASSERT_EQ(Context.GetObjects().size(), 2u);
  EXPECT_EQ(MabRixPropertyTexts(Context.GetObjects()[0].Get()), (Texts{"Type=UG Model"}));
  EXPECT_EQ(MabRixPropertyTexts(Context.GetObjects()[1].Get()), (Texts{"Type=UG Assembly"}));
  ASSERT_EQ(Context.GetMajorObjects().size(), 2u);
  EXPECT_EQ(Context.GetMajorObjects()[0].Get(), Major(Context, "bracket"));
  EXPECT_EQ(MabRixPropertyTexts(Major(Context, "bracket")),
            (Texts{"MajorRevision=B", "MajorOID=11.22", "LockOwner=alice", "LockStatus=1", "LockUnlockSuccess=1",
                   "LockUnlockError=locked by alice"}));
  EXPECT_EQ(MabRixPropertyTexts(Major(Context, "frame")),
            (Texts{"MajorRevision=C", "LockOwner=", "LockStatus=0", "LockUnlockSuccess=1",
                   "LockUnlockError=already locked"}));
  ASSERT_EQ(Context.GetMinorObjects().size(), 2u);
  EXPECT_EQ(MabRixPropertyTexts(MabRixFindMinorObject(Context, "Part", "bracket")),
            (Texts{"Action=lock", "MinorVersion=3", "MinorDocumentID=(Part,bracket,/work/parts/bracket.prt)"}));
  EXPECT_EQ(MabRixPropertyTexts(MabRixFindMinorObject(Context, "Part", "frame")),
            (Texts{"Action=lock", "MinorDocumentID=(Part,frame,frame.prt)"}));
  EXPECT_EQ(MabRixFindMinorObject(Context, "Part", "frame")->_ElementValues.Size(), 0);
  EXPECT_EQ(MabRixFindMinorObject(Context, "Part", "frame")->_ExtraAttributes.Size(), 0);
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, CADObjectWithEmptyTypeFailsAndCreatesNothing)
{
  typedef std::vector<std::pair<std::string, std::string>> Attributes;
  const std::vector<Attributes> Cases = {{{"type", ""}, {"name", "P1"}, {"islocked", "true"}},
                                         {{"name", "P1"}, {"islocked", "true"}},
                                         {{"type", "Part"}, {"name", ""}, {"islocked", "true"}},
                                         {{"type", "Part"}, {"islocked", "true"}}};
  for (std::size_t i = 0; i < Cases.size(); ++i)
  {
    KelError::KelCleanLastError();
    MabRixCADObjectContext Context;
    DirectHandler Direct(&Context);
    EXPECT_EQ(Direct->StartElement("cadobject", MabRixTestAttributeList::Make(Cases[i])), E_FAIL) << i;
    ExpectUnexpectedError();
    EXPECT_TRUE(Context.GetObjects().empty()) << i;
    EXPECT_TRUE(Context.GetMajorObjects().empty()) << i;
    EXPECT_TRUE(Context.GetMinorObjects().empty()) << i;
  }
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ZqversionWithADotSetsMinorVersionAndMajorRevision)
{
  MabRixCADObjectContext Context;
  ReadLock(
      "<l><cadobject type='Part' name='P1' zqversion='B.2'/><cadobject type='Part' name='P2' zqversion='B'/>"
      "<cadobject type='Part' name='P3' zqversion=''/><cadobject type='Part' name='P4' zqversion='B.2.5'/></l>",
      Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "MinorVersion"), "2");
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "MajorRevision"), "B");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P2"), "MinorVersion"), std::nullopt);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P2"), "MajorRevision"), "B");
  EXPECT_EQ(MabRixPropertyTexts(MabRixFindMinorObject(Context, "Part", "P3")), Texts{});
  EXPECT_EQ(MabRixPropertyTexts(Major(Context, "P3")), (Texts{"LockUnlockSuccess=1"}));
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P4"), "MinorVersion"), "2.5");
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P4"), "MajorRevision"), "B");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, LaterOfBusRevisionAndZqversionWinsTheMajorRevision)
{
  MabRixCADObjectContext Context;
  ReadLock(
      "<l><cadobject type='Part' name='P1' zqversion='A.1' busrevision='B'/>"
      "<cadobject type='Part' name='P2' busrevision='B' zqversion='A.1'/></l>",
      Context);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "MajorRevision"), "B");
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P2"), "MajorRevision"), "A");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, BusTypeAndZqTypeBothSetTheTypeAndTheLaterWins)
{
  MabRixCADObjectContext Context;
  ReadLock(
      "<l><cadobject type='Part' name='P1' bustype='Bus' zqtype='Zq'/>"
      "<cadobject type='Part' name='P2' zqtype='Zq' bustype='Bus'/></l>",
      Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindObject(Context, "Part", "P1"), "Type"), "Zq");
  EXPECT_EQ(MabRixPropertyText(MabRixFindObject(Context, "Part", "P2"), "Type"), "Bus");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ReasonWhoseValueIsNotAStringValueIsIgnored)
{
  KelError::KelCleanLastError();
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixCADObjectContext Context;
  DirectHandler Direct(&Context);
  ASSERT_EQ(Direct->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "Part"}, {"name", "P1"}})), S_OK);
  class OtherValue : public virtual MabIRixValue
  {};
  EXPECT_EQ(Direct->Value(MabIRixValue_var::Adopt(new OtherValue())), S_OK);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "LockUnlockError"), std::nullopt);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_FALSE(MabRixGetLastError()._Present);
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ReasonBeforeAnyCADObjectUsesEmptyTypeAndName)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadLock("<l><reason>nothing locked</reason></l>", Context);
  EXPECT_EQ(Reading._Result, S_OK);
  const MabERixMajorObject* pMajor =
      KelImplCast<MabERixMajorObject>(Context.GetMajorObject(MabRixObjectID("", "")).Get());
  ASSERT_NE(pMajor, nullptr);
  EXPECT_EQ(MabRixPropertyTexts(pMajor), (Texts{"LockUnlockError=nothing locked"}));
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ReasonAfterACADObjectAppliesToItsMajorObject)
{
  MabRixCADObjectContext Context;
  ReadLock("<l><cadobject type='Part' name='P1'/><cadobject type='Part' name='P2'/><x/><reason>r</reason></l>",
           Context);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "LockUnlockError"), std::nullopt);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P2"), "LockUnlockError"), "r");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, FlagFalseGivesEveryMajorObjectLockUnlockSuccessFalse)
{
  MabRixCADObjectContext Context;
  ReadLock("<l><cadobject type='Part' name='P1' islocked='true'/><cadobject type='Part' name='P2'/></l>", Context,
           FALSE);
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "LockUnlockSuccess"), "0");
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P2"), "LockUnlockSuccess"), "0");
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "LockUnlockError"), std::nullopt);
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, DocumentIDIsSetOnlyForAValidPathAndOnlyOnce)
{
  MabRixCADObjectContext Context;
  ReadLock(
      "<l><cadobject type='Part' name='P1'/><cadobject type='Part' name='P2' dirname='/d'/>"
      "<cadobject type='Part' name='P2' dirname='/e' filename='f.prt'/></l>",
      Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "MinorDocumentID"), std::nullopt);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P2"), "MinorDocumentID"), "(Part,P2,/d)");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, CreatedReferencesAreGivenBackExceptTheReasons)
{
  MabRixCADObjectContext Context;
  {
    const MabRixTestReading Reading = ReadLock("<l><cadobject type='Part' name='P1'/><reason>r</reason></l>", Context);
    EXPECT_EQ(Major(Context, "P1")->GetRefCount(), 2u);  // the context's and the reason's
    EXPECT_EQ(MabRixFindMinorObject(Context, "Part", "P1")->GetRefCount(), 1u);
  }
  EXPECT_EQ(Major(Context, "P1")->GetRefCount(), 1u);
}

// ---------------------------------------------------------------------------
// Checks and raise points

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, NullContextIsReportedAndEveryEventRaises)
{
  for (int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    KelError::KelCleanLastError();
    MabRixTestReporter Reporter(Answer);
    DirectHandler Direct(nullptr);
    ASSERT_EQ(Reporter.Texts(), Texts{"ExpressionCheck:pObjectContext"});
    EXPECT_EQ(Reporter.Reports()[0]._File, HandlerFile);
    EXPECT_EQ(Direct->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "P"}, {"name", "N"}})), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
    EXPECT_EQ(Direct->Value(Text("x")), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
    EXPECT_EQ(Direct->StartElement("other", MabRixTestAttributeList::Make()), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
    EXPECT_EQ(Direct->EndElement("other"), E_FAIL);
    ExpectUnexpectedError();
    // The own element's end still gives the parser back.
    KelError::KelCleanLastError();
    EXPECT_EQ(Direct->EndElement("list"), E_FAIL);
    ExpectUnexpectedError();
    KelISAXDocumentHandler_var spCurrent;
    Direct._Parent._spParser->GetDocumentHandler(spCurrent);
    EXPECT_EQ(spCurrent, KelISAXDocumentHandler_var(Direct._Parent._spRoot.Get()));
  }
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, NullAttributeListOfACADObjectRaisesAndCreatesNothing)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  DirectHandler Direct(&Context);
  EXPECT_EQ(Direct->StartElement("cadobject", KelISAXAttributeList_var()), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_TRUE(Context.GetObjects().empty());
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, NullValueIsReportedAndStopReturnsSuccess)
{
  MabRixCADObjectContext Context;
  DirectHandler Direct(&Context);
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(Direct->Value(MabIRixValue_var()), S_OK);
    ASSERT_EQ(Reporter.Texts(), Texts{"ExpressionCheck:!!iValue"});
    EXPECT_EQ(Reporter.Reports()[0]._File, HandlerFile);
  }
  {
    // Going on uses the null value: the host's null-reference error.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    EXPECT_THROW(Direct->Value(MabIRixValue_var()), KelNullVarError);
    EXPECT_EQ(Reporter.Texts(), Texts{"ExpressionCheck:!!iValue"});
  }
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, EndOfOtherElementsSucceedsAndChangesNothing)
{
  MabRixCADObjectContext Context;
  DirectHandler Direct(&Context);
  ASSERT_EQ(Direct->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "Part"}, {"name", "P1"}})), S_OK);
  EXPECT_EQ(Direct->EndElement("cadobject"), S_OK);
  EXPECT_EQ(Direct->Value(Text("after the end")), S_OK);  // type and name are kept
  EXPECT_EQ(MabRixPropertyText(Major(Context, "P1"), "LockUnlockError"), "after the end");
}

TEST(MabRixSAXHandlerLockUnlockExObjectDetailsList, ReasonChildThatCannotStartIsReportedAndItsResultReturned)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixCADObjectContext Context;
  KelISAXParser_var spNoParser;
  const auto spRoot = KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(spNoParser, nullptr, ""));
  MabRixCADObjectContext* pContext = &Context;
  const auto spHandler = KelVar<Handler>::Adopt(new Handler(*spRoot.Get(), pContext, TRUE));
  EXPECT_EQ(spHandler->StartElement("reason", MabRixTestAttributeList::Make()), E_FAIL);
  ASSERT_EQ(Reporter.Count("ExpressionCheck:SUCCEEDED(hr)"), 1);
  EXPECT_EQ(Reporter.Reports().back()._Text, "ExpressionCheck:SUCCEEDED(hr)");
  EXPECT_EQ(Reporter.Reports().back()._File, HandlerFile);
}
