#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabRixBooleanValue.h"
#include "MabRixSAXHandlerBase.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSpineProbes.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
const std::string BaseFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerBase";
const std::string StartCheck = "ExpressionCheck:!!_spSAXParser && !!_spParentHandler";
const std::string HandBackCheck = "ExpressionCheck:SUCCEEDED(_spSAXParser->SetDocumentHandler(_spParentHandler))";

// Parser whose SetDocumentHandler answers a scripted result; it holds no
// handler, so a test sees every reference the handlers take.
class MabRixScriptedParser : public virtual KelISAXParser
{
public:
  HRESULT SetDocumentHandler(const KelISAXDocumentHandler_var& iHandler) override
  {
    _Handlers.push_back(iHandler.Get());
    return _Result;
  }
  HRESULT GetDocumentHandler(KelISAXDocumentHandler_var& oHandler) override
  {
    oHandler = _Handlers.empty() ? nullptr : _Handlers.back();
    return S_OK;
  }
  std::vector<KelISAXDocumentHandler*> _Handlers;
  HRESULT _Result = S_OK;
};

KelISAXDocumentHandler* AsDocumentHandler(KelBaseUnknown* ipObject)
{
  return dynamic_cast<KelISAXDocumentHandler*>(ipObject);
}

KelISAXDocumentHandler* DocumentHandlerOf(KelISAXParser& iParser)
{
  KelISAXDocumentHandler_var spHandler;
  iParser.GetDocumentHandler(spHandler);
  return spHandler.Get();
}

MabRixHandlerFactory MakeProbe(MabRixLifeCount* ipChildCount = nullptr, MabRixLifeCount* ipSelfCount = nullptr)
{
  return [=](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new MabRixDepthProbe(iParent, ipChildCount, ipSelfCount));
  };
}

MabRixDepthProbe* ProbeOf(const MabRixProbeRun& iRun)
{
  return KelImplCast<MabRixDepthProbe>(iRun._spRoot->GetChildHandler().Get());
}
}  // namespace

TEST(MabRixSAXHandlerBase, ParserConstructorHoldsTheParserAndHasNoParent)
{
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(new MabRixScriptedParser());
  {
    MabIRixSAXHandler_var spRoot = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBase(spParser));
    const MabRixSAXHandlerBase* pRoot = KelImplCast<MabRixSAXHandlerBase>(spRoot.Get());
    EXPECT_EQ(spParser->GetRefCount(), 2u);
    EXPECT_EQ(pRoot->GetParentHandler(), nullptr);
    EXPECT_TRUE(!pRoot->GetChildHandler());
    EXPECT_EQ(pRoot->GetElementName(), "");
    EXPECT_EQ(pRoot->GetCharacters(), "");
    EXPECT_EQ(pRoot->GetDepth(), 0);
  }
  EXPECT_EQ(spParser->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerBase, ParentConstructorSharesTheParserAndHoldsTheParentWhileActive)
{
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(new MabRixScriptedParser());
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  {
    KelVar<MabRixSAXHandlerBase> spChild = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(*spRoot));
    EXPECT_EQ(spRoot->GetRefCount(), 1u);  // not started: no count, no cycle
    EXPECT_EQ(spParser->GetRefCount(), 3u);
    spChild->StartHandlingEvents("a", nullptr);
    EXPECT_EQ(spRoot->GetRefCount(), 2u);
    EXPECT_EQ(spChild->GetParentHandler(), static_cast<MabIRixSAXHandler*>(spRoot.Get()));
    KelISAXParser_var spShared;
    EXPECT_EQ(spChild->GetParser(spShared), S_OK);
    EXPECT_EQ(spShared.Get(), spParser.Get());
    EXPECT_EQ(spChild->GetDepth(), 0);
    EXPECT_TRUE(!spChild->GetChildHandler());
  }
  // Destroying the child released its parser and its parent.
  EXPECT_EQ(spRoot->GetRefCount(), 1u);
  EXPECT_EQ(spParser->GetRefCount(), 2u);
}

TEST(MabRixSAXHandlerBase, RootHandlerStartFailsTheCheckAndReturnsEFailOnStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  EXPECT_EQ(spRoot->StartHandlingEvents("a", nullptr), E_FAIL);
  ASSERT_EQ(Reporter.Reports().size(), 1u);
  EXPECT_EQ(Reporter.Reports()[0]._Text, StartCheck);
  EXPECT_EQ(Reporter.Reports()[0]._File, BaseFile);
  EXPECT_GT(Reporter.Reports()[0]._Line, 0);
  EXPECT_TRUE(pParser->_Handlers.empty());  // not the document handler
  EXPECT_EQ(spRoot->GetElementName(), "");
}

