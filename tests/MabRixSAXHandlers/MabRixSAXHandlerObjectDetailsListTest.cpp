#include <gtest/gtest.h>

#include "MabRixObjectModelTestSupport.h"
#include "MabRixSAXHandlerObjectDetailsList.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
typedef std::vector<std::string> Texts;
const char* const HandlerFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerObjectDetailsList";

// Reads iXml into ioContext; the handler is started on the document element.
MabRixTestReading ReadDetails(const std::string& iXml, MabRixCADObjectContext& ioContext,
                              MabRixObjectDetailsResponse* ipResponse = nullptr)
{
  MabRixCADObjectContext* pContext = &ioContext;
  return MabRixRead(iXml, [pContext, ipResponse](MabRixSAXHandlerBase& iParent) mutable {
    auto* pHandler = new MabRixSAXHandlerObjectDetailsList(iParent, pContext);
    if (ipResponse)
    {
      EXPECT_EQ(pHandler->SetObjDetailsResponsePtr(ipResponse), S_OK);
    }
    return MabIRixSAXHandler_var::Adopt(pHandler);
  });
}

// A cadobject start tag with every required attribute, plus iExtra.
std::string CADObject(const std::string& iName, const std::string& iRevision, const std::string& iExtra = "")
{
  return "<cadobject type='Part' name='" + iName + "' zqrevision='" + iRevision + "' bustype='Model' zqversion='" +
         iRevision + ".1' status='InWork' " + iExtra + ">";
}

// The first callback failure of a reading: its result and element.
HRESULT FirstFailure(const MabRixTestReading& iReading, std::string* opElement = nullptr)
{
  const auto& Failures = iReading._spParser->GetCallbackFailures();
  if (Failures.empty())
    return S_OK;
  if (opElement)
    *opElement = Failures.front()._Element.ToUtf8();
  return Failures.front()._Result;
}

void ExpectUnexpectedError() { MabRixExpectUnexpectedError(HandlerFile); }

// A handler driven by hand, started on its own element "list".
struct DirectHandler : MabRixStartedHandler<MabRixSAXHandlerObjectDetailsList>
{
  explicit DirectHandler(MabRixCADObjectContext* ipContext)
      : MabRixStartedHandler<MabRixSAXHandlerObjectDetailsList>(ipContext)
  {
  }
};

MabIRixValue_var Text(const char* iText) { return MabRixTextValue(iText); }
}  // namespace

// ---------------------------------------------------------------------------
// A whole response

