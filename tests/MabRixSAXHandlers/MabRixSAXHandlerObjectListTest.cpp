#include <gtest/gtest.h>

#include <set>

#include "KelError.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixObjectTestSupport.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"

namespace
{
const char* const File = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerObjectList";

// Each test starts and ends without a recorded error.
class MabRixSAXHandlerObjectListTest : public ::testing::Test
{
protected:
  void SetUp() override { KelError::KelCleanLastError(); }
  void TearDown() override { KelError::KelCleanLastError(); }

  MabRixTestReading Read(const std::string& iXml, std::size_t iChunk = 0)
  {
    MabRixTNRObjectContext* pContext = _Context.Get();
    return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerObjectList>(pContext), "", iChunk);
  }

  // The last error is the unexpected-error result raised by the list handler.
  void ExpectUnexpectedError() { MabRixExpectUnexpectedError(File); }

  MabRixTestContext _Context;
};

// An object list handler driven by hand, under a root built on iParser.
struct DirectList
{
  explicit DirectList(MabRixTNRObjectContext* ipContext,
                      KelISAXParser_var ispParser = KelISAXParser_var::Adopt(new KelExpatParser()))
      : _Parent(std::move(ispParser)), _pContext(ipContext),
        _spHandler(KelVar<MabRixSAXHandlerObjectList>::Adopt(new MabRixSAXHandlerObjectList(_Parent.Root(), _pContext)))
  {
  }
  // Closes cadobject for the active content child: the object is committed.
  HRESULT EndObject() { return _spHandler->GetChildHandler()->EndElement("cadobject"); }

  MabRixTestParent _Parent;
  MabRixTNRObjectContext* _pContext;
  KelVar<MabRixSAXHandlerObjectList> _spHandler;
};

const char* const ThreeObjects =
    "<cadobjectlist>"
    "<cadobject busid='B1' bustype='ZQ_PartVersion' cadid='C1' zqtype='ZQ_Part' zqversion='A.1' name='bracket.prt'"
    " oid='O1' type='component' uuid='U1' islocked='false' locker='' dirname='[ALIAS|Work Area]'"
    " filename='bracket.prt' Description='Mount bracket' renamedfrom='old_bracket.prt'>"
    "<Ver>1</Ver><Rev>A</Rev><Name>Bracket</Name><Type>Part</Type><State>In Work</State>"
    "<preview>/thumbs/bracket.png</preview>"
    "<attribute><name>Material</name><value>Steel</value></attribute>"
    "<attribute><name>Description</name><value>From the element</value></attribute>"
    "</cadobject>"
    "<cadobject busid='B2' bustype='ZQ_PartVersion' cadid='C2' zqtype='ZQ_Part' zqversion='A.2' name='bracket.prt'"
    " oid='O1' type='component' uuid='U2' islocked='TRUE' locker='alice' dirname='/home/alice/work'"
    " filename='bracket.prt'>"
    "<State>Frozen</State><Lock>false</Lock><LockedBy>bob</LockedBy>"
    "<attribute><name>Material</name><value>Aluminium</value></attribute>"
    "</cadobject>"
    "<cadobject busid='B3' bustype='ZQ_AssemblyVersion' cadid='C3' zqtype='ZQ_Assembly' zqversion='B.3'"
    " name='frame.asm' oid='O3' type='assembly' uuid='U3' islocked='True' locker='bob' Owner='bob'>"
    "<Rev>B</Rev>"
    "</cadobject>"
    "</cadobjectlist>";

const char* const Minimal = " zqtype='ZQ_Part' name='n.prt' type='component' dirname='/d' filename='f'";
}  // namespace

