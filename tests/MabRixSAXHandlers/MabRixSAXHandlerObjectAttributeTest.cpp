#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixSAXHandlerObjectAttribute.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
const char* const File = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerObjectAttribute";
const char* const NotAString = "ExpressionCheck:MabIRixValue_Type == \"MabRixStringValue\"";

MabRixTestReading ReadObject(const std::string& iXml, std::size_t iChunk = 0)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerObjectAttribute>(), "", iChunk);
}

// The one value the reading handed up.
const MabRixObjectAttributeValue* TheContent(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  if (iReading.Values().size() != 1u)
    return nullptr;
  EXPECT_STREQ(iReading.Values()[0]->GetImpl()->IsA(), "MabRixObjectAttributeValue");
  return MabRixValueAs<MabRixObjectAttributeValue>(iReading.Values()[0]);
}

typedef std::vector<std::pair<std::string, std::string>> Entries;

Entries EntriesOf(const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  Entries Result;
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
    Result.emplace_back(It.GetKey().ToUtf8(), (*It).ToUtf8());
  return Result;
}

// A handler built by hand under a root, whose active child can be finished
// so that nothing keeps it alive after the test.
struct DirectHandler
{
  DirectHandler()
      : _spHandler(KelVar<MabRixSAXHandlerObjectAttribute>::Adopt(new MabRixSAXHandlerObjectAttribute(_Parent.Root())))
  {
  }
  ~DirectHandler()
  {
    if (!!_spHandler->GetChildHandler())
      _spHandler->GetChildHandler()->EndElement(_Child);
  }
  // Starts the child element iName (a child handler takes it).
  HRESULT Start(const char* iName)
  {
    _Child = iName;
    return _spHandler->StartElement(iName, MabRixTestAttributeList::Make());
  }

  MabRixTestParent _Parent;
  KelVar<MabRixSAXHandlerObjectAttribute> _spHandler;
  KelUnicodeString _Child;
};

MabIRixValue_var AString(const char* iText)
{
  MabRixStringValue* pValue = new MabRixStringValue();
  pValue->_Value = iText;
  return MabIRixValue_var::Adopt(pValue);
}
}  // namespace

TEST(MabRixSAXHandlerObjectAttribute, GathersElementTextsAndStringAttributes)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadObject(
      "<cadobject cadid='C1' name='n'>"
      "<Ver>3</Ver><Rev>B</Rev><State>In Work</State><Lock>true</Lock><LockedBy>alice</LockedBy>"
      "<attribute><name>Material</name><value>Steel</value></attribute>"
      "<attribute><name>Mass</name><value type='Enforced'> 2 kg </value></attribute>"
      "</cadobject>");
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(EntriesOf(pContent->_ElementValues),
            (Entries{{"Ver", "3"}, {"Rev", "B"}, {"State", "In Work"}, {"Lock", "true"}, {"LockedBy", "alice"}}));
  EXPECT_EQ(EntriesOf(pContent->_Attributes), (Entries{{"Material", "Steel"}, {"Mass", " 2 kg "}}));
  EXPECT_FALSE(pContent->_PreviewPath.IsValid());
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerObjectAttribute, TextsArrivingInPiecesAreJoined)
{
  const MabRixTestReading Reading = ReadObject(
      "<cadobject><State>Released for production</State>"
      "<attribute><name>Description</name><value>a rather long description</value></attribute></cadobject>",
      3);
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"State", "Released for production"}}));
  EXPECT_EQ(EntriesOf(pContent->_Attributes), (Entries{{"Description", "a rather long description"}}));
}

TEST(MabRixSAXHandlerObjectAttribute, CadObjectWithNoContentHandsUpAnEmptyValue)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadObject("<cadobject cadid='C1'/>");
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(pContent->_ElementValues.Size(), 0);
  EXPECT_EQ(pContent->_Attributes.Size(), 0);
  EXPECT_FALSE(pContent->_PreviewPath.IsValid());
  EXPECT_EQ(pContent->_PreviewPath.GetString(), "");
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerObjectAttribute, PreviewTextGoesIntoElementValuesAndThePreviewPath)
{
  const MabRixTestReading Reading = ReadObject("<cadobject><preview>/thumbs/bracket.png</preview></cadobject>");
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"preview", "/thumbs/bracket.png"}}));
  EXPECT_EQ(pContent->_PreviewPath.GetString(), "/thumbs/bracket.png");
}