TEST(MabRixSAXHandlerObjectDetailsList, ReadsARealisticResponseIntoTheContext)
{
  KelError::KelCleanLastError();
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixCADObjectContext Context;
  MabRixObjectDetailsResponse Response;
  Response._SetCanResolveUUIDConflict(TRUE);
  const MabRixTestReading Reading = ReadDetails(
      "<objectdetails>\n"
      " <cadobject type='UG-PART' name='bracket' zqrevision='B' busrevision='B.3' bustype='UG Model'"
      "  zqversion='B.3' status='Frozen' lockedby='alice' islocked='TRUE' connectedfolder='Design|Release'"
      "  oid='1.2.3' uuid='u-1' uuidconflict='false' dirname='/work/parts' filename='bracket.prt'"
      "  modified='true' ismodifiedobsolete='false'>\n"
      "  <Type>UG Part</Type>\n"
      "  <State>Review</State>\n"
      "  <Lock>True</Lock>\n"
      "  <LockedBy>alice</LockedBy>\n"
      "  <Description>Mounting bracket</Description>\n"
      "  <revisioninfolist>\n"
      "   <revisioninfo revision='A' nextversion='A.5' lockedby='bob' lockstatus='Locked'"
      "    overwriteaccess='TRUE' versionaccess='false'><message>Revision A is frozen</message></revisioninfo>\n"
      "   <revisioninfo revision='B' nextversion='B.4' lockedby='carol' lockstatus='unlocked'"
      "    overwriteaccess='true' versionaccess='True'/>\n"
      "   <revisioninfo revision='Next' nextversion='C.1' overwriteaccess='false' versionaccess='false'>"
      "<message>No next revision yet</message></revisioninfo>\n"
      "  </revisioninfolist>\n"
      "  <accessinfo><access revision='B' nextversion='B.4' overwriteaccess='false' versionaccess='true'/>"
      "</accessinfo>\n"
      " </cadobject>\n"
      " <cadobject type='UG-ASM' name='frame' zqrevision='--' busrevision='C.1' bustype='UG Assembly'"
      "  zqversion='C.1' status='InWork' filenamewithpath='/work/asm/frame.prt' dirname='/ignored'"
      "  modified='false'>\n"
      "  <Lock>false</Lock>\n"
      " </cadobject>\n"
      "</objectdetails>",
      Context, &Response);

  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_FALSE(MabRixGetLastError()._Present);
  EXPECT_TRUE(Reading.Values().empty());  // nothing is handed up

  ASSERT_EQ(Context.GetObjects().size(), 2u);
  EXPECT_EQ(Context.GetObjects()[0]->GetKeyName(), "bracket");
  EXPECT_EQ(MabRixPropertyTexts(Context.GetObjects()[0].Get()),
            (Texts{"CurrentMajorRevision=B", "Type=UG Part", "NextMajorRevision=C"}));
  EXPECT_EQ(Context.GetObjects()[1]->GetKeyName(), "frame");
  EXPECT_EQ(MabRixPropertyTexts(Context.GetObjects()[1].Get()), (Texts{"CurrentMajorRevision=C"}));

  // Major objects in creation order: bracket B (made before its revision was
  // known), A, C (the next revision), then frame C.
  ASSERT_EQ(Context.GetMajorObjects().size(), 4u);
  const MabERixMajorObject* pB = Context.GetMajorObjects()[0].Get();
  const MabERixMajorObject* pA = Context.GetMajorObjects()[1].Get();
  const MabERixMajorObject* pC = Context.GetMajorObjects()[2].Get();
  const MabERixMajorObject* pFrame = Context.GetMajorObjects()[3].Get();
  EXPECT_EQ(pB->GetKeyRevision(), "B");
  EXPECT_EQ(pA->GetKeyRevision(), "A");
  EXPECT_EQ(pC->GetKeyRevision(), "C");
  EXPECT_EQ(pFrame->GetKeyRevision(), "C");
  EXPECT_EQ(pFrame->GetKeyName(), "frame");
  EXPECT_EQ(MabRixPropertyTexts(pB),
            (Texts{"CurrentMajorRevision=1", "LockOwner=alice", "LockStatus=1", "ConnectedFolder=[Design|Release]",
                   "State=Review", "NextMinorVersion=4", "MajorRevision=B", "NextMajorRevision=0", "OverwriteAccess=0",
                   "CreateVersionAccess=1", "OverwriteError="}));
  EXPECT_EQ(MabRixPropertyTexts(pA),
            (Texts{"NextMinorVersion=5", "MajorRevision=A", "NextMajorRevision=0", "LockOwner=bob", "LockStatus=1",
                   "OverwriteAccess=1", "CreateVersionAccess=0", "OverwriteError=Revision A is frozen"}));
  EXPECT_EQ(MabRixPropertyTexts(pC),
            (Texts{"NextMinorVersion=1", "MajorRevision=C", "NextMajorRevision=1", "OverwriteAccess=0",
                   "CreateVersionAccess=0", "OverwriteError=No next revision yet"}));
  EXPECT_EQ(MabRixPropertyTexts(pFrame), (Texts{"CurrentMajorRevision=1", "LockStatus=0"}));

  ASSERT_EQ(Context.GetMinorObjects().size(), 2u);
  const MabERixMinorObject* pBracket = Context.GetMinorObjects()[0].Get();
  EXPECT_EQ(MabRixPropertyTexts(pBracket),
            (Texts{"MinorType=UG Model", "MinorVersion=3", "Status=Frozen", "MinorOID=1.2.3", "MinorUUID=u-1",
                   "UUIDConflict=0", "MinorDocumentID=(UG-PART,bracket,/work/parts/bracket.prt)",
                   "CanResolveUUIDConflict=1"}));
  EXPECT_EQ(MabRixDicoTexts(pBracket->_ExtraAttributes), (Texts{"modified=true", "ismodifiedobsolete=false"}));
  EXPECT_EQ(MabRixDicoTexts(pBracket->_ElementValues),
            (Texts{"Type=UG Part", "State=Review", "Lock=True", "LockedBy=alice", "Description=Mounting bracket"}));
  EXPECT_EQ(pBracket->_bPointer, FALSE);
  const MabERixMinorObject* pFrameMinor = Context.GetMinorObjects()[1].Get();
  EXPECT_EQ(MabRixPropertyTexts(pFrameMinor),
            (Texts{"MinorType=UG Assembly", "MinorVersion=1", "Status=InWork",
                   "MinorDocumentID=(UG-ASM,frame,/work/asm/frame.prt)", "CanResolveUUIDConflict=1"}));
  EXPECT_EQ(MabRixDicoTexts(pFrameMinor->_ExtraAttributes), (Texts{"modified=false"}));
  EXPECT_EQ(MabRixDicoTexts(pFrameMinor->_ElementValues), (Texts{"Lock=false"}));

  EXPECT_TRUE(Context.GetRelationships().empty());
  EXPECT_TRUE(Context.GetRelations().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, ReferencesOfRevisionRecordsAreHeldUntilTheHandlerGoes)
{
  MabRixCADObjectContext Context;
  {
    const MabRixTestReading Reading = ReadDetails(
        "<l>" + CADObject("P1", "B") + "<revisioninfo revision='A' nextversion='A.2'/></cadobject></l>", Context);
    // The context's, the major object B's, and the revision record's.
    EXPECT_EQ(MabRixFindObject(Context, "Part", "P1")->GetRefCount(), 4u);
    EXPECT_EQ(MabRixFindMajorObject(Context, "Part", "P1", "A")->GetRefCount(), 2u);
  }
  EXPECT_EQ(MabRixFindObject(Context, "Part", "P1")->GetRefCount(), 3u);
  EXPECT_EQ(MabRixFindMajorObject(Context, "Part", "P1", "A")->GetRefCount(), 1u);
  EXPECT_EQ(MabRixFindMajorObject(Context, "Part", "P1", "B")->GetRefCount(), 1u);
  EXPECT_EQ(MabRixFindMinorObject(Context, "Part", "P1")->GetRefCount(), 1u);
}

// ---------------------------------------------------------------------------
// Required and optional attributes of cadobject

class MabRixSAXHandlerObjectDetailsListMissing : public testing::TestWithParam<const char*>
{};

TEST_P(MabRixSAXHandlerObjectDetailsListMissing, RequiredAttributeMissingFailsTheStartWithTheRaisedCode)
{
  KelError::KelCleanLastError();
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  std::vector<std::pair<std::string, std::string>> Attributes = {
      {"type", "Part"},     {"name", "P1"},       {"zqrevision", "B"},   {"bustype", "Model"},
      {"zqversion", "B.2"}, {"status", "InWork"}, {"lockedby", "alice"}, {"uuid", "u-9"}};
  const std::string Missing = GetParam();
  std::erase_if(Attributes, [&](const auto& iAttribute) { return iAttribute.first == Missing; });

  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  EXPECT_EQ(Handler->StartElement("cadobject", MabRixTestAttributeList::Make(Attributes)), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_TRUE(Reporter.Reports().empty());

  // Objects are made once type, name and revision are read; the optional
  // attributes are applied to them even after the failure.
  const bool bCreated = Missing != "type" && Missing != "name" && Missing != "zqrevision";
  EXPECT_EQ(Context.GetObjects().size(), bCreated ? 1u : 0u);
  if (!bCreated)
    return;
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "B"), "LockOwner"), "alice");
  const MabERixMinorObject* pMinor = MabRixFindMinorObject(Context, "Part", "P1");
  EXPECT_EQ(MabRixPropertyText(pMinor, "MinorUUID"), "u-9");
  EXPECT_EQ(MabRixPropertyText(pMinor, "MinorType").has_value(), Missing != "bustype");
  EXPECT_EQ(MabRixPropertyText(pMinor, "MinorVersion").has_value(), Missing == "status");
  EXPECT_FALSE(MabRixPropertyText(pMinor, "Status").has_value());
}

