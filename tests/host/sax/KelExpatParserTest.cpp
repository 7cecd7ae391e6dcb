#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <new>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "KelExpatParser.h"
#include "KelSAXHandlerBase.h"

namespace
{
// Records every event as text; answers with a scripted result per event and
// may run an action (throw, switch handlers) on a given event.
class KelRecordingHandler : public KelSAXHandlerBase
{
public:
  HRESULT StartDocument() override { return Event("StartDocument"); }
  HRESULT EndDocument() override { return Event("EndDocument"); }
  HRESULT SetDocumentLocator(const KelISAXLocator_var& iLocator) override
  {
    _spLocator = iLocator;
    return Event("Locator");
  }
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    std::string Text = "<" + iName.ToUtf8();
    unsigned int Length = 0;
    iAttributes->GetLength(Length);
    for (unsigned int i = 0; i < Length; ++i)
    {
      KelUnicodeString Name, Value;
      iAttributes->GetName(i, Name);
      iAttributes->GetValue(i, Value);
      Text += " " + Name.ToUtf8() + "=" + Value.ToUtf8();
    }
    _spLastAttributes = iAttributes;
    return Event(Text + ">");
  }
  HRESULT EndElement(const KelUnicodeString& iName) override { return Event("</" + iName.ToUtf8() + ">"); }
  HRESULT Characters(const KelUnicodeString& iText) override { return Event("'" + iText.ToUtf8() + "'"); }
  HRESULT ProcessingInstruction(const KelUnicodeString& iTarget, const KelUnicodeString& iData) override
  {
    return Event("?" + iTarget.ToUtf8() + " " + iData.ToUtf8());
  }

  // Events with adjacent text pieces joined, as a document's content.
  std::vector<std::string> Joined() const
  {
    std::vector<std::string> Result;
    for (const std::string& Event : _Events)
    {
      const bool IsText = Event.size() >= 2 && Event.front() == '\'';
      if (IsText && !Result.empty() && Result.back().size() >= 2 && Result.back().front() == '\'')
        Result.back() = Result.back().substr(0, Result.back().size() - 1) + Event.substr(1);
      else
        Result.push_back(Event);
    }
    return Result;
  }

  std::vector<std::string> _Events;
  std::map<std::string, HRESULT> _Results;
  std::map<std::string, std::function<void()>> _Actions;
  std::vector<std::pair<int, int>> _Positions;  // locator's line and column per event
  KelISAXLocator_var _spLocator;
  KelISAXAttributeList_var _spLastAttributes;

private:
  HRESULT Event(const std::string& iEvent)
  {
    _Events.push_back(iEvent);
    int Line = 0, Column = 0;
    if (!!_spLocator)
    {
      _spLocator->GetLineNumber(Line);
      _spLocator->GetColumnNumber(Column);
    }
    _Positions.emplace_back(Line, Column);
    if (const auto Action = _Actions.find(iEvent); Action != _Actions.end())
      Action->second();
    const auto Result = _Results.find(iEvent);
    return Result != _Results.end() ? Result->second : S_OK;
  }
};
typedef KelVar<KelRecordingHandler> KelRecordingHandler_var;

struct KelParse
{
  explicit KelParse(KelExpatParser::Options iOptions = {})
      : _spParser(KelExpatParser_var::Adopt(new KelExpatParser(iOptions))),
        _spHandler(KelRecordingHandler_var::Adopt(new KelRecordingHandler()))
  {
    _spParser->SetDocumentHandler(KelISAXDocumentHandler_var(_spHandler.Get()));
  }
  HRESULT Feed(const std::string& iXml, std::size_t iChunk)
  {
    _spParser->Begin();
    HRESULT hr = S_OK;
    for (std::size_t At = 0; At < iXml.size(); At += iChunk)
    {
      const std::size_t Size = std::min(iChunk, iXml.size() - At);
      hr = _spParser->Feed(iXml.data() + At, Size, At + Size >= iXml.size());
    }
    return hr;
  }
  KelExpatParser_var _spParser;
  KelRecordingHandler_var _spHandler;
};