TEST(MabRixSAXHandlerObjectAttribute, AttributesElementIsOneStringElementAndItsAttributesNeverArrive)
{
  const std::string Xml =
      "<cadobject><attributes>head<attribute><name>A</name><value>1</value></attribute>tail</attributes></cadobject>";
  {
    // Stop: the string handler refuses each nested element and hands up the
    // whole text once, at its own end.
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabRixTestReading Reading = ReadObject(Xml);
    const MabRixObjectAttributeValue* pContent = TheContent(Reading);
    ASSERT_NE(pContent, nullptr);
    EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"attributes", "headA1tail"}}));
    EXPECT_EQ(pContent->_Attributes.Size(), 0);
    EXPECT_EQ(Reporter.Count("ExpressionCheck:FALSE"), 3);
  }
  {
    // Go on: the string handler also hands up at each nested end; the first
    // text stays and every value is accepted.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    const MabRixTestReading Reading = ReadObject(Xml);
    const MabRixObjectAttributeValue* pContent = TheContent(Reading);
    ASSERT_NE(pContent, nullptr);
    EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"attributes", "headA"}}));
    EXPECT_EQ(pContent->_Attributes.Size(), 0);
    EXPECT_EQ(Reporter.Count("ExpressionCheck:this->StopIfNecessary(iName)"), 3);
  }
}

TEST(MabRixSAXHandlerObjectAttribute, TwoAttributesWithTheSameNameKeepTheFirstValue)
{
  const MabRixTestReading Reading = ReadObject(
      "<cadobject><attribute><name>Colour</name><value>red</value></attribute>"
      "<attribute><name>Colour</name><value>blue</value></attribute></cadobject>");
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(EntriesOf(pContent->_Attributes), (Entries{{"Colour", "red"}}));
}

TEST(MabRixSAXHandlerObjectAttribute, TwoElementsWithTheSameNameKeepTheFirstText)
{
  const MabRixTestReading Reading = ReadObject("<cadobject><State>first</State><State>second</State></cadobject>");
  const MabRixObjectAttributeValue* pContent = TheContent(Reading);
  ASSERT_NE(pContent, nullptr);
  EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"State", "first"}}));
}

TEST(MabRixSAXHandlerObjectAttribute, AttributeWithoutAStringValueIsReportedThenSkipped)
{
  const std::string Xml = "<cadobject><attribute><name>Empty</name></attribute><Ver>1</Ver></cadobject>";
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabRixTestReading Reading = ReadObject(Xml);
    // The refusal travels back to the parser as the callback's failure.
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_EQ(Reporter.Reports().size(), 1u);
    EXPECT_EQ(Reporter.Reports()[0]._Text, NotAString);
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
    const MabRixObjectAttributeValue* pContent = TheContent(Reading);
    ASSERT_NE(pContent, nullptr);
    EXPECT_EQ(pContent->_Attributes.Size(), 0);
    EXPECT_EQ(EntriesOf(pContent->_ElementValues), (Entries{{"Ver", "1"}}));
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    const MabRixTestReading Reading = ReadObject(Xml);
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Count(NotAString), 1);
    const MabRixObjectAttributeValue* pContent = TheContent(Reading);
    ASSERT_NE(pContent, nullptr);
    EXPECT_EQ(pContent->_Attributes.Size(), 0);
  }
}

TEST(MabRixSAXHandlerObjectAttribute, ValueOfAnotherKindFailsExceptForAttributesElement)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabIRixValue_var spBoolean = MabIRixValue_var::Adopt(new MabRixBooleanValue());
  {
    DirectHandler Direct;
    ASSERT_EQ(Direct.Start("State"), S_OK);
    EXPECT_EQ(Direct._spHandler->Value(spBoolean), E_FAIL);
    EXPECT_EQ(Direct._spHandler->Value(MabIRixValue_var()), E_FAIL);
  }
  {
    DirectHandler Direct;
    ASSERT_EQ(Direct.Start("attributes"), S_OK);
    EXPECT_EQ(Direct._spHandler->Value(spBoolean), S_OK);
  }
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerObjectAttribute, AttributeElementGivingNoAttributeValueIsFatal)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixThrowingFatalHandler Fatal;
  DirectHandler Direct;
  ASSERT_EQ(Direct.Start("attribute"), S_OK);
  try
  {
    Direct._spHandler->Value(AString("text"));
    FAIL() << "no fatal error";
  }
  catch (const MabRixFatalErrorRaised& Error)
  {
    EXPECT_STREQ(Error.what(), "AssertionFailed:pValue");
    EXPECT_EQ(Error._File, File);
  }
}

TEST(MabRixSAXHandlerObjectAttribute, HandsItsValueUpOnceWhenCadObjectClosesAndGivesTheParserBack)
{
  const MabRixTestReading Reading = MabRixRead("<list><cadobject><Ver>1</Ver></cadobject><next/></list>",
                                               MabRixMake<MabRixSAXHandlerObjectAttribute>(), "cadobject");
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_NE(TheContent(Reading), nullptr);
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST(MabRixSAXHandlerObjectAttribute, IsRegisteredAsAHandler)
{
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(
      CreateTIEMabIRixSAXHandlerMabRixSAXHandlerObjectAttribute(*new MabRixSAXHandlerObjectAttribute(Parent.Root())));
  EXPECT_STREQ(spHandler->GetImpl()->IsA(), "MabRixSAXHandlerObjectAttribute");
  EXPECT_TRUE(spHandler->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
  EXPECT_STREQ(spHandler->GetImpl()->GetMetaObject()->_Framework, "MabRixCommandModel");
}
