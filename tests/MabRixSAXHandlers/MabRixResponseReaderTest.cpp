#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "KelCheck.h"
#include "KelError.h"
#include "KelNullVarError.h"
#include "MabRixFailureResponse.h"
#include "MabRixResponseReader.h"
#include "MabRixSAXHandlerFailure.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"

namespace
{
std::string Sample(const char* iPath) { return std::string(MABRIX_SOURCE_DIR) + "/samples/" + iPath; }

MabRixResponseReader::HandlerFactory Strings()
{
  return [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(iRoot)); };
}

MabRixResponseReader::Options StartAt(const char* iElement)
{
  MabRixResponseReader::Options Options;
  Options._StartAt = iElement;
  return Options;
}

std::vector<std::string> Texts(const MabRixBoundedList<MabIRixValue_var>& iValues)
{
  std::vector<std::string> Texts;
  for (const MabIRixValue_var& Value : iValues)
  {
    const MabRixStringValue* pString = KelImplCast<MabRixStringValue>(Value.Get());
    Texts.push_back(pString ? pString->_Value.ToUtf8() : "(not a string)");
  }
  return Texts;
}

// Reads each element inside its own with a String handler and hands every
// string up to its parent, so the root receives one value per element.
class Forwarder : public MabRixSAXHandlerBase
{
public:
  explicit Forwarder(MabRixSAXHandlerBase& iParent) : MabRixSAXHandlerBase(iParent) {}

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(*this));
    return _spChildHandler->StartHandlingEvents(iName, iAttributes);
  }
  HRESULT EndElement(const KelUnicodeString& iName) override
  {
    (void)StopIfNecessary(iName);
    return S_OK;
  }
  HRESULT Value(const MabIRixValue_var& iValue) override { return _spParentHandler->Value(iValue); }
};

MabRixResponseReader::HandlerFactory Forwarders()
{
  return [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new Forwarder(iRoot)); };
}

// Records an error as the thread's last error, as the object handlers do.
HRESULT RaiseError(const char* iKey, const char* iCatalog, const char* iFile, int iLine)
{
  MabRixError* pError = new MabRixError(iKey, iCatalog);
  const HRESULT Result = KelError::GetReturn(2, pError, nullptr, iFile, iLine);
  pError->Release();  // the last-error slot holds its own reference
  return Result;
}

// Ends its start the way a broken handler would: by the host's fatal-error
// report, a null reference, or an error left as the thread's last error.
class Breaking : public MabRixSAXHandlerBase
{
public:
  enum Way
  {
    Fatal,
    NullReference,
    LastError
  };
  Breaking(MabRixSAXHandlerBase& iParent, Way iWay) : MabRixSAXHandlerBase(iParent), _Way(iWay) {}

  HRESULT StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    switch (_Way)
    {
      case Fatal:
        KelFatalError("AssertionFailed:pValue", 0, 0, 0, "Breaking", 12);
        break;
      case NullReference:
        ThrowErrorNullVar();
      case LastError:
        return RaiseError("Unexpected", "MabRixIntegration", "Breaking", 34);
    }
    return MabRixSAXHandlerBase::StartHandlingEvents(iName, iAttributes);
  }

private:
  Way _Way;
};

MabRixResponseReader::HandlerFactory Breakings(Breaking::Way iWay)
{
  return [iWay](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new Breaking(iRoot, iWay)); };
}

const char* const Items = "<list><m>one</m><m>two</m><m>three</m><m>four</m><m>five</m></list>";
}  // namespace

TEST(MabRixResponseReader, ReadsAnObjectListFileIntoTheCallersContext)
{
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  const MabRixResponseReader Reader([&pContext](MabRixSAXHandlerBase& iRoot) {
    return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerObjectList(iRoot, pContext));
  });
  const MabRixReadResult Result = Reader.ReadFile(Sample("object-list/objects.xml"));

  EXPECT_TRUE(Result.Succeeded());
  EXPECT_TRUE(Result._Started);
  EXPECT_EQ(Result._Result, S_OK);
  ASSERT_TRUE(!!Result._spHandler);
  EXPECT_STREQ(Result._spHandler->GetImpl()->IsA(), "MabRixSAXHandlerObjectList");
  EXPECT_TRUE(Result._Values.empty());
  EXPECT_TRUE(Result._Checks.empty());
  EXPECT_FALSE(Result._ParseError);
  EXPECT_FALSE(Result._HostError);
  EXPECT_FALSE(Result._AllocationFailed);
  EXPECT_EQ(pContext->GetMinorObjects().size(), 3u);
  pContext->Release();
}