const char* const Document =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<list kind=\"objects\" n=\"2\">\n"
    "  <item id=\"1\">caf\xC3\xA9 \xE2\x82\xAC"
    "5 \xF0\x9D\x84\x9E</item>\n"
    "  <?note keep?>\n"
    "  <item id=\"2\">a &amp; b &#x20AC;<![CDATA[<raw>]]></item>\n"
    "</list>\n";

typedef std::vector<std::string> Events;
}  // namespace

TEST(KelExpatParser, ParseDeliversTheDocumentEventsInOrder)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a x=\"1\">t<b/><?p d?></a>")), S_OK);
  EXPECT_EQ(Run._spHandler->_Events,
            (Events{"Locator", "StartDocument", "<a x=1>", "'t'", "<b>", "</b>", "?p d", "</a>", "EndDocument"}));
}

TEST(KelExpatParser, TextIsUtf8WithEntitiesAndSectionsDecoded)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->Parse(std::string(Document)), S_OK);
  const Events Joined = Run._spHandler->Joined();
  ASSERT_GE(Joined.size(), 10u);
  EXPECT_EQ(Joined[2], "<list kind=objects n=2>");
  EXPECT_EQ(Joined[4], "<item id=1>");
  EXPECT_EQ(Joined[5],
            "'caf\xC3\xA9 \xE2\x82\xAC"
            "5 \xF0\x9D\x84\x9E'");
  EXPECT_EQ(Joined[8], "?note keep");
  EXPECT_EQ(Joined[11], "'a & b \xE2\x82\xAC<raw>'");
}

TEST(KelExpatParser, FeedingOneByteAtATimeGivesTheSameEventsAsOneBuffer)
{
  KelParse Whole;
  ASSERT_EQ(Whole._spParser->Parse(std::string(Document)), S_OK);
  for (std::size_t Chunk : {1u, 2u, 3u, 7u})
  {
    KelParse Pieces;
    EXPECT_EQ(Pieces.Feed(Document, Chunk), S_OK) << Chunk;
    EXPECT_EQ(Pieces._spHandler->Joined(), Whole._spHandler->Joined()) << Chunk;
  }
  // Split inside multi-byte characters, text arrives in several pieces.
  KelParse Bytes;
  Bytes.Feed(Document, 1);
  EXPECT_GT(Bytes._spHandler->_Events.size(), Whole._spHandler->_Events.size());
}

TEST(KelExpatParser, MalformedDocumentGivesExpatsMessageLineAndColumn)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a>\n  <b></a>")), E_FAIL);
  ASSERT_TRUE(Run._spParser->HasParseError());
  const KelSAXParseError& Error = Run._spParser->GetParseError();
  EXPECT_EQ(Error._Message, "mismatched tag");
  EXPECT_EQ(Error._Line, 2);
  EXPECT_EQ(Error._Column, 8);
  // The events before the error were delivered; the document never ended.
  EXPECT_EQ(Run._spHandler->Joined(), (Events{"Locator", "StartDocument", "<a>", "'\n  '", "<b>"}));
}

TEST(KelExpatParser, TruncatedAndEmptyDocumentsAreParseErrors)
{
  KelParse Truncated;
  EXPECT_EQ(Truncated._spParser->Parse(std::string("<a><b>")), E_FAIL);
  EXPECT_EQ(Truncated._spParser->GetParseError()._Message, "no element found");
  KelParse Empty;
  EXPECT_EQ(Empty._spParser->Parse(nullptr, 0), E_FAIL);
  EXPECT_TRUE(Empty._spParser->HasParseError());
  KelParse Garbage;
  EXPECT_EQ(Garbage._spParser->Parse(std::string("\xFF\xFE\x00<", 4)), E_FAIL);
  EXPECT_TRUE(Garbage._spParser->HasParseError());
}