// Three objects: two versions of one revision of one object, and another
// object. Every property of every entity is checked.
TEST_F(MabRixSAXHandlerObjectListTest, ReadsARealisticResponseEndToEnd)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = Read(ThreeObjects, 7);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_TRUE(Reading.Values().empty());  // nothing is handed up
  EXPECT_FALSE(MabRixGetLastError()._Present);

  ASSERT_EQ(_Context.Objects(), 2u);
  ASSERT_EQ(_Context.Majors(), 2u);
  ASSERT_EQ(_Context.Minors(), 3u);
  EXPECT_TRUE(_Context.Get()->GetRelationships().empty());
  EXPECT_TRUE(_Context.Get()->GetRelations().empty());

  // The part: its CAD type from the attributes, name and type filled in from
  // the first object's elements.
  const MabERixObject& Part = _Context.Object(0);
  EXPECT_EQ(Part.GetKeyType(), "ZQ_Part");
  EXPECT_EQ(Part.GetKeyName(), "bracket.prt");
  EXPECT_EQ(MabRixSetNames(Part), (std::vector<std::string>{"CADType", "Name", "Type"}));
  EXPECT_EQ(MabRixText(Part, &MabERixObject::GetCADType), "component");
  EXPECT_EQ(MabRixText(Part, &MabERixObject::GetName), "Bracket");
  EXPECT_EQ(MabRixText(Part, &MabERixObject::GetType), "Part");

  const MabERixObject& Assembly = _Context.Object(1);
  EXPECT_EQ(Assembly.GetKeyType(), "ZQ_Assembly");
  EXPECT_EQ(Assembly.GetKeyName(), "frame.asm");
  EXPECT_EQ(MabRixSetNames(Assembly), (std::vector<std::string>{"CADType"}));
  EXPECT_EQ(MabRixText(Assembly, &MabERixObject::GetCADType), "assembly");

  // Revision A of the part: the second version's lock attributes replace the
  // first's; its State element does not replace the first's.
  const MabERixMajorObject& PartA = _Context.Major(0);
  EXPECT_EQ(PartA.GetKeyType(), "ZQ_Part");
  EXPECT_EQ(PartA.GetKeyName(), "bracket.prt");
  EXPECT_EQ(PartA.GetKeyRevision(), "A");
  EXPECT_EQ(PartA.GetOwnerObject(), &Part);
  EXPECT_EQ(MabRixSetNames(PartA),
            (std::vector<std::string>{"LockStatus", "LockOwner", "MajorOID", "MajorRevision", "State"}));
  EXPECT_EQ(MabRixFlag(PartA, &MabERixMajorObject::GetLockStatus), 1);
  EXPECT_EQ(MabRixText(PartA, &MabERixMajorObject::GetLockOwner), "alice");
  EXPECT_EQ(MabRixText(PartA, &MabERixMajorObject::GetMajorOID), "O1");
  EXPECT_EQ(MabRixText(PartA, &MabERixMajorObject::GetMajorRevision), "A");
  EXPECT_EQ(MabRixText(PartA, &MabERixMajorObject::GetState), "In Work");

  const MabERixMajorObject& AssemblyB = _Context.Major(1);
  EXPECT_EQ(AssemblyB.GetKeyRevision(), "B");
  EXPECT_EQ(AssemblyB.GetOwnerObject(), &Assembly);
  EXPECT_EQ(MabRixSetNames(AssemblyB),
            (std::vector<std::string>{"LockStatus", "LockOwner", "MajorOID", "MajorRevision"}));
  EXPECT_EQ(MabRixFlag(AssemblyB, &MabERixMajorObject::GetLockStatus), 1);
  EXPECT_EQ(MabRixText(AssemblyB, &MabERixMajorObject::GetLockOwner), "bob");
  EXPECT_EQ(MabRixText(AssemblyB, &MabERixMajorObject::GetMajorOID), "O3");
  EXPECT_EQ(MabRixText(AssemblyB, &MabERixMajorObject::GetMajorRevision), "B");

  // Version 1: alias directory, preview, old name, attributes of cadobject
  // winning over attribute elements of the same name.
  const MabERixMinorObject& Part1 = _Context.Minor(0);
  EXPECT_EQ(Part1.GetObjectID(), MabRixObjectID(KelUnicodeString("C1")));
  EXPECT_EQ(Part1.GetKeyType(), "ZQ_Part");
  EXPECT_EQ(Part1.GetKeyName(), "bracket.prt");
  EXPECT_EQ(Part1.GetKeyRevision(), "A");
  EXPECT_EQ(Part1.GetKeyVersion(), "1");
  EXPECT_EQ(MabRixSetNames(Part1), (std::vector<std::string>{"Thumbnail", "MinorType", "MinorUUID", "MinorOID",
                                                             "OldName", "MinorDocumentID", "MinorVersion"}));
  EXPECT_EQ(MabRixThumbnailOf(Part1), "/thumbs/bracket.png");
  EXPECT_EQ(MabRixText(Part1, &MabERixMinorObject::GetMinorType), "ZQ_PartVersion");
  EXPECT_EQ(MabRixText(Part1, &MabERixMinorObject::GetMinorUUID), "U1");
  EXPECT_EQ(MabRixText(Part1, &MabERixMinorObject::GetMinorOID), "B1");
  EXPECT_EQ(MabRixText(Part1, &MabERixMinorObject::GetOldName), "old_bracket.prt");
  EXPECT_EQ(MabRixDocumentIDOf(Part1), "component|bracket.prt|KelDLN://Work Area/bracket.prt");
  EXPECT_EQ(MabRixText(Part1, &MabERixMinorObject::GetMinorVersion), "1");
  EXPECT_EQ(
      MabRixEntriesOf(Part1._ExtraAttributes),
      (MabRixEntries{{"Description", "Mount bracket"}, {"renamedfrom", "old_bracket.prt"}, {"Material", "Steel"}}));
  EXPECT_EQ(MabRixEntriesOf(Part1._ElementValues), (MabRixEntries{{"Ver", "1"},
                                                                  {"Rev", "A"},
                                                                  {"Name", "Bracket"},
                                                                  {"Type", "Part"},
                                                                  {"State", "In Work"},
                                                                  {"preview", "/thumbs/bracket.png"}}));
  EXPECT_FALSE(Part1._bPointer);

  // Version 2: no preview (an empty thumbnail is set all the same), no old
  // name, no version element.
  const MabERixMinorObject& Part2 = _Context.Minor(1);
  EXPECT_EQ(Part2.GetObjectID(), MabRixObjectID(KelUnicodeString("C2")));
  EXPECT_EQ(Part2.GetKeyRevision(), "A");
  EXPECT_EQ(Part2.GetKeyVersion(), "2");
  EXPECT_EQ(MabRixSetNames(Part2),
            (std::vector<std::string>{"Thumbnail", "MinorType", "MinorUUID", "MinorOID", "MinorDocumentID"}));
  EXPECT_EQ(MabRixThumbnailOf(Part2), "");
  EXPECT_EQ(MabRixText(Part2, &MabERixMinorObject::GetMinorType), "ZQ_PartVersion");
  EXPECT_EQ(MabRixText(Part2, &MabERixMinorObject::GetMinorUUID), "U2");
  EXPECT_EQ(MabRixText(Part2, &MabERixMinorObject::GetMinorOID), "B2");
  EXPECT_EQ(MabRixDocumentIDOf(Part2), "component|bracket.prt|/home/alice/work/bracket.prt");
  EXPECT_EQ(MabRixEntriesOf(Part2._ExtraAttributes), (MabRixEntries{{"Material", "Aluminium"}}));
  EXPECT_EQ(MabRixEntriesOf(Part2._ElementValues),
            (MabRixEntries{{"State", "Frozen"}, {"Lock", "false"}, {"LockedBy", "bob"}}));
  EXPECT_FALSE(Part2._bPointer);

  // The assembly gives no directory or file name: it reuses the previous
  // object's paths.
  const MabERixMinorObject& Assembly3 = _Context.Minor(2);
  EXPECT_EQ(Assembly3.GetObjectID(), MabRixObjectID(KelUnicodeString("C3")));
  EXPECT_EQ(Assembly3.GetKeyType(), "ZQ_Assembly");
  EXPECT_EQ(Assembly3.GetKeyName(), "frame.asm");
  EXPECT_EQ(Assembly3.GetKeyRevision(), "B");
  EXPECT_EQ(Assembly3.GetKeyVersion(), "3");
  EXPECT_EQ(MabRixSetNames(Assembly3),
            (std::vector<std::string>{"Thumbnail", "MinorType", "MinorUUID", "MinorOID", "MinorDocumentID"}));
  EXPECT_EQ(MabRixThumbnailOf(Assembly3), "");
  EXPECT_EQ(MabRixText(Assembly3, &MabERixMinorObject::GetMinorType), "ZQ_AssemblyVersion");
  EXPECT_EQ(MabRixText(Assembly3, &MabERixMinorObject::GetMinorUUID), "U3");
  EXPECT_EQ(MabRixText(Assembly3, &MabERixMinorObject::GetMinorOID), "B3");
  EXPECT_EQ(MabRixDocumentIDOf(Assembly3), "assembly|frame.asm|/home/alice/work/bracket.prt");
  EXPECT_EQ(MabRixEntriesOf(Assembly3._ExtraAttributes), (MabRixEntries{{"Owner", "bob"}}));
  EXPECT_EQ(MabRixEntriesOf(Assembly3._ElementValues), (MabRixEntries{{"Rev", "B"}}));
  EXPECT_FALSE(Assembly3._bPointer);

  // The handler holds no entity: the context's references are the only ones.
  for (const MabERixMinorObject_var& spMinor : _Context.Get()->GetMinorObjects())
    EXPECT_EQ(spMinor->GetRefCount(), 1u);
}