TEST(MabRixResponseReader, CollectsTheValuesTheRootReceives)
{
  const MabRixReadResult Result = MabRixResponseReader(Strings(), StartAt("message"))
                                      .ReadBuffer("<response><skip/><message>Hello</message></response>");
  EXPECT_TRUE(Result.Succeeded());
  EXPECT_EQ(Texts(Result._Values), std::vector<std::string>{"Hello"});
  EXPECT_EQ(Result._Values.Omitted(), 0u);
  EXPECT_FALSE(Result._spResponse);
  EXPECT_EQ(Result.GetFailureResponse(), nullptr);
}

TEST(MabRixResponseReader, StartsOnTheDocumentElementWithoutAName)
{
  const MabRixReadResult Result = MabRixResponseReader(Strings()).ReadBuffer("<message>Top</message>");
  EXPECT_TRUE(Result.Succeeded());
  EXPECT_EQ(Texts(Result._Values), std::vector<std::string>{"Top"});
}

TEST(MabRixResponseReader, StartsOnlyOnTheFirstElementOfTheName)
{
  const MabRixReadResult Result = MabRixResponseReader(Strings(), StartAt("message"))
                                      .ReadBuffer("<r><message>first</message><message>second</message></r>");
  EXPECT_EQ(Texts(Result._Values), std::vector<std::string>{"first"});
}

TEST(MabRixResponseReader, FileBufferAndStreamGiveTheSameResult)
{
  const MabRixResponseReader Reader(Strings(), StartAt("message"));
  const MabRixReadResult FromFile = Reader.ReadFile(Sample("string/hello.xml"));
  std::ifstream File(Sample("string/hello.xml"));
  const std::string Text((std::istreambuf_iterator<char>(File)), std::istreambuf_iterator<char>());
  std::istringstream Stream(Text);
  const MabRixReadResult FromBuffer = Reader.ReadBuffer(Text);
  const MabRixReadResult FromStream = Reader.ReadStream(Stream);

  ASSERT_TRUE(FromFile.Succeeded());
  EXPECT_EQ(Texts(FromFile._Values), std::vector<std::string>{"Hello from the server"});
  EXPECT_EQ(Texts(FromBuffer._Values), Texts(FromFile._Values));
  EXPECT_EQ(Texts(FromStream._Values), Texts(FromFile._Values));
  EXPECT_TRUE(FromBuffer.Succeeded());
  EXPECT_TRUE(FromStream.Succeeded());
}

// Chunks cut names, texts and tags anywhere; what the handler sees must not
// depend on where.
TEST(MabRixResponseReader, ReadsAStreamInChunksWithTheSameResultForEveryChunkSize)
{
  const std::string Text = std::string("<list>\n") + "<m>one</m>\n<m>two &amp; a half</m>\n<m><bad/></m>\n" + "<m>" +
                           std::string(300, 'x') + "</m>\n</list>";
  MabRixResponseReader::Options Options;
  Options._Parser._ChunkSize = Text.size();
  const MabRixReadResult Whole = MabRixResponseReader(Forwarders(), Options).ReadBuffer(Text);
  // The element with an element inside still closes and hands its (empty) text up.
  ASSERT_EQ(Texts(Whole._Values), (std::vector<std::string>{"one", "two & a half", "", std::string(300, 'x')}));
  ASSERT_FALSE(Whole._Checks.empty());
  ASSERT_FALSE(Whole._CallbackFailures.empty());

  for (const std::size_t ChunkSize : {1u, 2u, 3u, 7u, 64u, 4096u})
  {
    Options._Parser._ChunkSize = ChunkSize;
    std::istringstream Stream(Text);
    const MabRixReadResult Result = MabRixResponseReader(Forwarders(), Options).ReadStream(Stream);
    EXPECT_EQ(Texts(Result._Values), Texts(Whole._Values)) << ChunkSize;
    ASSERT_EQ(Result._Checks.size(), Whole._Checks.size()) << ChunkSize;
    for (std::size_t Index = 0; Index < Whole._Checks.size(); ++Index)
    {
      EXPECT_EQ(Result._Checks[Index]._Text, Whole._Checks[Index]._Text) << ChunkSize;
      EXPECT_EQ(Result._Checks[Index]._XmlLine, Whole._Checks[Index]._XmlLine) << ChunkSize;
      EXPECT_EQ(Result._Checks[Index]._XmlColumn, Whole._Checks[Index]._XmlColumn) << ChunkSize;
    }
    ASSERT_EQ(Result._CallbackFailures.size(), Whole._CallbackFailures.size()) << ChunkSize;
    for (std::size_t Index = 0; Index < Whole._CallbackFailures.size(); ++Index)
    {
      EXPECT_STREQ(Result._CallbackFailures[Index]._Event, Whole._CallbackFailures[Index]._Event) << ChunkSize;
      EXPECT_EQ(Result._CallbackFailures[Index]._Line, Whole._CallbackFailures[Index]._Line) << ChunkSize;
      EXPECT_EQ(Result._CallbackFailures[Index]._Column, Whole._CallbackFailures[Index]._Column) << ChunkSize;
    }
    EXPECT_EQ(Result._Result, Whole._Result) << ChunkSize;
  }
}