TEST(KelExpatParser, FailedCallbackIsRecordedAndParsingGoesOnByDefault)
{
  KelParse Run;
  const HRESULT Denied = static_cast<HRESULT>(0x80070005);
  Run._spHandler->_Results["<b>"] = Denied;
  Run._spHandler->_Results["</c>"] = E_FAIL;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a>\n <b/>\n  <c></c></a>")), Denied);
  const std::vector<KelSAXCallbackFailure>& Failures = Run._spParser->GetCallbackFailures();
  ASSERT_EQ(Failures.size(), 2u);
  EXPECT_EQ(Failures[0]._Result, Denied);
  EXPECT_STREQ(Failures[0]._Event, "StartElement");
  EXPECT_EQ(Failures[0]._Element, "b");
  EXPECT_EQ(Failures[0]._Line, 2);
  EXPECT_EQ(Failures[0]._Column, 2);
  EXPECT_EQ(Failures[1]._Result, E_FAIL);
  EXPECT_STREQ(Failures[1]._Event, "EndElement");
  EXPECT_EQ(Failures[1]._Element, "c");
  EXPECT_EQ(Failures[1]._Line, 3);
  EXPECT_EQ(Failures[1]._Column, 6);
  EXPECT_EQ(Run._spParser->GetFirstFailedResult(), Denied);
  EXPECT_EQ(Run._spParser->GetCallbackFailureCount(), 2u);
  EXPECT_FALSE(Run._spParser->HasParseError());
  EXPECT_EQ(Run._spHandler->_Events.back(), "EndDocument");
}

TEST(KelExpatParser, StopOptionEndsTheParseAtTheFirstFailedCallback)
{
  KelExpatParser::Options Options;
  Options._StopOnCallbackFailure = true;
  KelParse Run(Options);
  Run._spHandler->_Results["'x'"] = E_FAIL;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a><b>x</b><c/></a>")), E_FAIL);
  ASSERT_EQ(Run._spParser->GetCallbackFailures().size(), 1u);
  const KelSAXCallbackFailure& Failure = Run._spParser->GetCallbackFailures()[0];
  EXPECT_STREQ(Failure._Event, "Characters");
  EXPECT_EQ(Failure._Element, "");
  EXPECT_EQ(Failure._Line, 1);
  EXPECT_EQ(Failure._Column, 7);
  EXPECT_FALSE(Run._spParser->HasParseError());
  EXPECT_EQ(Run._spHandler->_Events, (Events{"Locator", "StartDocument", "<a>", "<b>", "'x'"}));
}

TEST(KelExpatParser, StopOptionAlsoStopsAChunkedParse)
{
  KelExpatParser::Options Options;
  Options._StopOnCallbackFailure = true;
  KelParse Run(Options);
  Run._spHandler->_Results["<b>"] = E_FAIL;
  EXPECT_EQ(Run.Feed("<a><b/><c/><d/></a>", 2), E_FAIL);
  EXPECT_EQ(Run._spHandler->_Events, (Events{"Locator", "StartDocument", "<a>", "<b>"}));
  EXPECT_EQ(Run._spParser->GetCallbackFailures().size(), 1u);
  EXPECT_FALSE(Run._spParser->HasParseError());
}

TEST(KelExpatParser, FeedAfterTheDocumentIsOverStartsNothing)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a></b>")), E_FAIL);
  const Events Before = Run._spHandler->_Events;
  EXPECT_EQ(Run._spParser->Feed("<c/>", 4, true), E_FAIL);
  EXPECT_TRUE(Run._spParser->HasParseError());
  EXPECT_EQ(Run._spHandler->_Events, Before);
}

TEST(KelExpatParser, FailedStartDocumentIsRecorded)
{
  KelParse Run;
  Run._spHandler->_Results["StartDocument"] = E_FAIL;
  EXPECT_EQ(Run._spParser->Parse(std::string("<a/>")), E_FAIL);
  ASSERT_EQ(Run._spParser->GetCallbackFailures().size(), 1u);
  EXPECT_STREQ(Run._spParser->GetCallbackFailures()[0]._Event, "StartDocument");
}