TEST(MabRixSAXHandlerBase, RootHandlerStartGoesOnWhenTheReporterSaysGoOn)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  EXPECT_EQ(spRoot->StartHandlingEvents("a", nullptr), S_OK);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{StartCheck}));
  ASSERT_EQ(pParser->_Handlers.size(), 1u);
  EXPECT_EQ(pParser->_Handlers[0], AsDocumentHandler(spRoot.Get()));
  EXPECT_EQ(spRoot->GetElementName(), "a");
}

TEST(MabRixSAXHandlerBase, StartWithANullParserRaisesTheNullVarErrorWhenTheReporterSaysGoOn)
{
  KelISAXParser_var spNull;
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spNull));
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    EXPECT_EQ(spRoot->StartHandlingEvents("a", nullptr), E_FAIL);
  }
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  EXPECT_THROW(spRoot->StartHandlingEvents("a", nullptr), KelNullVarError);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{StartCheck}));
}

TEST(MabRixSAXHandlerBase, StartHandlingEventsMakesTheHandlerTheDocumentHandler)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  pParser->_Result = S_FALSE;
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  KelVar<MabRixSAXHandlerBase> spChild = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(*spRoot));
  // The parser's answer is the result.
  EXPECT_EQ(spChild->StartHandlingEvents("item", MabRixTestAttributeList::Make({{"k", "v"}})), S_FALSE);
  ASSERT_EQ(pParser->_Handlers.size(), 1u);
  EXPECT_EQ(pParser->_Handlers[0], AsDocumentHandler(spChild.Get()));
  EXPECT_EQ(spChild->GetElementName(), "item");
  EXPECT_EQ(spChild->GetDepth(), 0);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerBase, NameAndDepthAreSetEvenWhenTheParserRefuses)
{
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  pParser->_Result = E_FAIL;
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  KelVar<MabRixSAXHandlerBase> spChild = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(*spRoot));
  EXPECT_EQ(spChild->StartHandlingEvents("item", nullptr), E_FAIL);
  EXPECT_EQ(spChild->GetElementName(), "item");
  EXPECT_EQ(spChild->GetDepth(), 0);
}

TEST(MabRixSAXHandlerBase, StartingAgainResetsNameAndDepthButKeepsTheCharacters)
{
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(new MabRixScriptedParser());
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  KelVar<MabRixSAXHandlerBase> spChild = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(*spRoot));
  spChild->StartHandlingEvents("a", nullptr);
  EXPECT_EQ(spChild->StartElement("a", nullptr), S_OK);
  EXPECT_EQ(spChild->StartElement("b", nullptr), S_OK);
  EXPECT_EQ(spChild->GetDepth(), 1);
  EXPECT_EQ(spChild->Characters(" x "), S_OK);
  EXPECT_EQ(spChild->Characters("y"), S_OK);
  EXPECT_EQ(spChild->GetCharacters(), " x y");
  spChild->StartHandlingEvents("b", nullptr);
  EXPECT_EQ(spChild->GetElementName(), "b");
  EXPECT_EQ(spChild->GetDepth(), 0);
  EXPECT_EQ(spChild->GetCharacters(), " x y");
}

