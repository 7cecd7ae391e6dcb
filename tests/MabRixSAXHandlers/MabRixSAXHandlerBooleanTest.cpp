#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabRixBooleanValue.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSpineProbes.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
const std::string BooleanFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerBoolean";

// The truth value read from iXml; -1 when no single Boolean value came.
int Read(const std::string& iXml)
{
  MabRixTestReading Reading = MabRixRead(iXml, MabRixMake<MabRixSAXHandlerBoolean>());
  EXPECT_EQ(Reading._Result, S_OK) << iXml;
  if (Reading.Values().size() != 1u)
    return -1;
  const MabRixBooleanValue* pValue = MabRixValueAs<MabRixBooleanValue>(Reading.Values()[0]);
  return pValue ? pValue->_Value : -1;
}
}  // namespace

TEST(MabRixSAXHandlerBoolean, YesAndTrueGiveTrue)
{
  EXPECT_EQ(Read("<b>yes</b>"), 1);
  EXPECT_EQ(Read("<b>true</b>"), 1);
}

TEST(MabRixSAXHandlerBoolean, OneFalseAndTheEmptyTextGiveFalse)
{
  EXPECT_EQ(Read("<b>1</b>"), 0);
  EXPECT_EQ(Read("<b>false</b>"), 0);
  EXPECT_EQ(Read("<b>no</b>"), 0);
  EXPECT_EQ(Read("<b></b>"), 0);
  EXPECT_EQ(Read("<b/>"), 0);
}

TEST(MabRixSAXHandlerBoolean, CapitalsAndBlanksGiveFalseBecauseCompareIsExact)
{
  EXPECT_EQ(Read("<b>YES</b>"), 0);
  EXPECT_EQ(Read("<b>True</b>"), 0);
  EXPECT_EQ(Read("<b>TRUE</b>"), 0);
  EXPECT_EQ(Read("<b> true</b>"), 0);
  EXPECT_EQ(Read("<b>yes </b>"), 0);
  EXPECT_EQ(Read("<b>yesyes</b>"), 0);
}

TEST(MabRixSAXHandlerBoolean, TextInSeveralPiecesIsComparedWhole)
{
  MabRixTestReading Reading = MabRixRead("<b>true</b>", MabRixMake<MabRixSAXHandlerBoolean>(), "", 1);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixBooleanValue>(Reading.Values()[0])->_Value, 1);
}

TEST(MabRixSAXHandlerBoolean, ValueKeepsItsCreationReference)
{
  MabRixTestReading Reading = MabRixRead("<b>yes</b>", MabRixMake<MabRixSAXHandlerBoolean>());
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixBooleanValue");
  // The parent's reference and the one the handler never gives back.
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 2u);
}

TEST(MabRixSAXHandlerBoolean, NestedElementReportsFalseAndFailsOnStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixTestReading Reading = MabRixRead("<b>tr<x>u</x>e</b>", MabRixMake<MabRixSAXHandlerBoolean>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(Reading._spParser->GetCallbackFailures()[0]._Element, "x");
  EXPECT_EQ(Reporter.Texts(),
            (std::vector<std::string>{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
  for (const MabRixCheckReport& Report : Reporter.Reports())
    EXPECT_EQ(Report._File, BooleanFile);
  // The nested text counts: "true" as a whole.
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixBooleanValue>(Reading.Values()[0])->_Value, 1);
}

TEST(MabRixSAXHandlerBoolean, NestedElementReportsFalseAndFailsOnGoOn)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBoolean(Parent.Root()));
  spHandler->StartHandlingEvents("b", nullptr);
  EXPECT_EQ(spHandler->StartElement("x", MabRixTestAttributeList::Make({{"a", "1"}})), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:FALSE"}));
  EXPECT_EQ(Reporter.Reports()[0]._File, BooleanFile);
}

TEST(MabRixSAXHandlerBoolean, GoOnScenarioDeliversTwoValues)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixProbeRun Run = MabRixProbeParse("<r><b>yes<x/>no</b></r>", "b", MabRixMake<MabRixSAXHandlerBoolean>());
  ASSERT_EQ(Run._spRoot->_Values.size(), 2u);
  EXPECT_EQ(MabRixValueAs<MabRixBooleanValue>(Run._spRoot->_Values[0])->_Value, 1);  // "yes"
  EXPECT_EQ(MabRixValueAs<MabRixBooleanValue>(Run._spRoot->_Values[1])->_Value, 0);  // "yesno"
  EXPECT_EQ(Run._spRoot->_ParserBackAtValue, (std::vector<bool>{false, true}));
  EXPECT_EQ(Reporter.Texts(),
            (std::vector<std::string>{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
}

TEST(MabRixSAXHandlerBoolean, MissingParentFailsTheCheckOnStopAndRaisesOnGoOn)
{
  MabIRixSAXHandler_var spOrphan;
  {
    MabRixTestParent Parent;
    spOrphan = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBoolean(Parent.Root()));
    spOrphan->StartHandlingEvents("b", nullptr);
    spOrphan->Characters("true");
    spOrphan->EndElement("b");
  }
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(spOrphan->EndElement("b"), E_FAIL);
    EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!_spSAXParser && !!_spParentHandler",
                                                          "ExpressionCheck:!!_spParentHandler"}));
    EXPECT_EQ(Reporter.Reports()[1]._File, BooleanFile);
  }
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  EXPECT_THROW(spOrphan->EndElement("b"), KelNullVarError);
}