TEST(KelExpatParser, NullVarErrorInACallbackIsRethrownFromParse)
{
  KelParse Run;
  Run._spHandler->_Actions["<b>"] = [] {
    KelISAXParser_var spNull;
    spNull->SetDocumentHandler(nullptr);
  };
  EXPECT_THROW(Run._spParser->Parse(std::string("<a><b/><c/></a>")), KelNullVarError);
  EXPECT_EQ(Run._spHandler->_Events, (Events{"Locator", "StartDocument", "<a>", "<b>"}));
  // The parser let its handler go and can read the next document.
  EXPECT_EQ(Run._spHandler->GetRefCount(), 1u);
  Run._spParser->SetDocumentHandler(KelISAXDocumentHandler_var(Run._spHandler.Get()));
  EXPECT_EQ(Run._spParser->Parse(std::string("<z/>")), S_OK);
  EXPECT_EQ(Run._spHandler->_Events.back(), "EndDocument");
}

TEST(KelExpatParser, BadAllocInACallbackIsRethrownFromParse)
{
  KelParse Run;
  Run._spHandler->_Actions["'t'"] = [] { throw std::bad_alloc(); };
  EXPECT_THROW(Run._spParser->Parse(std::string("<a>t<b/></a>")), std::bad_alloc);
  EXPECT_EQ(Run._spHandler->_Events.back(), "'t'");
  EXPECT_EQ(Run._spHandler->GetRefCount(), 1u);
}

TEST(KelExpatParser, ExceptionInAChunkedParseIsRethrownFromTheFeedThatMetIt)
{
  KelParse Run;
  Run._spHandler->_Actions["</b>"] = [] { throw std::bad_alloc(); };
  Run._spParser->Begin();
  EXPECT_EQ(Run._spParser->Feed("<a><b>", 6, false), S_OK);
  EXPECT_THROW(Run._spParser->Feed("</b><c/>", 8, false), std::bad_alloc);
  EXPECT_EQ(Run._spHandler->_Events.back(), "</b>");
}

TEST(KelExpatParser, ParseFileOfAMissingFileFailsWithoutEvents)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->ParseFile("/nonexistent/dir/response.xml"), E_FAIL);
  ASSERT_TRUE(Run._spParser->HasParseError());
  EXPECT_NE(Run._spParser->GetParseError()._Message.ToUtf8().find("/nonexistent/dir/response.xml"), std::string::npos);
  EXPECT_EQ(Run._spParser->GetParseError()._Line, 0);
  EXPECT_TRUE(Run._spHandler->_Events.empty());
  EXPECT_EQ(Run._spHandler->GetRefCount(), 1u);
  EXPECT_EQ(Run._spParser->ParseFile(nullptr), E_FAIL);
}

TEST(KelExpatParser, ParseFileReadsTheFileInChunks)
{
  const std::string Path = testing::TempDir() + "KelExpatParserTest.xml";
  std::FILE* pFile = std::fopen(Path.c_str(), "wb");
  ASSERT_NE(pFile, nullptr);
  std::fputs(Document, pFile);
  std::fclose(pFile);
  KelParse Whole;
  Whole._spParser->Parse(std::string(Document));
  for (std::size_t Chunk : {1u, 5u, 4096u})
  {
    KelExpatParser::Options Options;
    Options._ChunkSize = Chunk;
    KelParse Run(Options);
    EXPECT_EQ(Run._spParser->ParseFile(Path.c_str()), S_OK);
    EXPECT_EQ(Run._spHandler->Joined(), Whole._spHandler->Joined()) << Chunk;
  }
  std::remove(Path.c_str());
}

TEST(KelExpatParser, ParseStreamReadsTheStreamInChunks)
{
  KelParse Whole;
  Whole._spParser->Parse(std::string(Document));
  KelExpatParser::Options Options;
  Options._ChunkSize = 3;
  KelParse Run(Options);
  std::istringstream Stream(Document);
  EXPECT_EQ(Run._spParser->ParseStream(Stream), S_OK);
  EXPECT_EQ(Run._spHandler->Joined(), Whole._spHandler->Joined());
  KelParse Bad;
  std::istringstream Broken("<a><b></a>");
  EXPECT_EQ(Bad._spParser->ParseStream(Broken), E_FAIL);
  EXPECT_EQ(Bad._spParser->GetParseError()._Message, "mismatched tag");
}

