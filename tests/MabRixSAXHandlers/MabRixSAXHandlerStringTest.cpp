#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabRixSAXHandlerString.h"
#include "MabRixSpineProbes.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
const std::string StringFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerString";

std::string Read(const std::string& iXml, std::size_t iChunk = 0)
{
  MabRixTestReading Reading = MabRixRead(iXml, MabRixMake<MabRixSAXHandlerString>(), "", iChunk);
  EXPECT_EQ(Reading._Result, S_OK) << iXml;
  if (Reading.Values().size() != 1u)
    return "<" + std::to_string(Reading.Values().size()) + " values>";
  const MabRixStringValue* pValue = MabRixValueAs<MabRixStringValue>(Reading.Values()[0]);
  return pValue ? pValue->_Value.ToUtf8() : "<not a string>";
}
}  // namespace

TEST(MabRixSAXHandlerString, StringEqualsTheElementTextExactly)
{
  EXPECT_EQ(Read("<v>hello</v>"), "hello");
  EXPECT_EQ(Read("<v>Mixed Case 12</v>"), "Mixed Case 12");
  EXPECT_EQ(Read("<v>caf\xC3\xA9 \xE2\x82\xAC</v>"), "caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(Read("<v>a &lt;&amp;&gt; b</v>"), "a <&> b");
}

TEST(MabRixSAXHandlerString, BlanksBeforeAndAfterTheTextAreKept)
{
  EXPECT_EQ(Read("<v>  padded\t </v>"), "  padded\t ");
  EXPECT_EQ(Read("<v>\n line\n</v>"), "\n line\n");
  EXPECT_EQ(Read("<v> </v>"), " ");
}

TEST(MabRixSAXHandlerString, EmptyElementGivesTheEmptyString)
{
  EXPECT_EQ(Read("<v></v>"), "");
  EXPECT_EQ(Read("<v/>"), "");
}

TEST(MabRixSAXHandlerString, AttributesAreIgnored) { EXPECT_EQ(Read("<v name=\"x\" value=\"y\">text</v>"), "text"); }

TEST(MabRixSAXHandlerString, TextDeliveredInSeveralCharactersCallsIsConcatenatedInOrder)
{
  EXPECT_EQ(Read("<v>one two &amp; three</v>", 1), "one two & three");
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Parent.Root()));
  spHandler->StartHandlingEvents("v", nullptr);
  for (const char* Piece : {"a", " ", "", "b\xC3", "\xA9"})
    EXPECT_EQ(spHandler->Characters(Piece), S_OK);
  EXPECT_EQ(spHandler->EndElement("v"), S_OK);
  ASSERT_EQ(Parent.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Parent.Values()[0])->_Value, "a b\xC3\xA9");
}

TEST(MabRixSAXHandlerString, ValueIsAStringValueHeldOnlyByTheParent)
{
  MabRixTestReading Reading = MabRixRead("<v>x</v>", MabRixMake<MabRixSAXHandlerString>());
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixStringValue");
  EXPECT_EQ(Reading.Values()[0]->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerString, NestedElementReportsFalseAndFailsOnStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixTestReading Reading = MabRixRead("<v>a<x>b</x>c</v>", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  ASSERT_GE(Reading._spParser->GetCallbackFailures().size(), 1u);
  const KelSAXCallbackFailure& Failure = Reading._spParser->GetCallbackFailures()[0];
  EXPECT_EQ(Failure._Result, E_FAIL);
  EXPECT_STREQ(Failure._Event, "StartElement");
  EXPECT_EQ(Failure._Element, "x");
  ASSERT_GE(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:FALSE");
  EXPECT_EQ(Reporter.Reports()[0]._File, StringFile);
  // The nested closing tag is not the handler's: stop drops it; the own
  // closing tag delivers the whole text, nested text included.
  EXPECT_EQ(Reporter.Texts(),
            (std::vector<std::string>{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
  EXPECT_EQ(Reporter.Reports()[1]._File, StringFile);
  ASSERT_EQ(Reading._spParser->GetCallbackFailures().size(), 2u);
  EXPECT_STREQ(Reading._spParser->GetCallbackFailures()[1]._Event, "EndElement");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Reading.Values()[0])->_Value, "abc");
}

TEST(MabRixSAXHandlerString, NestedElementReportsFalseAndFailsOnGoOn)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Parent.Root()));
  spHandler->StartHandlingEvents("v", nullptr);
  EXPECT_EQ(spHandler->StartElement("x", MabRixTestAttributeList::Make()), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:FALSE"}));
  EXPECT_EQ(Reporter.Reports()[0]._File, StringFile);
  // A nested element of the handler's own name is counted by the base.
  EXPECT_EQ(spHandler->StartElement("v", nullptr), E_FAIL);
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerString>(spHandler.Get())->GetDepth(), 1);
  EXPECT_TRUE(Parent.Values().empty());
}

TEST(MabRixSAXHandlerString, GoOnScenarioDeliversTwoValues)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixProbeRun Run = MabRixProbeParse("<r><v>a<x>b</x>c</v><after/></r>", "v", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Run._Result, E_FAIL);  // the nested element's callback failed
  ASSERT_EQ(Run._spRoot->_Values.size(), 2u);
  EXPECT_EQ(Run.Text(0), "ab");
  EXPECT_EQ(Run.Text(1), "abc");
  // The first value came while the handler still held the parser; the
  // second after it handed the parser back.
  EXPECT_EQ(Run._spRoot->_ParserBackAtValue, (std::vector<bool>{false, true}));
  EXPECT_EQ(Run._spRoot->_Seen, (std::vector<std::string>{"<r>", "<v>", "<after>", "</after>", "</r>"}));
  EXPECT_EQ(Reporter.Texts(),
            (std::vector<std::string>{"ExpressionCheck:FALSE", "ExpressionCheck:this->StopIfNecessary(iName)"}));
  for (const MabRixCheckReport& Report : Reporter.Reports())
    EXPECT_EQ(Report._File, StringFile);
  EXPECT_EQ(Run._spRoot->_Values[0]->GetRefCount(), 1u);
  EXPECT_EQ(Run._spRoot->_Values[1]->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerString, MissingParentFailsTheCheckOnStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabIRixSAXHandler_var spOrphan;
  {
    MabRixTestParent Parent;
    spOrphan = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Parent.Root()));
    spOrphan->StartHandlingEvents("v", nullptr);
    spOrphan->EndElement("v");  // hands the parser back: the parent is no longer counted
  }
  Reporter.Clear();
  EXPECT_EQ(spOrphan->EndElement("v"), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!_spSAXParser && !!_spParentHandler",
                                                        "ExpressionCheck:!!_spParentHandler"}));
  EXPECT_EQ(Reporter.Reports()[1]._File, StringFile);
}

TEST(MabRixSAXHandlerString, MissingParentRaisesTheNullVarErrorOnGoOn)
{
  MabIRixSAXHandler_var spOrphan;
  {
    MabRixTestParent Parent;
    spOrphan = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Parent.Root()));
    spOrphan->StartHandlingEvents("v", nullptr);
    spOrphan->EndElement("v");
  }
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  EXPECT_THROW(spOrphan->EndElement("v"), KelNullVarError);
}