TEST(MabRixResponseReader, AnElementThatIsNotThereStartsNothing)
{
  int Calls = 0;
  const MabRixResponseReader Reader(
      [&Calls](MabRixSAXHandlerBase& iRoot) {
        ++Calls;
        return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(iRoot));
      },
      StartAt("message"));
  const MabRixReadResult Result = Reader.ReadBuffer("<response><other>x</other></response>");
  EXPECT_FALSE(Result._Started);
  EXPECT_FALSE(Result.Succeeded());
  EXPECT_FALSE(Result._spHandler);
  EXPECT_FALSE(Result._ParseError);
  EXPECT_EQ(Result._Result, S_OK);
  EXPECT_EQ(Calls, 0);
}

TEST(MabRixResponseReader, AFactoryWithoutAHandlerFailsTheStart)
{
  const MabRixReadResult Result =
      MabRixResponseReader([](MabRixSAXHandlerBase&) { return MabIRixSAXHandler_var(); }).ReadBuffer("<a/>");
  EXPECT_TRUE(Result._Started);
  EXPECT_EQ(Result._Result, E_FAIL);
  EXPECT_FALSE(Result.Succeeded());
  ASSERT_EQ(Result._CallbackFailures.size(), 1u);
  EXPECT_STREQ(Result._CallbackFailures[0]._Event, "StartElement");
}

TEST(MabRixResponseReader, GivesTheLineAndColumnOfAParseError)
{
  const MabRixReadResult Result =
      MabRixResponseReader(Strings(), StartAt("message")).ReadBuffer("<r>\n  <message>a</message>\n  <x></y>\n</r>");
  ASSERT_TRUE(Result._ParseError);
  EXPECT_EQ(Result._ParseError->_Line, 3);
  EXPECT_EQ(Result._ParseError->_Column, 8);
  EXPECT_FALSE(Result._ParseError->_Message.IsEmpty());
  EXPECT_FALSE(Result.Succeeded());
  // What was read before the error is kept.
  EXPECT_EQ(Texts(Result._Values), std::vector<std::string>{"a"});
}

TEST(MabRixResponseReader, AFileThatCannotBeOpenedIsAParseErrorAtLineZero)
{
  const MabRixReadResult Result = MabRixResponseReader(Strings()).ReadFile(Sample("no/such/file.xml"));
  ASSERT_TRUE(Result._ParseError);
  EXPECT_EQ(Result._ParseError->_Line, 0);
  EXPECT_NE(Result._ParseError->_Message.ToUtf8().find("cannot open"), std::string::npos);
  EXPECT_FALSE(Result._Started);
}

TEST(MabRixResponseReader, KeepsTheFirstValuesAndCountsTheRest)
{
  MabRixResponseReader::Options Options;
  Options._MaxRecords = 3;
  const MabRixReadResult Result = MabRixResponseReader(Forwarders(), Options).ReadBuffer(Items);
  EXPECT_TRUE(Result.Succeeded());
  EXPECT_EQ(Texts(Result._Values), (std::vector<std::string>{"one", "two", "three"}));
  EXPECT_EQ(Result._Values.Omitted(), 2u);
  EXPECT_EQ(Result._Values.Total(), 5u);
}