TEST_F(MabRixSAXHandlerObjectListTest, ClosingTheListGivesTheParserBack)
{
  MabRixTNRObjectContext* pContext = _Context.Get();
  const MabRixTestReading Reading = MabRixRead(std::string("<response>") + ThreeObjects + "<after/></response>",
                                               MabRixMake<MabRixSAXHandlerObjectList>(pContext), "cadobjectlist");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(_Context.Minors(), 3u);
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST_F(MabRixSAXHandlerObjectListTest, OtherElementsOfTheListAreIgnored)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading =
      Read("<list>text<header count='1'><cadobjects/></header><cadobject cadid='C1' zqversion='A.1'" +
           std::string(Minimal) + "/></list>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(_Context.Minors(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST_F(MabRixSAXHandlerObjectListTest, CadObjectWithZeroAttributesFailsWithoutAChildHandler)
{
  const MabRixTestReading Reading = Read("<list><cadobject><Ver>1</Ver></cadobject></list>");
  EXPECT_EQ(Reading._Result, E_FAIL);
  ExpectUnexpectedError();
  EXPECT_FALSE(!!KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetChildHandler());
  EXPECT_EQ(_Context.Objects(), 0u);
  EXPECT_EQ(_Context.Minors(), 0u);
}

TEST_F(MabRixSAXHandlerObjectListTest, AliasDirectoryBecomesALocationOnlyInItsExactForm)
{
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n1' type='t' dirname='[ALIAS|X]' filename='f'/>"
      "<cadobject cadid='C2' zqversion='A.1' zqtype='T' name='n2' type='t' dirname='[alias|X]' filename='f'/>"
      "<cadobject cadid='C3' zqversion='A.1' zqtype='T' name='n3' type='t' dirname='[ALIAS|X' filename='f'/>"
      "<cadobject cadid='C4' zqversion='A.1' zqtype='T' name='n4' type='t' dirname='ALIAS|X]' filename='f'/>"
      "<cadobject cadid='C5' zqversion='A.1' zqtype='T' name='n5' type='t' dirname='[ALIAS|Work Area]' filename=''/>"
      "</list>");
  ASSERT_EQ(_Context.Minors(), 5u);
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(0)), "t|n1|KelDLN://X/f");
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(1)), "t|n2|[alias|X]/f");
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(2)), "t|n3|[ALIAS|X/f");
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(3)), "t|n4|ALIAS|X]/f");
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(4)), "t|n5|KelDLN://Work Area");
}

