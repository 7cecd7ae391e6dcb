#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixObjectTestSupport.h"
#include "MabRixSAXHandlerRelationshipList.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"

namespace
{
const char* const File = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerRelationshipList";
const char* const CountCheck = "ExpressionCheck:SUCCEEDED(hr) && iAttrListSize > 0";

struct RelationshipTest
{
  MabRixTestReading Read(const std::string& iXml)
  {
    MabRixTNRObjectContext* pContext = _Context.Get();
    return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerRelationshipList>(pContext));
  }
  std::size_t Count() const { return _Context.Get()->GetRelationships().size(); }
  const MabERixRelationship& Relationship(std::size_t i) const { return *_Context.Get()->GetRelationships().at(i); }

  MabRixTestContext _Context;
};

// A handler driven by hand.
struct DirectRelationships
{
  DirectRelationships()
      : _pContext(_Context.Get()), _spHandler(KelVar<MabRixSAXHandlerRelationshipList>::Adopt(
                                       new MabRixSAXHandlerRelationshipList(_Parent.Root(), _pContext)))
  {
  }

  MabRixTestParent _Parent;
  MabRixTestContext _Context;
  MabRixTNRObjectContext* _pContext;
  KelVar<MabRixSAXHandlerRelationshipList> _spHandler;
};

MabIRixValue_var AnAttribute(const char* iName, const MabIRixValue_var& iValue)
{
  MabRixAttributeValue* pAttribute = new MabRixAttributeValue();
  pAttribute->_Name = iName;
  pAttribute->_Value = iValue;
  return MabIRixValue_var::Adopt(pAttribute);
}

MabIRixValue_var AString(const char* iText)
{
  MabRixStringValue* pValue = new MabRixStringValue();
  pValue->_Value = iText;
  return MabIRixValue_var::Adopt(pValue);
}
}  // namespace

TEST(MabRixSAXHandlerRelationshipList, CreatesEachRelationshipWithItsAttributes)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  RelationshipTest List;
  const MabRixTestReading Reading = List.Read(
      "<relationships>"
      "<relationship rid='R1' cadrelationship='ZQ_Uses' quantity='2'>"
      "<attribute><name>position</name><value>front</value></attribute>"
      "<attribute><name>note</name><value type='enforced'>spare</value></attribute>"
      "</relationship>"
      "<relationship cadrelationship='ZQ_Refers' rid='R2'/>"
      "</relationships>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_TRUE(Reading.Values().empty());
  ASSERT_EQ(List.Count(), 2u);
  EXPECT_EQ(List.Relationship(0).GetID(), "R1");
  EXPECT_EQ(List.Relationship(0).GetKind(), "ZQ_Uses");
  EXPECT_EQ(MabRixEntriesOf(List.Relationship(0)._Attributes),
            (MabRixEntries{{"quantity", "2"}, {"position", "front"}, {"note", "spare"}}));
  // The attributes were emptied after the first relationship.
  EXPECT_EQ(List.Relationship(1).GetID(), "R2");
  EXPECT_EQ(List.Relationship(1).GetKind(), "ZQ_Refers");
  EXPECT_EQ(List.Relationship(1)._Attributes.Size(), 0);
}

TEST(MabRixSAXHandlerRelationshipList, RelationshipWithNoXmlAttributesFailsTheCountCheck)
{
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    RelationshipTest List;
    const MabRixTestReading Reading = List.Read("<list><relationship/></list>");
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_EQ(Reporter.Reports().size(), 1u);
    EXPECT_EQ(Reporter.Reports()[0]._Text, CountCheck);
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
    // Its end still creates a relationship, with the empty id and kind.
    ASSERT_EQ(List.Count(), 1u);
    EXPECT_EQ(List.Relationship(0).GetID(), "");
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    RelationshipTest List;
    const MabRixTestReading Reading = List.Read("<list><relationship/></list>");
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Count(CountCheck), 1);
    EXPECT_EQ(List.Count(), 1u);
  }
}