TEST(MabRixResponseReader, KeepsAThousandValuesUnlessToldOtherwise)
{
  std::string Text = "<list>";
  for (int Index = 0; Index < 1005; ++Index)
    Text += "<m>" + std::to_string(Index) + "</m>";
  Text += "</list>";
  const MabRixReadResult Result = MabRixResponseReader(Forwarders()).ReadBuffer(Text);
  EXPECT_EQ(Result._Values.size(), 1000u);
  EXPECT_EQ(Result._Values.Omitted(), 5u);
  EXPECT_EQ(Texts(Result._Values).back(), "999");
}

TEST(MabRixResponseReader, KeepsTheFirstCheckReportsAndFailedCallbacksAndCountsTheRest)
{
  // Each <m> with an element inside fails the String handler twice: a check
  // and a failed callback at the inner start tag, the same at its end tag.
  std::string Text = "<list>";
  for (int Index = 0; Index < 5; ++Index)
    Text += "<m><x/></m>";
  Text += "</list>";
  MabRixResponseReader::Options Options;
  Options._MaxRecords = 3;
  const MabRixReadResult Result = MabRixResponseReader(Forwarders(), Options).ReadBuffer(Text);

  EXPECT_EQ(Result._Checks.size(), 3u);
  EXPECT_GT(Result._Checks.Omitted(), 0u);
  EXPECT_EQ(Result._CallbackFailures.size(), 3u);
  EXPECT_EQ(Result._CallbackFailures.Total(), 10u);
  EXPECT_EQ(Result._Result, E_FAIL);
  EXPECT_FALSE(Result.Succeeded());
}

TEST(MabRixResponseReader, RecordsFailedChecksWithThePlaceAndTheAnswerGiven)
{
  MabRixResponseReader::Options Options = StartAt("failure");
  for (const bool GoOn : {false, true})
  {
    Options._ContinueOnCheck = GoOn;
    const MabRixReadResult Result =
        MabRixResponseReader(
            [](MabRixSAXHandlerBase& iRoot) {
              return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(iRoot));
            },
            Options)
            .ReadBuffer("<r>\n <failure success=\"false\" errorcode=\"7\"><reason>no</reason></failure></r>");
    ASSERT_EQ(Result._Checks.size(), 1u) << GoOn;
    EXPECT_EQ(Result._Checks[0]._Text,
              "ExpressionCheck:SUCCEEDED(iAttributes->GetValue(\"cname\", _pFailureResponse->_CommandName))");
    EXPECT_EQ(Result._Checks[0]._File, "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerFailure");
    EXPECT_GT(Result._Checks[0]._Line, 0);
    EXPECT_EQ(Result._Checks[0]._XmlLine, 2);
    EXPECT_EQ(Result._Checks[0]._Answer, GoOn ? 1 : 0);
  }
}

TEST(MabRixResponseReader, GivesTheFailureResponseOfTheFailureHandler)
{
  const MabRixReadResult Result =
      MabRixResponseReader(
          [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(iRoot)); },
          StartAt("failure"))
          .ReadFile(Sample("failure/checkout-denied.xml"));
  EXPECT_TRUE(Result.Succeeded());
  ASSERT_TRUE(!!Result._spResponse);
  const MabRixFailureResponse* pResponse = Result.GetFailureResponse();
  ASSERT_NE(pResponse, nullptr);
  EXPECT_EQ(pResponse->GetCommandName().ToUtf8(), "checkout");
  EXPECT_EQ(pResponse->GetErrorCode().ToUtf8(), "1403");
  EXPECT_EQ(pResponse->GetReason().ToUtf8(),
            "Bracket-100 A.3 is locked by jdoe since 2026-11-20 and cannot be checked out.");
  EXPECT_TRUE(Result._Values.empty());
}

TEST(MabRixResponseReader, StopsAtTheFirstFailedCallbackWhenTheParserIsToldSo)
{
  MabRixResponseReader::Options Options;
  Options._Parser._StopOnCallbackFailure = true;
  const MabRixReadResult Result =
      MabRixResponseReader(Forwarders(), Options).ReadBuffer("<list><m>one</m><m><x/></m><m>three</m></list>");
  EXPECT_EQ(Result._CallbackFailures.Total(), 1u);
  EXPECT_EQ(Texts(Result._Values), std::vector<std::string>{"one"});
}

