#include <gtest/gtest.h>

#include "MabRixCustomQueryResultValue.h"
#include "MabRixSAXHandlerCustomQueryResult.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

namespace
{
const char* const CheckFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerCustomQueryResult";

MabRixTestReading ReadRows(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerCustomQueryResult>());
}

MabRixTNRObjectContext* ContextOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixCustomQueryResultValue* pValue =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixCustomQueryResultValue>(iReading.Values()[0]);
  EXPECT_NE(pValue, nullptr);
  return pValue ? pValue->GetObjectContext() : nullptr;
}

MabRixSAXHandlerCustomQueryResult* HandlerOf(const MabRixTestReading& iReading)
{
  return KelImplCast<MabRixSAXHandlerCustomQueryResult>(iReading.Handler().Get());
}

// A property of an entity, or "<unset>".
template <class Entity, class T>
std::string Read(const Entity& iEntity, HRESULT (Entity::*iGetter)(T&) const)
{
  T Value{};
  if (FAILED((iEntity.*iGetter)(Value)))
    return "<unset>";
  if constexpr (std::is_same_v<T, unsigned char>)
    return Value ? "true" : "false";
  else if constexpr (std::is_same_v<T, MabRixPath>)
    return Value.GetString().ToUtf8();
  else
    return Value.ToUtf8();
}

KelUnicodeStringKelUnicodeStringDico Dico(std::initializer_list<std::pair<const char*, const char*>> iEntries)
{
  KelUnicodeStringKelUnicodeStringDico Result;
  for (const auto& Entry : iEntries)
    Result.Insert(Entry.first, Entry.second);
  return Result;
}

const char* const Attribute = "<attribute><name>%s</name><value>%s</value></attribute>";
}  // namespace

TEST(MabRixSAXHandlerCustomQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadRows(R"(<?xml version="1.0"?>
<customquery>
  <row rowid="1001.2.3" oid="55.1.2" cadtype="component" name="bracket" revision="A" type="CAD Part">
    <Ver>3</Ver>
    <State>Released</State>
    <Lock>FALSE</Lock>
    <LockedBy></LockedBy>
    <preview>/thumbs/bracket.png</preview>
    <attribute><name>Material</name><value>Steel</value></attribute>
    <attribute><name>Weight</name><value>1.2</value></attribute>
  </row>
  <row rowid="1001.2.4" oid="55.1.3" cadtype="assembly">
    <Type>CAD Assembly</Type>
    <Name>frame</Name>
    <Rev>B</Rev>
    <Ver>1</Ver>
    <Lock>True</Lock>
    <LockedBy>jdoe</LockedBy>
    <State>In Work</State>
    <CustomName>Frame asm</CustomName>
  </row>
  <row rowid="1001.2.5" oid="55.1.4" name="bracket" revision="B" type="CAD Part">
    <State>Preliminary</State>
  </row>
</customquery>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_NE(pContext, nullptr);

  ASSERT_EQ(pContext->GetObjects().size(), 2u);
  const MabERixObject& Bracket = *pContext->GetObjects()[0];
  const MabERixObject& Frame = *pContext->GetObjects()[1];
  EXPECT_EQ(Bracket.GetKeyType(), "CAD Part");
  EXPECT_EQ(Bracket.GetKeyName(), "bracket");
  // The third row names no cadtype: the object's CAD type is set again, empty.
  EXPECT_EQ(Read(Bracket, &MabERixObject::GetCADType), "");
  EXPECT_EQ(Frame.GetKeyType(), "CAD Assembly");
  EXPECT_EQ(Frame.GetKeyName(), "frame");
  EXPECT_EQ(Read(Frame, &MabERixObject::GetCADType), "assembly");

  ASSERT_EQ(pContext->GetMajorObjects().size(), 3u);
  const MabERixMajorObject& BracketA = *pContext->GetMajorObjects()[0];
  const MabERixMajorObject& FrameB = *pContext->GetMajorObjects()[1];
  const MabERixMajorObject& BracketB = *pContext->GetMajorObjects()[2];
  EXPECT_EQ(BracketA.GetKeyRevision(), "A");
  EXPECT_EQ(BracketA.GetOwnerObject(), &Bracket);
  EXPECT_EQ(Read(BracketA, &MabERixMajorObject::GetMajorOID), "55.1.2");
  EXPECT_EQ(Read(BracketA, &MabERixMajorObject::GetState), "Released");
  EXPECT_EQ(Read(BracketA, &MabERixMajorObject::GetLockStatus), "false");
  EXPECT_EQ(Read(BracketA, &MabERixMajorObject::GetLockOwner), "");
  EXPECT_EQ(FrameB.GetKeyRevision(), "B");
  EXPECT_EQ(FrameB.GetOwnerObject(), &Frame);
  EXPECT_EQ(Read(FrameB, &MabERixMajorObject::GetMajorOID), "55.1.3");
  EXPECT_EQ(Read(FrameB, &MabERixMajorObject::GetState), "In Work");
  EXPECT_EQ(Read(FrameB, &MabERixMajorObject::GetLockStatus), "true");
  EXPECT_EQ(Read(FrameB, &MabERixMajorObject::GetLockOwner), "jdoe");
  EXPECT_EQ(BracketB.GetKeyRevision(), "B");
  EXPECT_EQ(BracketB.GetOwnerObject(), &Bracket);
  EXPECT_EQ(Read(BracketB, &MabERixMajorObject::GetMajorOID), "55.1.4");
  EXPECT_EQ(Read(BracketB, &MabERixMajorObject::GetState), "Preliminary");
  EXPECT_EQ(Read(BracketB, &MabERixMajorObject::GetLockStatus), "<unset>");
  EXPECT_EQ(Read(BracketB, &MabERixMajorObject::GetLockOwner), "<unset>");

  ASSERT_EQ(pContext->GetMinorObjects().size(), 2u);
  const MabERixMinorObject& Minor1 = *pContext->GetMinorObjects()[0];
  const MabERixMinorObject& Minor2 = *pContext->GetMinorObjects()[1];
  EXPECT_EQ(Minor1.GetObjectID(), MabRixObjectID(KelUnicodeString("1001.2.3")));
  EXPECT_EQ(Minor1.GetKeyType(), "CAD Part");
  EXPECT_EQ(Minor1.GetKeyName(), "bracket");
  EXPECT_EQ(Minor1.GetKeyRevision(), "A");
  EXPECT_EQ(Minor1.GetKeyVersion(), "3");
  EXPECT_EQ(Read(Minor1, &MabERixMinorObject::GetThumbnail), "/thumbs/bracket.png");
  EXPECT_EQ(Minor1._ExtraAttributes, Dico({{"Material", "Steel"}, {"Weight", "1.2"}}));
  EXPECT_EQ(Minor1._ElementValues, Dico({{"Ver", "3"},
                                         {"State", "Released"},
                                         {"Lock", "FALSE"},
                                         {"LockedBy", ""},
                                         {"preview", "/thumbs/bracket.png"}}));
  EXPECT_EQ(Minor2.GetObjectID(), MabRixObjectID(KelUnicodeString("1001.2.4")));
  EXPECT_EQ(Minor2.GetKeyType(), "CAD Assembly");
  EXPECT_EQ(Minor2.GetKeyName(), "frame");
  EXPECT_EQ(Minor2.GetKeyRevision(), "B");
  EXPECT_EQ(Minor2.GetKeyVersion(), "1");
  EXPECT_EQ(Read(Minor2, &MabERixMinorObject::GetThumbnail), "");
  EXPECT_EQ(Minor2._ExtraAttributes.Size(), 0);
  EXPECT_EQ(Minor2._ElementValues, Dico({{"Type", "CAD Assembly"},
                                         {"Name", "frame"},
                                         {"Rev", "B"},
                                         {"Ver", "1"},
                                         {"Lock", "True"},
                                         {"LockedBy", "jdoe"},
                                         {"State", "In Work"},
                                         {"CustomName", "Frame asm"}}));
}

TEST(MabRixSAXHandlerCustomQueryResult, AllSixAttributesAndVerCreateObjectMajorAndMinor)
{
  const MabRixTestReading Reading =
      ReadRows("<q><row rowid='r1' oid='o' cadtype='c' name='n' revision='A' type='T'><Ver>2</Ver></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_NE(pContext, nullptr);
  EXPECT_EQ(pContext->GetObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMajorObjects().size(), 1u);
  ASSERT_EQ(pContext->GetMinorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMinorObjects()[0]->GetKeyVersion(), "2");
}

TEST(MabRixSAXHandlerCustomQueryResult, RowWithoutVerCreatesNoMinorObject)
{
  const MabRixTestReading Reading =
      ReadRows("<q><row rowid='r1' oid='o' cadtype='c' name='n' revision='A' type='T'></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_NE(pContext, nullptr);
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(pContext->GetObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMajorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMinorObjects().size(), 0u);
}

TEST(MabRixSAXHandlerCustomQueryResult, RowWithoutNameAttributeTakesTheNameElement)
{
  const MabRixTestReading Reading =
      ReadRows("<q><row rowid='r' type='T' revision='A'><Name>from element</Name></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetObjects().size(), 1u);
  EXPECT_EQ(pContext->GetObjects()[0]->GetKeyName(), "from element");
}

TEST(MabRixSAXHandlerCustomQueryResult, AttributeWinsOverTheElement)
{
  const MabRixTestReading Reading = ReadRows(
      "<q><row rowid='r' name='attr' type='T' revision='A'><Name>elem</Name><Type>X</Type><Rev>Z</Rev></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetMajorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMajorObjects()[0]->GetKeyName(), "attr");
  EXPECT_EQ(pContext->GetMajorObjects()[0]->GetKeyType(), "T");
  EXPECT_EQ(pContext->GetMajorObjects()[0]->GetKeyRevision(), "A");
}

TEST(MabRixSAXHandlerCustomQueryResult, LockTrueInAnyLetterCaseIsTrueAndAnythingElseFalse)
{
  const char* const Texts[][2] = {{"true", "true"}, {"TRUE", "true"}, {"tRuE", "true"},
                                  {"yes", "false"}, {"1", "false"},   {"", "false"}};
  for (const auto& Text : Texts)
  {
    SCOPED_TRACE(Text[0]);
    const MabRixTestReading Reading = ReadRows(std::string("<q><row rowid='r' name='n' type='T' revision='A'><Lock>") +
                                               Text[0] + "</Lock></row></q>");
    MabRixTNRObjectContext* pContext = ContextOf(Reading);
    ASSERT_EQ(pContext->GetMajorObjects().size(), 1u);
    EXPECT_EQ(Read(*pContext->GetMajorObjects()[0], &MabERixMajorObject::GetLockStatus), Text[1]);
  }
}

TEST(MabRixSAXHandlerCustomQueryResult, MajorObjectKeepsItsStateWhenALaterRowBringsAnother)
{
  const MabRixTestReading Reading = ReadRows(
      "<q><row rowid='r1' name='n' type='T' revision='A'><State>Released</State><Lock>true</Lock>"
      "<LockedBy>amy</LockedBy></row>"
      "<row rowid='r2' name='n' type='T' revision='A'><State>Obsolete</State><Lock>false</Lock>"
      "<LockedBy>bob</LockedBy></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetMajorObjects().size(), 1u);
  const MabERixMajorObject& Major = *pContext->GetMajorObjects()[0];
  EXPECT_EQ(Read(Major, &MabERixMajorObject::GetState), "Released");
  EXPECT_EQ(Read(Major, &MabERixMajorObject::GetLockStatus), "true");
  EXPECT_EQ(Read(Major, &MabERixMajorObject::GetLockOwner), "amy");
}

TEST(MabRixSAXHandlerCustomQueryResult, RowWithoutRowidIsRejectedAndItsAttributesReachTheNextStoredRow)
{
  char First[200];
  std::snprintf(First, sizeof First, Attribute, "Finish", "Painted");
  const MabRixTestReading Reading =
      ReadRows(std::string("<q><row name='a' type='T' revision='A'>") + First +
               "</row><row rowid='r2' name='b' type='T' revision='A'><Ver>1</Ver></row></q>");
  EXPECT_EQ(Reading._Result, E_FAIL);
  const std::vector<KelSAXCallbackFailure>& Failures = Reading._spParser->GetCallbackFailures();
  ASSERT_EQ(Failures.size(), 1u);
  EXPECT_STREQ(Failures[0]._Event, "EndElement");
  EXPECT_EQ(Failures[0]._Element, "row");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  // Only the second row was stored, and it carries the first row's attribute.
  ASSERT_EQ(pContext->GetObjects().size(), 1u);
  EXPECT_EQ(pContext->GetObjects()[0]->GetKeyName(), "b");
  ASSERT_EQ(pContext->GetMinorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMinorObjects()[0]->_ExtraAttributes, Dico({{"Finish", "Painted"}}));
}

TEST(MabRixSAXHandlerCustomQueryResult, SharedAttributeKeyKeepsTheRejectedRowsValue)
{
  char First[200];
  char Second[200];
  std::snprintf(First, sizeof First, Attribute, "Colour", "first");
  std::snprintf(Second, sizeof Second, Attribute, "Colour", "second");
  const MabRixTestReading Reading =
      ReadRows(std::string("<q><row rowid='r1' name='a' revision='A'>") + First + "</row>" +
               "<row rowid='r2' name='b' type='T' revision='A'><Ver>1</Ver>" + Second + "</row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetMinorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMinorObjects()[0]->_ExtraAttributes, Dico({{"Colour", "first"}}));
}

TEST(MabRixSAXHandlerCustomQueryResult, StoredRowFlushesSoTheNextRowStartsClean)
{
  char First[200];
  char Second[200];
  std::snprintf(First, sizeof First, Attribute, "Colour", "first");
  std::snprintf(Second, sizeof Second, Attribute, "Colour", "second");
  const MabRixTestReading Reading =
      ReadRows(std::string("<q><row rowid='r1' name='a' type='T' revision='A'><Ver>4</Ver>") + First + "</row>" +
               "<row rowid='r2' name='b' type='T' revision='A'><Ver>1</Ver>" + Second + "</row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetMinorObjects().size(), 2u);
  EXPECT_EQ(pContext->GetMinorObjects()[1]->_ExtraAttributes, Dico({{"Colour", "second"}}));
}

TEST(MabRixSAXHandlerCustomQueryResult, RejectedRowCarriesItsVersionAndElementsIntoTheNextRow)
{
  const MabRixTestReading Reading = ReadRows(
      "<q><row rowid='r1' name='a' revision='A'><Ver>7</Ver><State>Frozen</State></row>"
      "<row rowid='r2' name='b' type='T' revision='A'></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  // The second row has no "Ver" element: the rejected row's version stays.
  ASSERT_EQ(pContext->GetMinorObjects().size(), 1u);
  EXPECT_EQ(pContext->GetMinorObjects()[0]->GetKeyVersion(), "7");
  EXPECT_EQ(pContext->GetMinorObjects()[0]->GetObjectID(), MabRixObjectID(KelUnicodeString("r2")));
  // Element values are replaced by each row's own.
  EXPECT_EQ(pContext->GetMinorObjects()[0]->_ElementValues.Size(), 0);
}

TEST(MabRixSAXHandlerCustomQueryResult, RowWithoutTypeNameOrRevisionIsRejected)
{
  const char* const Rows[] = {"<row rowid='r' name='n' revision='A'/>", "<row rowid='r' type='T' revision='A'/>",
                              "<row rowid='r' type='T' name='n'/>"};
  for (const char* Row : Rows)
  {
    SCOPED_TRACE(Row);
    const MabRixTestReading Reading = ReadRows(std::string("<q>") + Row + "</q>");
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(ContextOf(Reading)->GetObjects().size(), 0u);
  }
}

TEST(MabRixSAXHandlerCustomQueryResult, CustomNameHasNoEffect)
{
  const MabRixTestReading Reading =
      ReadRows("<q><row rowid='r' name='n' type='T' revision='A'><CustomName>Other</CustomName></row></q>");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_EQ(pContext->GetObjects().size(), 1u);
  EXPECT_EQ(pContext->GetObjects()[0]->GetKeyName(), "n");
  // Only the OID and the CAD type were set.
  EXPECT_EQ(pContext->GetMajorObjects()[0]->GetSetProperties().size(), 1u);
  EXPECT_EQ(pContext->GetObjects()[0]->GetSetProperties().size(), 1u);
}

TEST(MabRixSAXHandlerCustomQueryResult, RowsAtAnyDepthAreRead)
{
  const MabRixTestReading Reading =
      ReadRows("<q><page><group><row rowid='r' name='n' type='T' revision='A'/></group></page></q>");
  EXPECT_EQ(ContextOf(Reading)->GetObjects().size(), 1u);
}

TEST(MabRixSAXHandlerCustomQueryResult, EmptyResponseGivesAnEmptyContextOnce)
{
  const MabRixTestReading Reading =
      MabRixRead("<doc><q></q><after/></doc>", MabRixMake<MabRixSAXHandlerCustomQueryResult>(), "q");
  MabRixTNRObjectContext* pContext = ContextOf(Reading);
  ASSERT_NE(pContext, nullptr);
  EXPECT_TRUE(pContext->GetObjects().empty());
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
  EXPECT_EQ(Reading.Values()[0].Get()->GetImpl(), HandlerOf(Reading)->GetCustomQueryResultValue());
}

TEST(MabRixSAXHandlerCustomQueryResult, MissingContextFailsTheObjectCheck)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading =
      MabRixRead("<q><row rowid='r' name='n' type='T' revision='A'/></q>", [](MabRixSAXHandlerBase& iParent) {
        MabRixSAXHandlerCustomQueryResult* pHandler = new MabRixSAXHandlerCustomQueryResult(iParent);
        pHandler->GetCustomQueryResultValue()->_spObjectContext = nullptr;
        return MabIRixSAXHandler_var::Adopt(pHandler);
      });
  EXPECT_EQ(Reading._Result, E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:pObject");
  EXPECT_EQ(Reporter.Reports()[0]._File, CheckFile);
}

TEST(MabRixSAXHandlerCustomQueryResult, NullValueFailsTheCheck)
{
  const MabRixTestReading Reading = ReadRows("<q/>");
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var()), E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:!!iValue");
  EXPECT_EQ(Reporter.Reports()[0]._File, CheckFile);
}

TEST(MabRixSAXHandlerCustomQueryResult, ValueOfAnotherClassFailsThePValueCheck)
{
  const MabRixTestReading Reading = ReadRows("<q/>");
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var::Adopt(new MabRixStringValue())), E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:pValue");
}

TEST(MabRixSAXHandlerCustomQueryResult, ValueCreatesAndOwnsItsContext)
{
  KelVar<MabRixCustomQueryResultValue> spValue =
      KelVar<MabRixCustomQueryResultValue>::Adopt(new MabRixCustomQueryResultValue());
  ASSERT_NE(spValue->GetObjectContext(), nullptr);
  EXPECT_EQ(spValue->GetObjectContext()->GetRefCount(), 1u);
  EXPECT_STREQ(spValue->GetImpl()->IsA(), "MabRixCustomQueryResultValue");
}