TEST_F(MabRixSAXHandlerObjectListTest, FullVersionIsSplitAtItsLastDot)
{
  const MabRixTestReading Reading = Read("<list><cadobject cadid='C1' zqversion='A.1.2'" + std::string(Minimal) +
                                         "><Ver>9</Ver><Rev>Z</Rev></cadobject></list>");
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(_Context.Minors(), 1u);
  EXPECT_EQ(_Context.Major(0).GetKeyRevision(), "A.1");
  EXPECT_EQ(_Context.Minor(0).GetKeyRevision(), "A.1");
  EXPECT_EQ(_Context.Minor(0).GetKeyVersion(), "2");
  // The elements fill in what the attributes left unset.
  EXPECT_EQ(MabRixText(_Context.Minor(0), &MabERixMinorObject::GetMinorVersion), "9");
  EXPECT_EQ(MabRixText(_Context.Major(0), &MabERixMajorObject::GetMajorRevision), "Z");
}

TEST_F(MabRixSAXHandlerObjectListTest, EmptyFullVersionFailsBeforeAnyCreation)
{
  const MabRixTestReading Reading = Read("<list><cadobject cadid='C1' zqversion=''" + std::string(Minimal) +
                                         "><Ver>1</Ver><Rev>A</Rev></cadobject></list>");
  EXPECT_EQ(Reading._Result, E_FAIL);
  ExpectUnexpectedError();
  EXPECT_EQ(_Context.Objects(), 0u);
  EXPECT_EQ(_Context.Majors(), 0u);
  EXPECT_EQ(_Context.Minors(), 0u);
}