TEST(MabRixResponseReader, TracesEveryChangeOfDocumentHandlerWhenAsked)
{
  MabRixResponseReader::Options Options = StartAt("message");
  Options._Trace = true;
  const MabRixReadResult Result = MabRixResponseReader(Strings(), Options).ReadBuffer("<r>\n<message>t</message></r>");
  ASSERT_EQ(Result._Trace.size(), 2u);
  EXPECT_EQ(Result._Trace[0]._Handler, "MabRixSAXHandlerString");
  EXPECT_EQ(Result._Trace[0]._Element, "message");
  EXPECT_EQ(Result._Trace[0]._XmlLine, 2);
  EXPECT_EQ(Result._Trace[1]._Handler, "MabRixSAXHandlerRoot");
  EXPECT_EQ(Result._Trace[1]._Element, "");

  const MabRixReadResult Untraced = MabRixResponseReader(Strings(), StartAt("message")).ReadBuffer("<message/>");
  EXPECT_TRUE(Untraced._Trace.empty());
}

TEST(MabRixResponseReader, AFatalErrorEndsTheReadInsteadOfTheProgram)
{
  const MabRixReadResult Result = MabRixResponseReader(Breakings(Breaking::Fatal)).ReadBuffer("<r>\n  <a/></r>");
  ASSERT_TRUE(Result._HostError);
  EXPECT_EQ(Result._HostError->_Kind, "fatal error");
  EXPECT_EQ(Result._HostError->_Message, "AssertionFailed:pValue (Breaking:12)");
  EXPECT_EQ(Result._HostError->_XmlLine, 1);
  EXPECT_FALSE(Result.Succeeded());
}

TEST(MabRixResponseReader, ANullReferenceEndsTheRead)
{
  const MabRixReadResult Result = MabRixResponseReader(Breakings(Breaking::NullReference)).ReadBuffer("<r/>");
  ASSERT_TRUE(Result._HostError);
  EXPECT_EQ(Result._HostError->_Kind, "null reference");
  EXPECT_FALSE(Result.Succeeded());
}

TEST(MabRixResponseReader, RecordsTheErrorTheHandlersLeaveAndOnlyThatOne)
{
  // An error left by earlier work of the thread is not this read's.
  (void)RaiseError("Earlier", "Elsewhere", "Earlier", 1);
  const MabRixReadResult Clean = MabRixResponseReader(Strings()).ReadBuffer("<m>x</m>");
  EXPECT_FALSE(Clean._LastError);

  const MabRixReadResult Result = MabRixResponseReader(Breakings(Breaking::LastError)).ReadBuffer("<r/>");
  ASSERT_TRUE(Result._LastError);
  EXPECT_EQ(Result._LastError->_Key, "Unexpected");
  EXPECT_EQ(Result._LastError->_Catalog, "MabRixIntegration");
  EXPECT_EQ(Result._LastError->_File, "Breaking");
  EXPECT_EQ(Result._LastError->_Line, 34);
  EXPECT_TRUE(FAILED(Result._Result));
  KelError::KelCleanLastError();
}

TEST(MabRixResponseReader, GivesTheThreadsReporterBackAfterTheRead)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  const MabRixReadResult Result = MabRixResponseReader([](MabRixSAXHandlerBase& iRoot) {
                                    return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(iRoot));
                                  }).ReadBuffer("<failure/>");
  EXPECT_EQ(Result._Checks.size(), 3u);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_NE(KelSysCheckFailure("ExpressionCheck:after", 0, 0, 0, "here", 1), 0);
  EXPECT_EQ(Reporter.Texts(), std::vector<std::string>{"ExpressionCheck:after"});
}

TEST(MabRixResponseReader, ReadsManyDocumentsWithOneReader)
{
  const MabRixResponseReader Reader(Strings());
  EXPECT_EQ(Texts(Reader.ReadBuffer("<a>1</a>")._Values), std::vector<std::string>{"1"});
  EXPECT_EQ(Texts(Reader.ReadBuffer("<a>2</a>")._Values), std::vector<std::string>{"2"});
}