INSTANTIATE_TEST_SUITE_P(EachRequiredAttribute, MabRixSAXHandlerObjectDetailsListMissing,
                         testing::Values("type", "name", "zqrevision", "bustype", "zqversion", "status"));

TEST(MabRixSAXHandlerObjectDetailsList, DashesRevisionTakesTheBusRevisionBeforeItsFirstDot)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l><cadobject type='Part' name='P1' zqrevision='--' busrevision='B.3.1' bustype='M' zqversion='' "
      "status='s'/></l>",
      Context);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(MabRixPropertyText(MabRixFindObject(Context, "Part", "P1"), "CurrentMajorRevision"), "B");
  ASSERT_NE(MabRixFindMajorObject(Context, "Part", "P1", "B"), nullptr);
  KelUnicodeString Revision;
  EXPECT_EQ(MabRixFindMajorObject(Context, "Part", "P1", "B")->GetCurrentMajorRevision(Revision), S_OK);
  EXPECT_EQ(Revision, "B");
}

TEST(MabRixSAXHandlerObjectDetailsList, DashesRevisionWithABusRevisionWithoutDotFailsAndCreatesNothing)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l><cadobject type='Part' name='P1' zqrevision='--' busrevision='B' bustype='M' zqversion='B.1' "
      "status='s'/></l>",
      Context);
  std::string Element;
  EXPECT_EQ(FirstFailure(Reading, &Element), E_FAIL);
  EXPECT_EQ(Element, "cadobject");
  ExpectUnexpectedError();
  EXPECT_TRUE(Context.GetObjects().empty());
  EXPECT_TRUE(Context.GetMajorObjects().empty());
  EXPECT_TRUE(Context.GetMinorObjects().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, DashesRevisionWithoutBusRevisionFailsAndCreatesNothing)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  EXPECT_EQ(Handler->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "Part"},
                                                                              {"name", "P1"},
                                                                              {"zqrevision", "--"},
                                                                              {"bustype", "M"},
                                                                              {"zqversion", "B.1"},
                                                                              {"status", "s"}})),
            E_FAIL);
  ExpectUnexpectedError();
  EXPECT_TRUE(Context.GetObjects().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, EmptyRevisionCreatesTheObjectsButMakesNoRevisionCurrent)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l><cadobject type='Part' name='P1' zqrevision='' bustype='M' zqversion='' status='s'/></l>", Context);
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(Context.GetObjects().size(), 1u);
  ASSERT_EQ(Context.GetMajorObjects().size(), 1u);
  ASSERT_EQ(Context.GetMinorObjects().size(), 1u);
  EXPECT_EQ(MabRixPropertyTexts(Context.GetObjects()[0].Get()), Texts{});
  EXPECT_EQ(Context.GetMajorObjects()[0]->GetKeyRevision(), "");  // no revision was named
  EXPECT_EQ(MabRixPropertyTexts(Context.GetMajorObjects()[0].Get()), Texts{});
  KelUnicodeString Revision;
  EXPECT_TRUE(FAILED(Context.GetMajorObjects()[0]->GetCurrentMajorRevision(Revision)));
}