TEST(MabRixSAXHandlerRelationshipList, AttributeWhoseValueIsNotAStringAddsNothingAndSucceeds)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  {
    // An attribute element without a value element brings no value.
    RelationshipTest List;
    const MabRixTestReading Reading =
        List.Read("<list><relationship rid='R'><attribute><name>empty</name></attribute></relationship></list>");
    EXPECT_EQ(Reading._Result, S_OK);
    ASSERT_EQ(List.Count(), 1u);
    EXPECT_EQ(List.Relationship(0)._Attributes.Size(), 0);
  }
  {
    DirectRelationships Direct;
    EXPECT_EQ(Direct._spHandler->Value(AnAttribute("flag", MabIRixValue_var::Adopt(new MabRixBooleanValue()))), S_OK);
    EXPECT_EQ(Direct._spHandler->Value(AnAttribute("text", AString("kept"))), S_OK);
    Direct._spHandler->StartElement("relationship", MabRixTestAttributeList::Make({{"rid", "R"}}));
    Direct._spHandler->EndElement("relationship");
    ASSERT_EQ(Direct._Context.Get()->GetRelationships().size(), 1u);
    EXPECT_EQ(MabRixEntriesOf(Direct._Context.Get()->GetRelationships()[0]->_Attributes),
              (MabRixEntries{{"text", "kept"}}));
  }
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerRelationshipList, XmlAttributeWinsOverAnAttributeElementOfTheSameName)
{
  RelationshipTest List;
  List.Read(
      "<list><relationship rid='R' quantity='2'>"
      "<attribute><name>quantity</name><value>3</value></attribute>"
      "<attribute><name>side</name><value>left</value></attribute>"
      "<attribute><name>side</name><value>right</value></attribute>"
      "</relationship></list>");
  ASSERT_EQ(List.Count(), 1u);
  EXPECT_EQ(MabRixEntriesOf(List.Relationship(0)._Attributes), (MabRixEntries{{"quantity", "2"}, {"side", "left"}}));
}

TEST(MabRixSAXHandlerRelationshipList, ListWithoutRelationshipsCreatesNothing)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  RelationshipTest List;
  const MabRixTestReading Reading = List.Read("<list><other a='1'/>text</list>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(List.Count(), 0u);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
}

TEST(MabRixSAXHandlerRelationshipList, KindAndIdCarryOverToTheNextRelationship)
{
  RelationshipTest List;
  List.Read(
      "<list><relationship rid='R1' cadrelationship='K1'/><relationship rid='R2'/>"
      "<relationship cadrelationship='K3'/></list>");
  ASSERT_EQ(List.Count(), 3u);
  EXPECT_EQ(List.Relationship(1).GetID(), "R2");
  EXPECT_EQ(List.Relationship(1).GetKind(), "K1");
  EXPECT_EQ(List.Relationship(2).GetID(), "R2");
  EXPECT_EQ(List.Relationship(2).GetKind(), "K3");
}

TEST(MabRixSAXHandlerRelationshipList, RepeatedRelationshipGetsItsAttributesReplaced)
{
  RelationshipTest List;
  List.Read(
      "<list><relationship rid='R' cadrelationship='K' a='1'/>"
      "<relationship rid='R' cadrelationship='K' b='2'/></list>");
  ASSERT_EQ(List.Count(), 1u);
  EXPECT_EQ(MabRixEntriesOf(List.Relationship(0)._Attributes), (MabRixEntries{{"b", "2"}}));
}

TEST(MabRixSAXHandlerRelationshipList, ValueChecksReportAndStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  DirectRelationships Direct;
  EXPECT_EQ(Direct._spHandler->Value(MabIRixValue_var()), E_FAIL);
  EXPECT_EQ(Direct._spHandler->Value(AString("not an attribute")), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!iValue", "ExpressionCheck:pValue"}));
  EXPECT_EQ(Reporter.Reports()[1]._File, File);
}

TEST(MabRixSAXHandlerRelationshipList, ValueChecksGoingOnKeepNothing)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  DirectRelationships Direct;
  EXPECT_EQ(Direct._spHandler->Value(MabIRixValue_var()), S_OK);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!iValue", "ExpressionCheck:pValue"}));
}

TEST(MabRixSAXHandlerRelationshipList, WithoutAContextTheConstructorReportsAndEveryEndFails)
{
  MabRixTNRObjectContext* pNoContext = nullptr;
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabRixTestReading Reading =
        MabRixRead("<list><relationship rid='R'/></list>", MabRixMake<MabRixSAXHandlerRelationshipList>(pNoContext));
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(Reporter.Texts(),
              (std::vector<std::string>{"ExpressionCheck:pObjectContext", "ExpressionCheck:_pObjectContext",
                                        "ExpressionCheck:_pObjectContext"}));
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    const MabRixTestReading Reading =
        MabRixRead("<list><relationship rid='R'/></list>", MabRixMake<MabRixSAXHandlerRelationshipList>(pNoContext));
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Count("ExpressionCheck:pRelationship"), 1);
    EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
  }
}

TEST(MabRixSAXHandlerRelationshipList, NullAttributeListFailsTheCountCheck)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  DirectRelationships Direct;
  EXPECT_EQ(Direct._spHandler->StartElement("relationship", KelISAXAttributeList_var()), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{CountCheck}));
}

TEST(MabRixSAXHandlerRelationshipList, IsRegisteredAsAHandler)
{
  DirectRelationships Direct;
  MabIRixSAXHandler_var spInterface(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerRelationshipList(*Direct._spHandler));
  EXPECT_STREQ(spInterface->GetImpl()->IsA(), "MabRixSAXHandlerRelationshipList");
  EXPECT_TRUE(spInterface->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
}
