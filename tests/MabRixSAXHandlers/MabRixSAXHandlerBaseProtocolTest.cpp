#include <gtest/gtest.h>

#include <new>
#include <string>
#include <thread>
#include <vector>

#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSpineProbes.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

namespace
{
MabRixHandlerFactory MakeProbe(MabRixLifeCount* ipChildCount, MabRixLifeCount* ipSelfCount)
{
  return [=](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new MabRixDepthProbe(iParent, ipChildCount, ipSelfCount));
  };
}
}  // namespace

TEST(MabRixSAXHandlerProtocol, ParentOwnsTheParserAgainWhenValueRuns)
{
  MabRixProbeRun Run = MabRixProbeParse("<r><v>one</v><v>two</v></r>", "v", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Run._Result, S_OK);
  ASSERT_EQ(Run._spRoot->_Values.size(), 2u);
  EXPECT_EQ(Run.Text(0), "one");
  EXPECT_EQ(Run.Text(1), "two");
  EXPECT_EQ(Run._spRoot->_ParserBackAtValue, (std::vector<bool>{true, true}));
  // The parent never saw the delegated elements' events.
  EXPECT_EQ(Run._spRoot->_Seen, (std::vector<std::string>{"<r>", "<v>", "<v>", "</r>"}));
}

TEST(MabRixSAXHandlerProtocol, ParentKeepsItsLastChildUntilItCreatesTheNext)
{
  MabRixLifeCount Children;
  std::vector<int> DestroyedAtCreation;
  const MabRixHandlerFactory Counted = MabRixMakeCounted<MabRixSAXHandlerString>(Children);
  const MabRixHandlerFactory Factory = [&](MabRixSAXHandlerBase& iParent) {
    DestroyedAtCreation.push_back(Children._Destroyed);
    return Counted(iParent);
  };
  {
    MabRixProbeRun Run = MabRixProbeParse("<r><v>1</v><v>2</v><v>3</v></r>", "v", Factory);
    EXPECT_EQ(Children._Built, 3);
    // Each finished child was still alive when the next one was created,
    // and released right after.
    EXPECT_EQ(DestroyedAtCreation, (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(Children._Destroyed, 2);
    const MabIRixSAXHandler_var& spLast = Run._spRoot->GetChildHandler();
    ASSERT_FALSE(!spLast);
    EXPECT_EQ(KelImplCast<MabRixSAXHandlerString>(spLast.Get())->GetCharacters(), "3");
    // The root's reference is the only one left on its finished child.
    EXPECT_EQ(spLast->GetRefCount(), 1u);
  }
  EXPECT_EQ(Children._Destroyed, 3);
}

TEST(MabRixSAXHandlerProtocol, OldChildIsReleasedWhenTheNextOneIsCreated)
{
  MabRixLifeCount Children;
  MabRixProbeRun Run =
      MabRixProbeParse("<r><v>1</v><v>2</v></r>", "v", MabRixMakeCounted<MabRixSAXHandlerString>(Children));
  (void)Run;
  EXPECT_EQ(Children._Built, 2);
  EXPECT_EQ(Children.Alive(), 1);
}

TEST(MabRixSAXHandlerProtocol, FinishedChildStillKnowsItsParentWithoutHoldingIt)
{
  MabRixProbeRun Run = MabRixProbeParse("<r><v>1</v></r>", "v", MabRixMake<MabRixSAXHandlerString>());
  const MabRixSAXHandlerBase* pChild = KelImplCast<MabRixSAXHandlerBase>(Run._spRoot->GetChildHandler().Get());
  ASSERT_NE(pChild, nullptr);
  EXPECT_EQ(pChild->GetParentHandler(), static_cast<MabIRixSAXHandler*>(Run._spRoot.Get()));
  // Only the test holds the root: the parser let it go, the child does not count.
  EXPECT_EQ(Run._spRoot->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerProtocol, ChildOutlivingItsParentSeesNoParent)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabIRixSAXHandler_var spChild;
  {
    MabRixProbeRun Run = MabRixProbeParse("<r><v>1</v></r>", "v", MabRixMake<MabRixSAXHandlerString>());
    spChild = Run._spRoot->GetChildHandler();
  }
  const MabRixSAXHandlerBase* pChild = KelImplCast<MabRixSAXHandlerBase>(spChild.Get());
  EXPECT_EQ(pChild->GetParentHandler(), nullptr);
  EXPECT_EQ(spChild->EndElement("v"), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!_spSAXParser && !!_spParentHandler",
                                                        "ExpressionCheck:!!_spParentHandler"}));
}

TEST(MabRixSAXHandlerProtocol, NoHandlerTreeLeaksAfterACompleteDocument)
{
  MabRixLifeCount Roots, Probes, Strings;
  {
    MabRixProbeRun Run = MabRixProbeParse("<r><p><v>1</v><v>2</v></p><p><v>3</v></p></r>", "p",
                                          MakeProbe(&Strings, &Probes), {}, &Roots);
    EXPECT_EQ(Run._Result, S_OK);
    EXPECT_EQ(Run._spRoot->_Values.size(), 2u);
    EXPECT_EQ(Probes._Built, 2);
    EXPECT_EQ(Strings._Built, 3);
    EXPECT_EQ(Probes.Alive(), 1);
    EXPECT_EQ(Strings.Alive(), 1);
  }
  EXPECT_EQ(Roots.Alive(), 0);
  EXPECT_EQ(Probes.Alive(), 0);
  EXPECT_EQ(Strings.Alive(), 0);
}