TEST(MabRixSAXHandlerObjectDetailsList, ZqversionAfterTheFirstDotIsTheMinorVersion)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l><cadobject type='Part' name='P1' zqrevision='A' bustype='M' zqversion='A.4' status='s'/>"
      "<cadobject type='Part' name='P2' zqrevision='A' bustype='M' zqversion='A' status='s'/>"
      "<cadobject type='Part' name='P3' zqrevision='A' bustype='M' zqversion='A.1.2' status='s'/></l>",
      Context);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "MinorVersion"), "4");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P2"), "MinorVersion"), std::nullopt);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P3"), "MinorVersion"), "1.2");
}

TEST(MabRixSAXHandlerObjectDetailsList, IsLockedTrueInAnyCaseLocks)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "islocked='TRUE'") + "</cadobject>" +
                  CADObject("P2", "A", "islocked='yes'") + "</cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "LockStatus"), "1");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P2", "A"), "LockStatus"), "0");
}

TEST(MabRixSAXHandlerObjectDetailsList, LockStatusLockedLocksAndLockStatusTrueUnlocks)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") +
                  "<revisioninfo revision='A' nextversion='A.1' lockstatus='Locked'/>"
                  "<revisioninfo revision='C' nextversion='C.1' lockstatus='true'/></cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "LockStatus"), "1");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "C"), "LockStatus"), "0");
}