TEST(KelExpatParser, AttributeListIsReadByNameAndByPosition)
{
  KelParse Run;
  std::vector<std::string> Seen;
  Run._spHandler->_Actions["<e b=2 a=1 c=>"] = [&] {
    KelISAXAttributeList_var spList = Run._spHandler->_spLastAttributes;
    unsigned int Length = 0;
    EXPECT_EQ(spList->GetLength(Length), S_OK);
    EXPECT_EQ(Length, 3u);
    KelUnicodeString Out("untouched");
    EXPECT_EQ(spList->GetValue("a", Out), S_OK);
    EXPECT_EQ(Out, "1");
    EXPECT_EQ(spList->GetValue("c", Out), S_OK);
    EXPECT_EQ(Out, "");
    Out = "untouched";
    EXPECT_TRUE(FAILED(spList->GetValue("d", Out)));
    EXPECT_TRUE(FAILED(spList->GetValue("A", Out)));
    EXPECT_TRUE(FAILED(spList->GetValue(3, Out)));
    EXPECT_TRUE(FAILED(spList->GetName(3, Out)));
    EXPECT_TRUE(FAILED(spList->GetName(1000000, Out)));
    EXPECT_EQ(Out, "untouched");
    EXPECT_EQ(spList->GetName(0, Out), S_OK);
    EXPECT_EQ(Out, "b");
    EXPECT_EQ(spList->GetValue(0u, Out), S_OK);
    EXPECT_EQ(Out, "2");
    Seen.push_back("checked");
  };
  EXPECT_EQ(Run._spParser->Parse(std::string("<e b='2' a=\"1\" c=''/>")), S_OK);
  EXPECT_EQ(Seen.size(), 1u);
}

TEST(KelExpatParser, RetainedAttributeListReadsEmptyAfterTheCallback)
{
  KelParse Run;
  EXPECT_EQ(Run._spParser->Parse(std::string("<e a=\"1\"/>")), S_OK);
  KelISAXAttributeList_var spList = Run._spHandler->_spLastAttributes;
  ASSERT_FALSE(!spList);
  unsigned int Length = 99;
  EXPECT_EQ(spList->GetLength(Length), S_OK);
  EXPECT_EQ(Length, 0u);
  KelUnicodeString Out("untouched");
  EXPECT_TRUE(FAILED(spList->GetValue("a", Out)));
  EXPECT_TRUE(FAILED(spList->GetName(0, Out)));
  EXPECT_TRUE(FAILED(spList->GetValue(0u, Out)));
  EXPECT_EQ(Out, "untouched");
}

TEST(KelExpatParser, LocatorGivesThePositionOfTheEvent)
{
  KelParse Run;
  ASSERT_EQ(Run._spParser->Parse(std::string("<a>\n  <b/></a>")), S_OK);
  const Events& Seen = Run._spHandler->_Events;
  const std::size_t At = std::find(Seen.begin(), Seen.end(), "<b>") - Seen.begin();
  ASSERT_LT(At, Seen.size());
  EXPECT_EQ(Run._spHandler->_Positions[At], std::make_pair(2, 3));
  EXPECT_EQ(Run._spHandler->_Positions[2], std::make_pair(1, 1));
}

TEST(KelExpatParser, LocatorOutlivingItsParserGivesNoPosition)
{
  KelISAXLocator_var spLocator;
  {
    KelParse Run;
    Run._spParser->Parse(std::string("<a/>"));
    spLocator = Run._spHandler->_spLocator;
  }
  int Line = 5, Column = 5;
  EXPECT_TRUE(FAILED(spLocator->GetLineNumber(Line)));
  EXPECT_TRUE(FAILED(spLocator->GetColumnNumber(Column)));
}