TEST_F(MabRixSAXHandlerObjectListTest, IsLockedIsTrueInAnyLetterCaseOnly)
{
  const char* const Texts[] = {"TRUE", "True", "true", "yes", "1", "false", ""};
  std::string Xml = "<list>";
  for (int i = 0; i < 7; ++i)
    Xml += "<cadobject cadid='C" + std::to_string(i) + "' zqversion='A.1' zqtype='T' name='n" + std::to_string(i) +
           "' islocked='" + Texts[i] + "'/>";
  Read(Xml + "</list>");
  ASSERT_EQ(_Context.Majors(), 7u);
  const int Expected[] = {1, 1, 1, 0, 0, 0, 0};
  for (int i = 0; i < 7; ++i)
    EXPECT_EQ(MabRixFlag(_Context.Major(i), &MabERixMajorObject::GetLockStatus), Expected[i]) << Texts[i];
}

TEST_F(MabRixSAXHandlerObjectListTest, RenamedFromOnCadObjectWinsAndAnEmptyOneSetsNoOldName)
{
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n1' renamedfrom='from-attribute'>"
      "<attribute><name>renamedfrom</name><value>from-element</value></attribute></cadobject>"
      "<cadobject cadid='C2' zqversion='A.1' zqtype='T' name='n2' renamedfrom=''>"
      "<attribute><name>renamedfrom</name><value>from-element</value></attribute></cadobject>"
      "<cadobject cadid='C3' zqversion='A.1' zqtype='T' name='n3'>"
      "<attribute><name>renamedfrom</name><value>from-element</value></attribute></cadobject>"
      "</list>");
  ASSERT_EQ(_Context.Minors(), 3u);
  EXPECT_EQ(MabRixText(_Context.Minor(0), &MabERixMinorObject::GetOldName), "from-attribute");
  EXPECT_EQ(MabRixEntriesOf(_Context.Minor(0)._ExtraAttributes), (MabRixEntries{{"renamedfrom", "from-attribute"}}));
  EXPECT_EQ(MabRixText(_Context.Minor(1), &MabERixMinorObject::GetOldName), "<unset>");
  EXPECT_EQ(MabRixEntriesOf(_Context.Minor(1)._ExtraAttributes), (MabRixEntries{{"renamedfrom", ""}}));
  EXPECT_EQ(MabRixText(_Context.Minor(2), &MabERixMinorObject::GetOldName), "from-element");
}

TEST_F(MabRixSAXHandlerObjectListTest, SecondUnknownAttributeWithTheSameNameIsIgnored)
{
  DirectList Direct(_Context.Get());
  const KelISAXAttributeList_var spAttributes = MabRixTestAttributeList::Make(
      {{"cadid", "C1"}, {"zqversion", "A.1"}, {"zqtype", "T"}, {"name", "n"}, {"Note", "first"}, {"Note", "second"}});
  ASSERT_EQ(Direct._spHandler->StartElement("cadobject", spAttributes), S_OK);
  ASSERT_EQ(Direct.EndObject(), S_OK);
  ASSERT_EQ(_Context.Minors(), 1u);
  EXPECT_EQ(MabRixEntriesOf(_Context.Minor(0)._ExtraAttributes), (MabRixEntries{{"Note", "first"}}));
}

TEST_F(MabRixSAXHandlerObjectListTest, LockElementNeverOverridesTheLockStatusOfTheAttributes)
{
  // The lock status is always set from "islocked" (false when absent), so
  // its query never fails and the Lock and LockedBy elements never apply.
  Read(
      "<list><cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n'>"
      "<Lock>true</Lock><LockedBy>bob</LockedBy><State>Released</State></cadobject></list>");
  ASSERT_EQ(_Context.Majors(), 1u);
  EXPECT_EQ(MabRixFlag(_Context.Major(0), &MabERixMajorObject::GetLockStatus), 0);
  EXPECT_EQ(MabRixText(_Context.Major(0), &MabERixMajorObject::GetLockOwner), "");
  EXPECT_EQ(MabRixText(_Context.Major(0), &MabERixMajorObject::GetState), "Released");
}