TEST(MabRixSAXHandlerObjectDetailsList, ConnectedFolderIsSplitAtTheBar)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "connectedfolder='a|b||c'") + "</cadobject></l>", Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "ConnectedFolder"), "[a|b||c]");
}

TEST(MabRixSAXHandlerObjectDetailsList, DocumentPathIsTheFullNameElseDirectoryAndFileElseTheFile)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "filenamewithpath='/full/p1.prt' dirname='/d' filename='f'") +
                  "</cadobject>" + CADObject("P2", "A", "dirname='/d' filename='p2.prt'") + "</cadobject>" +
                  CADObject("P3", "A", "filename='p3.prt'") + "</cadobject>" + CADObject("P4", "A", "dirname='/d'") +
                  "</cadobject>" + CADObject("P5", "A") + "</cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "MinorDocumentID"),
            "(Part,P1,/full/p1.prt)");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P2"), "MinorDocumentID"), "(Part,P2,/d/p2.prt)");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P3"), "MinorDocumentID"), "(Part,P3,p3.prt)");
  // Without a usable path the document ID is set all the same, path empty.
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P4"), "MinorDocumentID"), "(Part,P4,)");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P5"), "MinorDocumentID"), "(Part,P5,)");
}

TEST(MabRixSAXHandlerObjectDetailsList, DocumentIDAlreadySetIsKept)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "filename='first.prt'") + "</cadobject>" +
                  CADObject("P1", "A", "filename='second.prt'") + "</cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "MinorDocumentID"), "(Part,P1,first.prt)");
}

TEST(MabRixSAXHandlerObjectDetailsList, UUIDConflictResolutionIsSetOnlyWithAResponse)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "uuidconflict='True'") + "</cadobject></l>", Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "UUIDConflict"), "1");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P1"), "CanResolveUUIDConflict"), std::nullopt);
  MabRixObjectDetailsResponse Response;
  ReadDetails("<l>" + CADObject("P2", "A") + "</cadobject></l>", Context, &Response);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMinorObject(Context, "Part", "P2"), "CanResolveUUIDConflict"), "0");
}

TEST(MabRixSAXHandlerObjectDetailsList, SecondModifiedValueForAMinorObjectIsNotStored)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "modified='true' ismodifiedobsolete='true'") + "</cadobject>" +
                  CADObject("P1", "A", "modified='false' ismodifiedobsolete='false'") + "</cadobject></l>",
              Context);
  EXPECT_EQ(MabRixDicoTexts(MabRixFindMinorObject(Context, "Part", "P1")->_ExtraAttributes),
            (Texts{"modified=true", "ismodifiedobsolete=true"}));
}

TEST(MabRixSAXHandlerObjectDetailsList, MissingModifiedTakesTheScratchTextLeftByTheLastRead)
{
  // The optional reads share one scratch string that a missing attribute
  // leaves as it was: here the file name read for the document path.
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A", "filename='p1.prt'") + "</cadobject></l>", Context);
  EXPECT_EQ(MabRixDicoTexts(MabRixFindMinorObject(Context, "Part", "P1")->_ExtraAttributes),
            (Texts{"modified=p1.prt"}));
}

TEST(MabRixSAXHandlerObjectDetailsList, ElementValueTextsAreInsertedWithoutATest)
{
  // The minor object's dictionary keeps the first text of an element; the
  // setters behind the element take every text.
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A") +
                  "<State>Review</State><State>Released</State><Note>a</Note><Note>b</Note></cadobject></l>",
              Context);
  EXPECT_EQ(MabRixDicoTexts(MabRixFindMinorObject(Context, "Part", "P1")->_ElementValues),
            (Texts{"State=Review", "Note=a"}));
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "State"), "Released");
}

TEST(MabRixSAXHandlerObjectDetailsList, TextElementsSetTypeStateLockAndLockOwner)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "A") +
                  "<Type>Drawing</Type><State>Frozen</State><Lock>TRUE</Lock><LockedBy>dan</LockedBy></cadobject>" +
                  CADObject("P2", "A") + "<Lock>yes</Lock></cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyTexts(MabRixFindObject(Context, "Part", "P1")),
            (Texts{"CurrentMajorRevision=A", "Type=Drawing"}));
  EXPECT_EQ(MabRixPropertyTexts(MabRixFindMajorObject(Context, "Part", "P1", "A")),
            (Texts{"CurrentMajorRevision=1", "State=Frozen", "LockStatus=1", "LockOwner=dan"}));
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P2", "A"), "LockStatus"), "0");
}