TEST(KelExpatParser, HandlerChangedInACallbackReceivesTheLaterEvents)
{
  KelParse Run;
  KelRecordingHandler_var spOther = KelRecordingHandler_var::Adopt(new KelRecordingHandler());
  Run._spHandler->_Actions["<b>"] = [&] {
    Run._spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spOther.Get()));
  };
  EXPECT_EQ(Run._spParser->Parse(std::string("<a><b>t</b></a>")), S_OK);
  EXPECT_EQ(Run._spHandler->_Events, (Events{"Locator", "StartDocument", "<a>", "<b>"}));
  EXPECT_EQ(spOther->_Events, (Events{"'t'", "</b>", "</a>", "EndDocument"}));
}

TEST(KelExpatParser, ParserLetsItsHandlerGoWhenTheDocumentIsOver)
{
  KelParse Run;
  EXPECT_EQ(Run._spHandler->GetRefCount(), 2u);
  Run._spParser->Parse(std::string("<a/>"));
  EXPECT_EQ(Run._spHandler->GetRefCount(), 1u);
  KelISAXDocumentHandler_var spHandler;
  Run._spParser->GetDocumentHandler(spHandler);
  EXPECT_TRUE(!spHandler);
  KelParse Broken;
  Broken._spParser->Parse(std::string("<a>"));
  EXPECT_EQ(Broken._spHandler->GetRefCount(), 1u);
}

TEST(KelExpatParser, ExternalEntitiesAreNeverLoaded)
{
  const std::string Path = testing::TempDir() + "KelExpatParserSecret.txt";
  std::FILE* pFile = std::fopen(Path.c_str(), "wb");
  ASSERT_NE(pFile, nullptr);
  std::fputs("secret", pFile);
  std::fclose(pFile);
  KelExpatParser::Options Options;
  Options._AllowDoctype = true;
  KelParse Run(Options);
  const std::string Xml = "<!DOCTYPE a [<!ENTITY e SYSTEM \"file://" + Path + "\">]><a>[&e;]</a>";
  Run._spParser->Parse(Xml);
  for (const std::string& Event : Run._spHandler->_Events)
    EXPECT_EQ(Event.find("secret"), std::string::npos) << Event;
  std::remove(Path.c_str());
}

TEST(KelExpatParser, TwoParsersOnTwoThreadsDoNotDisturbEachOther)
{
  std::string First = "<first>";
  std::string Second = "<second kind=\"b\">";
  for (int i = 0; i < 300; ++i)
  {
    First += "<i n=\"" + std::to_string(i) + "\">one " + std::to_string(i) + "</i>";
    Second += "<j>\xC3\xA9" + std::to_string(i * 7) + "</j><k/>";
  }
  First += "</first>";
  Second += "<broken></second>";
  KelParse FirstAlone, SecondAlone;
  ASSERT_EQ(FirstAlone._spParser->Parse(First), S_OK);
  ASSERT_EQ(SecondAlone._spParser->Parse(Second), E_FAIL);
  const auto Read = [](const std::string& iXml, std::size_t iChunk, Events& oEvents, HRESULT& oResult) {
    for (int Round = 0; Round < 20; ++Round)
    {
      KelParse Run;
      oResult = Run.Feed(iXml, iChunk);
      oEvents = Run._spHandler->Joined();
    }
  };
  Events FirstEvents, SecondEvents;
  HRESULT FirstResult = S_OK, SecondResult = S_OK;
  std::thread A([&] { Read(First, 13, FirstEvents, FirstResult); });
  std::thread B([&] { Read(Second, 11, SecondEvents, SecondResult); });
  A.join();
  B.join();
  EXPECT_EQ(FirstResult, S_OK);
  EXPECT_EQ(SecondResult, E_FAIL);
  EXPECT_EQ(FirstEvents, FirstAlone._spHandler->Joined());
  EXPECT_EQ(SecondEvents, SecondAlone._spHandler->Joined());
}