TEST(MabRixSAXHandlerProtocol, NoHandlerTreeLeaksWhenTheDocumentEndsInsideOpenElements)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  KelExpatParser::Options StopOnFailure;
  StopOnFailure._StopOnCallbackFailure = true;
  struct Case
  {
    const char* _Xml;
    KelExpatParser::Options _Options;
    int _Strings;
  };
  // Truncated, malformed, stopped at a failed callback.
  for (const Case& Each : {Case{"<r><p><v>1</v><v>2", {}, 2}, Case{"<r><p><v>1</x></v></p></r>", {}, 1},
                           Case{"<r><p><v>a<n/>b</v></p></r>", StopOnFailure, 1}})
  {
    MabRixLifeCount Roots, Probes, Strings;
    {
      MabRixProbeRun Run = MabRixProbeParse(Each._Xml, "p", MakeProbe(&Strings, &Probes), Each._Options, &Roots);
      EXPECT_TRUE(FAILED(Run._Result)) << Each._Xml;
      EXPECT_EQ(Strings._Built, Each._Strings) << Each._Xml;
    }
    EXPECT_EQ(Roots.Alive(), 0) << Each._Xml;
    EXPECT_EQ(Probes.Alive(), 0) << Each._Xml;
    EXPECT_EQ(Strings.Alive(), 0) << Each._Xml;
  }
}

TEST(MabRixSAXHandlerProtocol, NoHandlerTreeLeaksWhenACallbackThrows)
{
  MabRixLifeCount Roots, Probes, Strings;
  {
    KelExpatParser_var spParser = KelExpatParser_var::Adopt(new KelExpatParser());
    KelISAXParser_var spInterface(spParser);
    KelVar<MabRixProbeRoot> spRoot =
        KelVar<MabRixProbeRoot>::Adopt(new MabRixProbeRoot(spInterface, "p", MakeProbe(&Strings, &Probes), &Roots));
    spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));
    EXPECT_THROW(spParser->Parse(std::string("<r><p><v>1</v><boom/></p></r>")), KelNullVarError);
    EXPECT_EQ(spRoot->GetRefCount(), 1u);
  }
  EXPECT_EQ(Roots.Alive(), 0);
  EXPECT_EQ(Probes.Alive(), 0);
  EXPECT_EQ(Strings.Alive(), 0);
}

TEST(MabRixSAXHandlerProtocol, RootHeldOnlyByTheParserLivesThroughTheDocument)
{
  MabRixLifeCount Roots, Probes, Strings;
  KelExpatParser_var spParser = KelExpatParser_var::Adopt(new KelExpatParser());
  {
    KelISAXParser_var spInterface(spParser);
    spParser->SetDocumentHandler(
        KelISAXDocumentHandler_var::Adopt(new MabRixProbeRoot(spInterface, "p", MakeProbe(&Strings, &Probes), &Roots)));
  }
  EXPECT_EQ(spParser->Parse(std::string("<r><p><v>1</v></p><p/></r>")), S_OK);
  EXPECT_EQ(Roots.Alive(), 0);
  EXPECT_EQ(Probes._Built, 2);
  EXPECT_EQ(Probes.Alive(), 0);
  EXPECT_EQ(Strings.Alive(), 0);
  EXPECT_EQ(spParser->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerProtocol, ChunkedDocumentGivesTheSameValues)
{
  const std::string Xml = "<r><v>caf\xC3\xA9 \xE2\x82\xAC &amp; <![CDATA[<x>]]></v><v> </v></r>";
  MabRixProbeRun Whole = MabRixProbeParse(Xml, "v", MabRixMake<MabRixSAXHandlerString>());
  MabRixProbeRun Bytes = MabRixProbeParse(Xml, "v", MabRixMake<MabRixSAXHandlerString>(), {}, nullptr, 1);
  ASSERT_EQ(Whole._spRoot->_Values.size(), 2u);
  ASSERT_EQ(Bytes._spRoot->_Values.size(), 2u);
  EXPECT_EQ(Whole.Text(0), "caf\xC3\xA9 \xE2\x82\xAC & <x>");
  EXPECT_EQ(Bytes.Text(0), Whole.Text(0));
  EXPECT_EQ(Bytes.Text(1), " ");
}

TEST(MabRixSAXHandlerProtocol, TwoThreadsWithTheirOwnReportersDoNotDisturbEachOther)
{
  // The same document: a reporter that says go on delivers two values, one
  // that says stop delivers one. Each thread sees only its own reporter.
  const std::string Xml = "<r><v>a<x>b</x>c</v></r>";
  const auto Read = [&](int iAnswer, std::vector<std::string>& oTexts, std::size_t& oReports) {
    MabRixTestReporter Reporter(iAnswer);
    for (int Round = 0; Round < 200; ++Round)
    {
      Reporter.Clear();
      MabRixProbeRun Run = MabRixProbeParse(Xml, "v", MabRixMake<MabRixSAXHandlerString>(), {}, nullptr, Round % 5);
      oTexts.clear();
      for (std::size_t i = 0; i < Run._spRoot->_Values.size(); ++i)
        oTexts.push_back(Run.Text(i));
      oReports = Reporter.Reports().size();
    }
  };
  std::vector<std::string> GoOnTexts, StopTexts;
  std::size_t GoOnReports = 0, StopReports = 0;
  std::thread GoOn([&] { Read(MabRixTestReporter::GoOn, GoOnTexts, GoOnReports); });
  std::thread Stop([&] { Read(MabRixTestReporter::Stop, StopTexts, StopReports); });
  GoOn.join();
  Stop.join();
  EXPECT_EQ(GoOnTexts, (std::vector<std::string>{"ab", "abc"}));
  EXPECT_EQ(StopTexts, (std::vector<std::string>{"abc"}));
  EXPECT_EQ(GoOnReports, 2u);
  EXPECT_EQ(StopReports, 2u);
}