// ---------------------------------------------------------------------------
// Revision records

TEST(MabRixSAXHandlerObjectDetailsList, NextRevisionRecordMarksTheNextRevision)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") + "<revisioninfo revision='Next' nextversion='C.1'/></cadobject></l>",
              Context);
  const MabERixMajorObject* pC = MabRixFindMajorObject(Context, "Part", "P1", "C");
  ASSERT_NE(pC, nullptr);
  EXPECT_EQ(MabRixPropertyTexts(pC),
            (Texts{"NextMinorVersion=1", "MajorRevision=C", "NextMajorRevision=1", "OverwriteError="}));
  EXPECT_EQ(MabRixPropertyText(MabRixFindObject(Context, "Part", "P1"), "NextMajorRevision"), "C");
}

TEST(MabRixSAXHandlerObjectDetailsList, NextRevisionRecordWithoutDotGivesAnEmptyRevision)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") + "<revisioninfo revision='Next' nextversion='C'/></cadobject></l>",
              Context);
  const MabERixMajorObject* pEmpty = MabRixFindMajorObject(Context, "Part", "P1", "");
  ASSERT_NE(pEmpty, nullptr);
  EXPECT_EQ(MabRixPropertyTexts(pEmpty),
            (Texts{"NextMinorVersion=", "MajorRevision=", "NextMajorRevision=1", "OverwriteError="}));
  EXPECT_EQ(MabRixPropertyText(MabRixFindObject(Context, "Part", "P1"), "NextMajorRevision"), "");
}

TEST(MabRixSAXHandlerObjectDetailsList, RevisionRecordOfTheCurrentRevisionKeepsItsLockButTakesItsAccess)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B", "lockedby='alice' islocked='false'") +
                  "<revisioninfo revision='B' nextversion='B.2' lockedby='bob' lockstatus='locked'"
                  " overwriteaccess='true' versionaccess='TRUE'/>"
                  "<revisioninfo revision='A' nextversion='A.9' lockedby='carol' lockstatus='locked'/>"
                  "</cadobject></l>",
              Context);
  const MabERixMajorObject* pB = MabRixFindMajorObject(Context, "Part", "P1", "B");
  EXPECT_EQ(MabRixPropertyText(pB, "LockOwner"), "alice");
  EXPECT_EQ(MabRixPropertyText(pB, "LockStatus"), "0");
  EXPECT_EQ(MabRixPropertyText(pB, "OverwriteAccess"), "1");
  EXPECT_EQ(MabRixPropertyText(pB, "CreateVersionAccess"), "1");
  const MabERixMajorObject* pA = MabRixFindMajorObject(Context, "Part", "P1", "A");
  EXPECT_EQ(MabRixPropertyText(pA, "LockOwner"), "carol");
  EXPECT_EQ(MabRixPropertyText(pA, "LockStatus"), "1");
}

TEST(MabRixSAXHandlerObjectDetailsList, MessageBecomesTheOverwriteErrorAtTheEndOfItsRevisionRecord)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") +
                  "<revisioninfo revision='A' nextversion='A.1'><message>no overwrite</message></revisioninfo>"
                  "<revisioninfo revision='C' nextversion='C.1'/></cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "OverwriteError"), "no overwrite");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "C"), "OverwriteError"), "");
  // A message is not an element value.
  EXPECT_TRUE(MabRixFindMinorObject(Context, "Part", "P1")->_ElementValues.Size() == 0);
}

TEST(MabRixSAXHandlerObjectDetailsList, AccessRecordIsNotFlushedAtItsEnd)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") +
                  "<access revision='A' nextversion='A.1'><message>access denied</message></access>"
                  "<revisioninfo revision='C' nextversion='C.1'/>"
                  "<revisioninfo revision='D' nextversion='D.1'/></cadobject></l>",
              Context);
  // The access element's end sets nothing; its message goes to the next
  // revisioninfo that ends, which then flushes it.
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "A"), "OverwriteError"), std::nullopt);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "C"), "OverwriteError"), "access denied");
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P1", "D"), "OverwriteError"), "");
}