TEST(MabRixSAXHandlerBase, NestedElementOfTheSameNameRaisesTheDepthAndOnlyTheOuterClosingTagEndsTheHandler)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixProbeRun Run = MabRixProbeParse("<r><a><a></a></a><after/></r>", "a", MakeProbe());
  EXPECT_EQ(Run._Result, S_OK);
  const MabRixDepthProbe* pProbe = ProbeOf(Run);
  ASSERT_NE(pProbe, nullptr);
  EXPECT_EQ(pProbe->_Log, (std::vector<std::string>{"<a> 1", "</a> 0", "</a> -1 stop"}));
  // The parser came back to the root after the outer closing tag only.
  EXPECT_EQ(Run._spRoot->_Seen, (std::vector<std::string>{"<r>", "<a>", "<after>", "</after>", "</r>"}));
  EXPECT_EQ(Run._spRoot->_Values.size(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerBase, ClosingTagOfAnotherNameNeverEndsTheHandler)
{
  MabRixProbeRun Run = MabRixProbeParse("<r><a><b></b><c/><b/></a></r>", "a", MakeProbe());
  const MabRixDepthProbe* pProbe = ProbeOf(Run);
  ASSERT_NE(pProbe, nullptr);
  EXPECT_EQ(pProbe->_Log,
            (std::vector<std::string>{"<b> 0", "</b> 0", "<c> 0", "</c> 0", "<b> 0", "</b> 0", "</a> -1 stop"}));
  EXPECT_EQ(Run._spRoot->_Seen, (std::vector<std::string>{"<r>", "<a>", "</r>"}));
}

TEST(MabRixSAXHandlerBase, StopIfNecessaryWithoutAParentReportsAndKeepsTheParserOnStop)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  spRoot->StartHandlingEvents("a", nullptr);
  Reporter.Clear();
  Reporter.SetDefaultAnswer(MabRixTestReporter::Stop);
  EXPECT_FALSE(spRoot->StopIfNecessary("b"));
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_TRUE(spRoot->StopIfNecessary("a"));
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{StartCheck}));
  EXPECT_EQ(Reporter.Reports()[0]._File, BaseFile);
  EXPECT_EQ(pParser->_Handlers.size(), 1u);  // not handed back
  EXPECT_EQ(spRoot->GetDepth(), -1);
}

TEST(MabRixSAXHandlerBase, StopIfNecessaryWithoutAParentHandsTheParserToNoneOnGoOn)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  spRoot->StartHandlingEvents("a", nullptr);
  EXPECT_TRUE(spRoot->StopIfNecessary("a"));
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{StartCheck, StartCheck}));
  ASSERT_EQ(pParser->_Handlers.size(), 2u);
  EXPECT_EQ(pParser->_Handlers[1], nullptr);
}

TEST(MabRixSAXHandlerBase, FailedHandBackIsReportedAndStillEndsTheHandler)
{
  for (int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    MabRixScriptedParser* pParser = new MabRixScriptedParser();
    KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
    KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
    KelVar<MabRixSAXHandlerBase> spChild = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(*spRoot));
    spChild->StartHandlingEvents("a", nullptr);
    pParser->_Result = E_FAIL;
    EXPECT_TRUE(spChild->StopIfNecessary("a")) << Answer;
    EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{HandBackCheck})) << Answer;
    EXPECT_EQ(Reporter.Reports()[0]._File, BaseFile);
    ASSERT_EQ(pParser->_Handlers.size(), 2u);
    EXPECT_EQ(pParser->_Handlers[1], AsDocumentHandler(spRoot.Get()));
  }
}

TEST(MabRixSAXHandlerBase, GetParserGivesTheSharedParser)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(new MabRixScriptedParser());
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spParser));
  KelISAXParser_var spOut;
  EXPECT_EQ(spRoot->GetParser(spOut), S_OK);
  EXPECT_EQ(spOut.Get(), spParser.Get());
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerBase, GetParserWithANullParserFailsTheCheck)
{
  KelISAXParser_var spNull;
  KelVar<MabRixSAXHandlerBase> spRoot = KelVar<MabRixSAXHandlerBase>::Adopt(new MabRixSAXHandlerBase(spNull));
  KelISAXParser_var spOther = KelISAXParser_var::Adopt(new MabRixScriptedParser());
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    KelISAXParser_var spOut = spOther;
    EXPECT_EQ(spRoot->GetParser(spOut), E_FAIL);
    EXPECT_TRUE(!spOut);
    EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!ospISAXParser"}));
    EXPECT_EQ(Reporter.Reports()[0]._File, BaseFile);
  }
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  KelISAXParser_var spOut;
  EXPECT_EQ(spRoot->GetParser(spOut), S_OK);
  EXPECT_TRUE(!spOut);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:!!ospISAXParser"}));
}

TEST(MabRixSAXHandlerBase, GetResponseYieldsANullResponseAndEFail)
{
  MabRixTestParent Parent;
  std::vector<MabIRixSAXHandler_var> Handlers{MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBase(Parent.Root())),
                                              MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(Parent.Root())),
                                              MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBoolean(Parent.Root()))};
  for (const MabIRixSAXHandler_var& spHandler : Handlers)
  {
    // A response object of any kind stands in for what the caller held.
    MabIRixResponse_var spResponse;
    EXPECT_EQ(spHandler->GetResponse(spResponse), E_FAIL) << spHandler->IsA();
    EXPECT_TRUE(!spResponse);
  }
}