TEST_F(MabRixSAXHandlerObjectListTest, ElementValuesFillInOnlyWhatIsUnset)
{
  // The second version of the same object gives other names: the first ones
  // stay.
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n'><Name>First</Name><State>S1</State></cadobject>"
      "<cadobject cadid='C2' zqversion='A.2' zqtype='T' name='n'><Name>Second</Name><Type>Ty</Type>"
      "<State>S2</State><Ver>7</Ver></cadobject>"
      "</list>");
  ASSERT_EQ(_Context.Objects(), 1u);
  EXPECT_EQ(MabRixText(_Context.Object(0), &MabERixObject::GetName), "First");
  EXPECT_EQ(MabRixText(_Context.Object(0), &MabERixObject::GetType), "Ty");
  EXPECT_EQ(MabRixText(_Context.Major(0), &MabERixMajorObject::GetState), "S1");
  // "Ver" sets the minor version, which the full version does not.
  EXPECT_EQ(MabRixText(_Context.Minor(1), &MabERixMinorObject::GetMinorVersion), "7");
  EXPECT_EQ(_Context.Minor(1).GetKeyVersion(), "2");
}

TEST_F(MabRixSAXHandlerObjectListTest, VersionRevisionAndPathsCarryOverToTheNextObject)
{
  const MabRixTestReading Reading = Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n1' type='t' dirname='/d' filename='f1'/>"
      "<cadobject cadid='C2' zqversion='nodot' zqtype='T' name='n2' type='t'/>"
      "</list>");
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_EQ(_Context.Minors(), 2u);
  EXPECT_EQ(_Context.Minor(1).GetKeyRevision(), "A");
  EXPECT_EQ(_Context.Minor(1).GetKeyVersion(), "1");
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(1)), "t|n2|/d/f1");
}

TEST_F(MabRixSAXHandlerObjectListTest, OtherStateIsResetBetweenObjects)
{
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n1' busid='B' bustype='BT' uuid='U' oid='O'"
      " locker='me' islocked='true' type='t' extra='x'><preview>p</preview><State>S</State></cadobject>"
      "<cadobject cadid='C2' zqversion='A.1' zqtype='T' name='n2'/>"
      "</list>");
  ASSERT_EQ(_Context.Minors(), 2u);
  const MabERixMinorObject& Second = _Context.Minor(1);
  EXPECT_EQ(MabRixText(Second, &MabERixMinorObject::GetMinorOID), "");
  EXPECT_EQ(MabRixText(Second, &MabERixMinorObject::GetMinorType), "");
  EXPECT_EQ(MabRixText(Second, &MabERixMinorObject::GetMinorUUID), "");
  EXPECT_EQ(MabRixThumbnailOf(Second), "");
  EXPECT_EQ(Second._ExtraAttributes.Size(), 0);
  EXPECT_EQ(Second._ElementValues.Size(), 0);
  EXPECT_EQ(MabRixFlag(_Context.Major(1), &MabERixMajorObject::GetLockStatus), 0);
  EXPECT_EQ(MabRixText(_Context.Major(1), &MabERixMajorObject::GetLockOwner), "");
  EXPECT_EQ(MabRixText(_Context.Major(1), &MabERixMajorObject::GetMajorOID), "");
  EXPECT_EQ(MabRixText(_Context.Object(1), &MabERixObject::GetCADType), "");
}

TEST_F(MabRixSAXHandlerObjectListTest, ARepeatedCadIdFillsTheSameMinorObjectAgain)
{
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n' uuid='U1' k1='v1'/>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n' uuid='U2' k2='v2'/>"
      "</list>");
  ASSERT_EQ(_Context.Minors(), 1u);
  EXPECT_EQ(MabRixText(_Context.Minor(0), &MabERixMinorObject::GetMinorUUID), "U2");
  EXPECT_EQ(MabRixEntriesOf(_Context.Minor(0)._ExtraAttributes), (MabRixEntries{{"k2", "v2"}}));
}

TEST_F(MabRixSAXHandlerObjectListTest, DocumentIDIsSetOnlyOnce)
{
  Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n' type='t' dirname='/first' filename='f'/>"
      "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n' type='t' dirname='/second' filename='f'/>"
      "</list>");
  ASSERT_EQ(_Context.Minors(), 1u);
  EXPECT_EQ(MabRixDocumentIDOf(_Context.Minor(0)), "t|n|/first/f");
}

// Failure paths: every raise point gives the unexpected-error result.