TEST(MabRixSAXHandlerObjectDetailsList, AccessMessageIsFlushedByTheEndOfTheCADObject)
{
  MabRixCADObjectContext Context;
  ReadDetails("<l>" + CADObject("P1", "B") +
                  "<access revision='A' nextversion='A.1'><message>access denied</message></access></cadobject>" +
                  CADObject("P2", "B") + "<revisioninfo revision='C' nextversion='C.1'/></cadobject></l>",
              Context);
  EXPECT_EQ(MabRixPropertyText(MabRixFindMajorObject(Context, "Part", "P2", "C"), "OverwriteError"), "");
}

TEST(MabRixSAXHandlerObjectDetailsList, RevisionInfoOutsideACADObjectIsReadAsATextElement)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l><cadobject type='' name='' zqrevision='' bustype='' zqversion='' status=''/>"
      "<revisioninfo revision='A' nextversion='A.1'>outside</revisioninfo></l>",
      Context);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(MabRixDicoTexts(MabRixFindMinorObject(Context, "", "")->_ElementValues), (Texts{"revisioninfo=outside"}));
  EXPECT_EQ(MabRixFindMajorObject(Context, "", "", "A"), nullptr);
}

TEST(MabRixSAXHandlerObjectDetailsList, WrappersAreIgnored)
{
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails(
      "<l>" + CADObject("P1", "A") + "<revisioninfolist/><accessinfo/></cadobject><revisioninfolist/></l>", Context);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(MabRixFindMinorObject(Context, "Part", "P1")->_ElementValues.Size(), 0);
}

// ---------------------------------------------------------------------------
// Construction, checks and raise points

TEST(MabRixSAXHandlerObjectDetailsList, NullContextIsReportedAndEveryEventRaises)
{
  for (int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    KelError::KelCleanLastError();
    MabRixTestReporter Reporter(Answer);
    DirectHandler Handler(nullptr);
    ASSERT_EQ(Reporter.Texts(), Texts{"ExpressionCheck:pObjectContext"});
    EXPECT_EQ(Reporter.Reports()[0]._File, HandlerFile);

    EXPECT_EQ(Handler->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "P"}})), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
    EXPECT_EQ(Handler->Value(Text("x")), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
    EXPECT_EQ(Handler->EndElement("cadobject"), E_FAIL);
    ExpectUnexpectedError();
    KelError::KelCleanLastError();
  }
}

TEST(MabRixSAXHandlerObjectDetailsList, SetObjDetailsResponsePtrSucceeds)
{
  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  MabRixObjectDetailsResponse Response;
  EXPECT_EQ(Handler->SetObjDetailsResponsePtr(&Response), S_OK);
  EXPECT_EQ(Handler->SetObjDetailsResponsePtr(nullptr), S_OK);
}