TEST(MabRixSAXHandlerBase, BaseValueAcceptsAnythingAndReturnsZero)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBase(Parent.Root()));
  EXPECT_EQ(spHandler->Value(nullptr), 0);
  MabIRixValue_var spString = MabIRixValue_var::Adopt(new MabRixStringValue());
  EXPECT_EQ(spHandler->Value(spString), 0);
  EXPECT_EQ(spString->GetRefCount(), 1u);  // nothing kept
  EXPECT_EQ(spHandler->Value(MabIRixValue_var::Adopt(new MabRixBooleanValue())), 0);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerBase, BaseDefaultsOfTheOtherEventsSucceed)
{
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerBase(Parent.Root()));
  EXPECT_EQ(spHandler->StartDocument(), S_OK);
  EXPECT_EQ(spHandler->EndDocument(), S_OK);
  EXPECT_EQ(spHandler->EndElement("x"), S_OK);
  EXPECT_EQ(spHandler->IgnorableWhiteSpace(" "), S_OK);
  EXPECT_EQ(spHandler->ProcessingInstruction("t", "d"), S_OK);
  EXPECT_EQ(spHandler->SetDocumentLocator(nullptr), S_OK);
}

TEST(MabRixSAXHandlerBase, InterfaceSlotsReachTheHandlersMembers)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixTestParent Parent;
  MabRixSAXHandlerString* pString = new MabRixSAXHandlerString(Parent.Root());
  KelBaseUnknown_var spObject = KelBaseUnknown_var::Adopt(pString);
  MabIRixSAXHandler_var spInterface = spObject;
  ASSERT_FALSE(!spInterface);
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerString(*pString), spInterface.Get());
  EXPECT_STREQ(spInterface->GetImpl()->IsA(), "MabRixSAXHandlerString");
  EXPECT_TRUE(spInterface->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
  // StartHandlingEvents is the base's, StartElement and Characters the
  // handler's own and the base's.
  EXPECT_EQ(spInterface->StartHandlingEvents("v", nullptr), S_OK);
  EXPECT_EQ(DocumentHandlerOf(*Parent._spParser), AsDocumentHandler(pString));
  EXPECT_EQ(spInterface->Characters("t"), S_OK);
  EXPECT_EQ(pString->GetCharacters(), "t");
  EXPECT_EQ(spInterface->StartElement("x", nullptr), E_FAIL);
  EXPECT_EQ(Reporter.Texts(), (std::vector<std::string>{"ExpressionCheck:FALSE"}));
  EXPECT_EQ(spInterface->EndElement("v"), S_OK);
  ASSERT_EQ(Parent.Values().size(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Parent.Values()[0])->_Value, "t");
  KelISAXDocumentHandler_var spDocumentHandler = spInterface;
  EXPECT_EQ(spDocumentHandler.Get(), AsDocumentHandler(pString));
  MabRixSAXHandlerBoolean* pBoolean = new MabRixSAXHandlerBoolean(Parent.Root());
  MabIRixSAXHandler_var spBoolean =
      MabIRixSAXHandler_var::Adopt(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerBoolean(*pBoolean));
  EXPECT_STREQ(spBoolean->IsA(), "MabRixSAXHandlerBoolean");
  EXPECT_EQ(KelImplCast<MabRixSAXHandlerBoolean>(spBoolean.Get()), pBoolean);
}

TEST(MabRixSAXHandlerBase, ChildThatCannotStartLeavesNoCycleWithItsParent)
{
  MabRixLifeCount Roots, Children;
  MabRixScriptedParser* pParser = new MabRixScriptedParser();
  pParser->_Result = E_FAIL;
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  {
    KelVar<MabRixProbeRoot> spRoot = KelVar<MabRixProbeRoot>::Adopt(
        new MabRixProbeRoot(spParser, "v", MabRixMakeCounted<MabRixSAXHandlerBase>(Children), &Roots));
    EXPECT_EQ(spRoot->StartElement("v", nullptr), E_FAIL);
    ASSERT_FALSE(!spRoot->GetChildHandler());
    EXPECT_EQ(spRoot->GetRefCount(), 1u);
  }
  EXPECT_EQ(Roots.Alive(), 0);
  EXPECT_EQ(Children._Built, 1);
  EXPECT_EQ(Children.Alive(), 0);
}