TEST_F(MabRixSAXHandlerObjectListTest, RaisesOnNullAttributeList)
{
  DirectList Direct(_Context.Get());
  EXPECT_EQ(Direct._spHandler->StartElement("cadobject", KelISAXAttributeList_var()), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_FALSE(!!Direct._spHandler->GetChildHandler());
}

TEST_F(MabRixSAXHandlerObjectListTest, RaisesWhenTheAttributeCountCannotBeRead)
{
  DirectList Direct(_Context.Get());
  KelISAXAttributeList_var spAttributes = MabRixTestAttributeList::Make({{"cadid", "C1"}});
  KelImplCast<MabRixTestAttributeList>(spAttributes.Get())->_LengthResult = E_FAIL;
  EXPECT_EQ(Direct._spHandler->StartElement("cadobject", spAttributes), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_FALSE(!!Direct._spHandler->GetChildHandler());
}

TEST_F(MabRixSAXHandlerObjectListTest, RaisesWhenTheContentHandlerCannotStart)
{
  KelVar<MabRixTestParser> spParser = KelVar<MabRixTestParser>::Adopt(new MabRixTestParser());
  DirectList Direct(_Context.Get(), KelISAXParser_var(spParser));
  const KelISAXAttributeList_var spAttributes =
      MabRixTestAttributeList::Make({{"cadid", "C1"}, {"zqversion", "A.1"}, {"zqtype", "T"}, {"name", "n"}});
  spParser->_Refusals = 1;
  EXPECT_EQ(Direct._spHandler->StartElement("cadobject", spAttributes), E_FAIL);
  ExpectUnexpectedError();
  // The next cadobject starts normally and replaces the child that could not.
  KelError::KelCleanLastError();
  ASSERT_EQ(Direct._spHandler->StartElement("cadobject", spAttributes), S_OK);
  ASSERT_EQ(Direct.EndObject(), S_OK);
  EXPECT_EQ(_Context.Minors(), 1u);
}

TEST_F(MabRixSAXHandlerObjectListTest, RaisesOnNullValue)
{
  DirectList Direct(_Context.Get());
  EXPECT_EQ(Direct._spHandler->Value(MabIRixValue_var()), E_FAIL);
  ExpectUnexpectedError();
}

TEST_F(MabRixSAXHandlerObjectListTest, RaisesWithoutAContext)
{
  MabRixTNRObjectContext* pNoContext = nullptr;
  const MabRixTestReading Reading =
      MabRixRead("<list><cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n'/></list>",
                 MabRixMake<MabRixSAXHandlerObjectList>(pNoContext));
  EXPECT_EQ(Reading._Result, E_FAIL);
  ExpectUnexpectedError();
  EXPECT_EQ(Reading._spParser->GetCallbackFailureCount(), 1u);
  EXPECT_STREQ(Reading._spParser->GetCallbackFailures()[0]._Event, "EndElement");
  EXPECT_EQ(Reading._spParser->GetCallbackFailures()[0]._Element, "cadobject");
}

TEST_F(MabRixSAXHandlerObjectListTest, WithoutAContextInnerEndsFailButTheListEndSucceeds)
{
  MabRixTNRObjectContext* pNoContext = nullptr;
  const MabRixTestReading Reading =
      MabRixRead("<list><other/></list>", MabRixMake<MabRixSAXHandlerObjectList>(pNoContext));
  EXPECT_EQ(Reading._Result, E_FAIL);
  ExpectUnexpectedError();
  ASSERT_EQ(Reading._spParser->GetCallbackFailureCount(), 1u);
  EXPECT_EQ(Reading._spParser->GetCallbackFailures()[0]._Element, "other");
  // The list's own end handed the parser back.
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 0);
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
}

TEST_F(MabRixSAXHandlerObjectListTest, RaisesWhenTheValueIsNotAnObjectContent)
{
  DirectList Direct(_Context.Get());
  const KelISAXAttributeList_var spAttributes =
      MabRixTestAttributeList::Make({{"cadid", "C1"}, {"zqversion", "A.1"}, {"zqtype", "T"}, {"name", "n"}});
  ASSERT_EQ(Direct._spHandler->StartElement("cadobject", spAttributes), S_OK);
  MabRixStringValue* pString = new MabRixStringValue();
  EXPECT_EQ(Direct._spHandler->Value(MabIRixValue_var::Adopt(pString)), E_FAIL);
  ExpectUnexpectedError();
  EXPECT_EQ(_Context.Objects(), 0u);
  // The state was reset: the content that follows has no full version.
  EXPECT_EQ(Direct.EndObject(), E_FAIL);
  EXPECT_EQ(_Context.Objects(), 0u);
}

namespace
{
struct FailingObject
{
  const char* _Case;
  const char* _Xml;
  std::size_t _Objects;  // objects the context holds after the failure
};

// One object whose reading fails in Value, at a raise point of its own.
const FailingObject FailingObjects[] = {
    {"EmptyVer", "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n'><Ver></Ver></cadobject>", 0},
    {"EmptyRev", "<cadobject cadid='C1' zqversion='A.1' zqtype='T' name='n'><Rev/></cadobject>", 0},
    {"NoObjectType", "<cadobject cadid='C1' zqversion='A.1' name='n'/>", 1},
    {"NoName", "<cadobject cadid='C1' zqversion='A.1' zqtype='T'/>", 1},
    {"NoVersion", "<cadobject cadid='C1' zqversion='A' zqtype='T' name='n'/>", 1},
    {"NoRevision", "<cadobject cadid='C1' zqversion='A' zqtype='T' name='n'><Ver>1</Ver></cadobject>", 1},
};
}  // namespace

TEST_F(MabRixSAXHandlerObjectListTest, EachRaisePointGivesTheUnexpectedErrorFromALineOfItsOwn)
{
  std::set<int> Lines;
  for (const FailingObject& Case : FailingObjects)
  {
    SCOPED_TRACE(Case._Case);
    KelError::KelCleanLastError();
    MabRixTestContext Context;
    MabRixTNRObjectContext* pContext = Context.Get();
    const MabRixTestReading Reading =
        MabRixRead(std::string("<list>") + Case._Xml + "</list>", MabRixMake<MabRixSAXHandlerObjectList>(pContext));
    EXPECT_EQ(Reading._Result, E_FAIL);
    ExpectUnexpectedError();
    Lines.insert(MabRixGetLastError()._Line);
    // Objects created before the failure stay; nothing gets past it.
    EXPECT_EQ(Context.Objects(), Case._Objects);
    EXPECT_EQ(Context.Majors(), 0u);
    EXPECT_EQ(Context.Minors(), 0u);
  }
  EXPECT_EQ(Lines.size(), sizeof(FailingObjects) / sizeof(FailingObjects[0]));
}

TEST_F(MabRixSAXHandlerObjectListTest, APendingErrorSuppliesTheCodeAndKeepsItsPlace)
{
  const std::string NoType = "<cadobject cadid='C1' zqversion='A.1' name='n'/>";
  const std::string NoFullVersion = "<cadobject cadid='C2' zqversion='' zqtype='T' name='n'/>";
  const auto LineOf = [this](const std::string& iObjects) {
    KelError::KelCleanLastError();
    Read("<list>" + iObjects + "</list>");
    return MabRixGetLastError()._Line;
  };
  const int NoTypeLine = LineOf(NoType);
  const int NoFullVersionLine = LineOf(NoFullVersion);
  ASSERT_NE(NoTypeLine, NoFullVersionLine);
  // The second failure finds the first one's error recorded and passes it
  // on instead of raising its own.
  EXPECT_EQ(LineOf(NoType + NoFullVersion), NoTypeLine);
}

TEST_F(MabRixSAXHandlerObjectListTest, TheNextObjectAfterAFailureStartsClean)
{
  const MabRixTestReading Reading = Read(
      "<list>"
      "<cadobject cadid='C1' zqversion='A.1' name='n' uuid='U1' k='v'/>"
      "<cadobject cadid='C2' zqversion='B.2' zqtype='T' name='m'/>"
      "</list>");
  EXPECT_EQ(Reading._Result, E_FAIL);
  ASSERT_EQ(_Context.Minors(), 1u);
  EXPECT_EQ(_Context.Minor(0).GetObjectID(), MabRixObjectID(KelUnicodeString("C2")));
  EXPECT_EQ(MabRixText(_Context.Minor(0), &MabERixMinorObject::GetMinorUUID), "");
  EXPECT_EQ(_Context.Minor(0)._ExtraAttributes.Size(), 0);
}

TEST_F(MabRixSAXHandlerObjectListTest, IsRegisteredAsAHandler)
{
  DirectList Direct(_Context.Get());
  MabIRixSAXHandler_var spHandler(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerObjectList(*Direct._spHandler));
  EXPECT_STREQ(spHandler->GetImpl()->IsA(), "MabRixSAXHandlerObjectList");
  EXPECT_TRUE(spHandler->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
  MabIRixResponse_var spResponse;
  EXPECT_EQ(spHandler->GetResponse(spResponse), E_FAIL);
  EXPECT_FALSE(!!spResponse);
}