TEST(MabRixSAXHandlerObjectDetailsList, NullAttributeListOfACADObjectRaises)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  EXPECT_EQ(Handler->StartElement("cadobject", KelISAXAttributeList_var()), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_TRUE(Context.GetObjects().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, RevisionRecordWithoutRevisionOrNextVersionRaises)
{
  for (const char* Missing : {"revision", "nextversion"})
  {
    KelError::KelCleanLastError();
    MabRixCADObjectContext Context;
    DirectHandler Handler(&Context);
    ASSERT_EQ(Handler->StartElement("cadobject", MabRixTestAttributeList::Make({{"type", "Part"},
                                                                                {"name", "P1"},
                                                                                {"zqrevision", "B"},
                                                                                {"bustype", "M"},
                                                                                {"zqversion", "B.1"},
                                                                                {"status", "s"}})),
              S_OK);
    std::vector<std::pair<std::string, std::string>> Attributes = {
        {"revision", "A"}, {"nextversion", "A.3"}, {"overwriteaccess", "true"}};
    std::erase_if(Attributes, [&](const auto& iAttribute) { return iAttribute.first == Missing; });
    EXPECT_EQ(Handler->StartElement("revisioninfo", MabRixTestAttributeList::Make(Attributes)), E_FAIL) << Missing;
    ExpectUnexpectedError();
    EXPECT_EQ(Context.GetMajorObjects().size(), 1u) << Missing;  // no revision record's major object
    KelError::KelCleanLastError();
    EXPECT_EQ(Handler->StartElement("revisioninfo", KelISAXAttributeList_var()), E_FAIL);
    ExpectUnexpectedError();
  }
}

TEST(MabRixSAXHandlerObjectDetailsList, ValueRaisesWithoutAValueOrWithANonStringValue)
{
  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  KelError::KelCleanLastError();
  EXPECT_EQ(Handler->Value(MabIRixValue_var()), E_FAIL);
  ExpectUnexpectedError();
  KelError::KelCleanLastError();
  class OtherValue : public virtual MabIRixValue
  {};
  EXPECT_EQ(Handler->Value(MabIRixValue_var::Adopt(new OtherValue())), E_FAIL);
  ExpectUnexpectedError();
}

TEST(MabRixSAXHandlerObjectDetailsList, TextOfAnObjectWithoutMinorObjectRaises)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  const MabRixTestReading Reading = ReadDetails("<l><Description>lost</Description></l>", Context);
  std::string Element;
  EXPECT_EQ(FirstFailure(Reading, &Element), E_FAIL);
  EXPECT_EQ(Element, "Description");  // the string handler's end passes the failure on
  ExpectUnexpectedError();
  EXPECT_TRUE(Context.GetMinorObjects().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, TypeOrStateTextWithoutObjectOrMajorObjectRaises)
{
  MabRixCADObjectContext Context;
  Context.CreateMinorObject("", "")->Release();  // a minor object alone
  for (const char* Element : {"Type", "State", "Lock", "LockedBy"})
  {
    KelError::KelCleanLastError();
    const std::string Name = Element;
    const MabRixTestReading Reading = ReadDetails("<l><" + Name + ">t</" + Name + "></l>", Context);
    std::string Failed;
    EXPECT_EQ(FirstFailure(Reading, &Failed), E_FAIL) << Element;
    EXPECT_EQ(Failed, Name);  // the string handler's end passes the failure on
    ExpectUnexpectedError();
  }
  // The minor object took the text of each element all the same.
  EXPECT_EQ(MabRixFindMinorObject(Context, "", "")->_ElementValues.Size(), 4);
  EXPECT_TRUE(Context.GetObjects().empty());
}

TEST(MabRixSAXHandlerObjectDetailsList, RaisedErrorKeepsTheFirstFailuresCode)
{
  KelError::KelCleanLastError();
  MabRixCADObjectContext Context;
  DirectHandler Handler(&Context);
  EXPECT_EQ(Handler->StartElement("cadobject", MabRixTestAttributeList::Make({{"name", "P1"}})), E_FAIL);
  const MabRixLastError First = MabRixGetLastError();
  EXPECT_EQ(Handler->StartElement("revisioninfo", KelISAXAttributeList_var()), E_FAIL);
  const MabRixLastError Second = MabRixGetLastError();
  EXPECT_EQ(Second._Line, First._Line);  // the pending error was passed on, not replaced
}

TEST(MabRixSAXHandlerObjectDetailsList, TextElementChildThatCannotStartIsReportedAndItsResultReturned)
{
  // A parent without parser: the string child cannot take the events.
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixCADObjectContext Context;
  KelISAXParser_var spNoParser;
  const auto spRoot = KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(spNoParser, nullptr, ""));
  MabRixCADObjectContext* pContext = &Context;
  const auto spHandler =
      KelVar<MabRixSAXHandlerObjectDetailsList>::Adopt(new MabRixSAXHandlerObjectDetailsList(*spRoot.Get(), pContext));
  EXPECT_EQ(spHandler->StartElement("Description", MabRixTestAttributeList::Make()), E_FAIL);
  ASSERT_EQ(Reporter.Count("ExpressionCheck:SUCCEEDED(hr)"), 1);
  EXPECT_EQ(Reporter.Reports().back()._Text, "ExpressionCheck:SUCCEEDED(hr)");
  EXPECT_EQ(Reporter.Reports().back()._File, HandlerFile);
}
