// Hostile and broken server responses: every one ends with a clear error or
// a correct reading, within a memory bound and a time-out, and whatever was
// read before the damage is kept.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <streambuf>

#include "KelSAXHandlerBase.h"
#include "MabRixBoundedRun.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

namespace
{
// Generous: these detect hangs, they do not measure speed.
const unsigned TimeOutSeconds = 120;

// A stream of iHead, iCount copies of iFill, then iTail, made as it is read:
// huge documents without holding them in memory.
class GeneratedBuffer : public std::streambuf
{
public:
  GeneratedBuffer(std::string iHead, std::string iFill, std::size_t iCount, std::string iTail)
      : _Parts{std::move(iHead), std::move(iFill), std::move(iTail)}, _Count(iCount)
  {
  }

protected:
  int_type underflow() override
  {
    while (_Part < 3)
    {
      const std::string& Text = _Parts[_Part];
      if (_Part == 1 && _Done < _Count && !Text.empty())
      {
        // Refill a block of whole copies of the fill.
        _Block.clear();
        while (_Block.size() < 64 * 1024 && _Done < _Count)
        {
          _Block += Text;
          ++_Done;
        }
        setg(_Block.data(), _Block.data(), _Block.data() + _Block.size());
        return traits_type::to_int_type(*gptr());
      }
      if (_Part != 1 && !_Emitted && !Text.empty())
      {
        _Emitted = true;
        _Block = Text;
        setg(_Block.data(), _Block.data(), _Block.data() + _Block.size());
        return traits_type::to_int_type(*gptr());
      }
      ++_Part;
      _Emitted = false;
    }
    return traits_type::eof();
  }

private:
  std::string _Parts[3];
  std::size_t _Count;
  std::size_t _Done = 0;
  int _Part = 0;
  bool _Emitted = false;
  std::string _Block;
};

// Reads a generated document through the String handler, started on the
// document element.
struct StreamReading
{
  KelVar<KelExpatParser> _spParser;
  KelVar<MabRixTestRootHandler> _spRoot;
  HRESULT _Result = S_OK;
};

StreamReading ReadGenerated(GeneratedBuffer& ioBuffer, KelExpatParser::Options iOptions = {})
{
  StreamReading Reading;
  Reading._spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(iOptions));
  KelISAXParser_var spParser(Reading._spParser);
  Reading._spRoot = KelVar<MabRixTestRootHandler>::Adopt(
      new MabRixTestRootHandler(spParser, MabRixMake<MabRixSAXHandlerString>(), ""));
  Reading._spParser->SetDocumentHandler(KelISAXDocumentHandler_var(Reading._spRoot.Get()));
  std::istream Stream(&ioBuffer);
  Reading._Result = Reading._spParser->ParseStream(Stream);
  return Reading;
}

std::string StringOf(const MabIRixValue_var& iValue)
{
  MabRixStringValue* pValue = MabRixValueAs<MabRixStringValue>(iValue);
  return pValue ? pValue->_Value.ToUtf8() : "<not a string>";
}

std::string ParseErrorOf(const MabRixTestReading& iReading)
{
  return iReading._spParser->GetParseError()._Message.ToUtf8();
}

// Collects every piece of text and every element any event carries.
class TextCollector : public KelSAXHandlerBase
{
public:
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    _Seen += "<" + iName.ToUtf8();
    unsigned int Length = 0;
    iAttributes->GetLength(Length);
    for (unsigned int i = 0; i < Length; ++i)
    {
      KelUnicodeString Name, Value;
      iAttributes->GetName(i, Name);
      iAttributes->GetValue(i, Value);
      _Seen += " " + Name.ToUtf8() + "=" + Value.ToUtf8();
    }
    _Seen += ">";
    return S_OK;
  }
  HRESULT Characters(const KelUnicodeString& iCharacters) override
  {
    _Seen += iCharacters.ToUtf8();
    return S_OK;
  }
  HRESULT ProcessingInstruction(const KelUnicodeString& iTarget, const KelUnicodeString& iData) override
  {
    _Seen += "<?" + iTarget.ToUtf8() + " " + iData.ToUtf8() + "?>";
    return S_OK;
  }
  std::string _Seen;
};

struct CollectedReading
{
  HRESULT _Result = S_OK;
  std::string _Seen;
  std::string _Error;
};

CollectedReading Collect(const std::string& iXml, KelExpatParser::Options iOptions = {})
{
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(iOptions));
  KelVar<TextCollector> spCollector = KelVar<TextCollector>::Adopt(new TextCollector());
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spCollector.Get()));
  CollectedReading Reading;
  Reading._Result = spParser->Parse(iXml);
  Reading._Seen = spCollector->_Seen;
  Reading._Error = spParser->GetParseError()._Message.ToUtf8();
  return Reading;
}

KelExpatParser::Options AllowingDoctype()
{
  KelExpatParser::Options Options;
  Options._AllowDoctype = true;
  return Options;
}

std::string BillionLaughs()
{
  std::string Xml = "<!DOCTYPE lolz [<!ENTITY lol0 \"lol\">";
  for (int i = 1; i < 10; ++i)
    Xml += "<!ENTITY lol" + std::to_string(i) + " \"" + [&] {
      std::string Refs;
      for (int j = 0; j < 10; ++j)
        Refs += "&lol" + std::to_string(i - 1) + ";";
      return Refs;
    }() + "\">";
  return Xml + "]><lolz>&lol9;</lolz>";
}

// One entity of 64 KiB referenced 64 Ki times: 4 GiB of text from 400 KiB.
std::string QuadraticBlowUp()
{
  std::string Xml = "<!DOCTYPE r [<!ENTITY a \"" + std::string(64 * 1024, 'a') + "\">]><r>";
  for (int i = 0; i < 64 * 1024; ++i)
    Xml += "&a;";
  return Xml + "</r>";
}

// A scratch file whose text must never show up in a reading.
class SecretFile
{
public:
  SecretFile()
  {
    char Template[] = "/tmp/mabrix-secret-XXXXXX";
    const int Fd = mkstemp(Template);
    _Path = Template;
    const std::string Text = "TOP-SECRET-" + std::to_string(getpid());
    if (Fd >= 0)
    {
      if (write(Fd, Text.data(), Text.size()) < 0)
        _Path.clear();
      close(Fd);
    }
    _Secret = Text;
  }
  ~SecretFile() { std::remove(_Path.c_str()); }
  std::string _Path;
  std::string _Secret;
};
}  // namespace

#include <unistd.h>

TEST(KelExpatParserHostile, DoctypeIsRefusedByDefault)
{
  const MabRixTestReading Reading = MabRixRead("<!DOCTYPE a><a>x</a>", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_TRUE(Reading._spParser->HasParseError());
  EXPECT_EQ(ParseErrorOf(Reading), "document type declarations are not allowed in a server response");
  EXPECT_EQ(Reading._spParser->GetParseError()._Line, 1);
  EXPECT_FALSE(Reading._spRoot->Started());
  EXPECT_TRUE(Reading.Values().empty());
}

TEST(KelExpatParserHostile, DoctypeIsRefusedByDefaultWhenFedInChunks)
{
  const MabRixTestReading Reading = MabRixRead("<?xml version=\"1.0\"?>\n<!DOCTYPE a [<!ENTITY e \"hi\">]><a>&e;</a>",
                                               MabRixMake<MabRixSAXHandlerString>(), "", 3);
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(ParseErrorOf(Reading), "document type declarations are not allowed in a server response");
  EXPECT_EQ(Reading._spParser->GetParseError()._Line, 2);
  EXPECT_TRUE(Reading.Values().empty());
}

TEST(KelExpatParserHostile, AllowedDoctypeExpandsInternalEntities)
{
  const MabRixTestReading Reading = MabRixRead("<!DOCTYPE a [<!ENTITY e \"hi\">]><a>&e; &amp; &#x263A;</a>",
                                               MabRixMake<MabRixSAXHandlerString>(), "", 0, AllowingDoctype());
  EXPECT_EQ(Reading._Result, S_OK) << ParseErrorOf(Reading);
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(StringOf(Reading.Values()[0]), "hi & \xE2\x98\xBA");
}

TEST(KelExpatParserHostile, BillionLaughsIsRefusedByDefault)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        const MabRixTestReading Reading = MabRixRead(BillionLaughs(), MabRixMake<MabRixSAXHandlerString>());
        MabRixBoundedSay(ParseErrorOf(Reading));
        return Reading._Result == E_FAIL && Reading.Values().empty() &&
                       ParseErrorOf(Reading) == "document type declarations are not allowed in a server response"
                   ? 0
                   : 1;
      },
      TimeOutSeconds);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(64)) << Run.Describe();
}

TEST(KelExpatParserHostile, BillionLaughsWithDoctypeAllowedStopsOnTheAmplificationLimit)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        const MabRixTestReading Reading =
            MabRixRead(BillionLaughs(), MabRixMake<MabRixSAXHandlerString>(), "", 0, AllowingDoctype());
        MabRixBoundedSay(ParseErrorOf(Reading));
        return Reading._Result == E_FAIL && Reading._spParser->HasParseError() && Reading.Values().empty() ? 0 : 1;
      },
      TimeOutSeconds);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_NE(Run._Output.find("amplification"), std::string::npos) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(64)) << Run.Describe();
}

TEST(KelExpatParserHostile, QuadraticBlowUpIsRefusedByDefault)
{
  const MabRixTestReading Reading = MabRixRead(QuadraticBlowUp(), MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(ParseErrorOf(Reading), "document type declarations are not allowed in a server response");
  EXPECT_TRUE(Reading.Values().empty());
}

TEST(KelExpatParserHostile, QuadraticBlowUpWithDoctypeAllowedStopsOnTheAmplificationLimit)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        const MabRixTestReading Reading =
            MabRixRead(QuadraticBlowUp(), MabRixMake<MabRixSAXHandlerString>(), "", 0, AllowingDoctype());
        MabRixBoundedSay(ParseErrorOf(Reading));
        return Reading._Result == E_FAIL && Reading._spParser->HasParseError() && Reading.Values().empty() ? 0 : 1;
      },
      TimeOutSeconds);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_NE(Run._Output.find("amplification"), std::string::npos) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(128)) << Run.Describe();
}

TEST(KelExpatParserHostile, ExternalEntityNamingALocalFileIsNeverRead)
{
  const SecretFile Secret;
  ASSERT_FALSE(Secret._Path.empty());
  for (const std::string& Reference : {Secret._Path, "file://" + Secret._Path})
  {
    const std::string Xml = "<!DOCTYPE a [<!ENTITY x SYSTEM \"" + Reference + "\">]><a>[&x;]</a>";
    // Refused outright by default.
    const CollectedReading Refused = Collect(Xml);
    EXPECT_EQ(Refused._Result, E_FAIL);
    EXPECT_EQ(Refused._Error, "document type declarations are not allowed in a server response");
    EXPECT_EQ(Refused._Seen.find(Secret._Secret), std::string::npos);
    // Allowed: the reference is skipped, the file stays unread.
    const CollectedReading Allowed = Collect(Xml, AllowingDoctype());
    EXPECT_EQ(Allowed._Result, S_OK) << Allowed._Error;
    EXPECT_EQ(Allowed._Seen, "<a>[]");
    EXPECT_EQ(Allowed._Error.find(Secret._Secret), std::string::npos);
    const MabRixTestReading Reading = MabRixRead(Xml, MabRixMake<MabRixSAXHandlerString>(), "", 0, AllowingDoctype());
    ASSERT_EQ(Reading.Values().size(), 1u);
    EXPECT_EQ(StringOf(Reading.Values()[0]), "[]");
  }
}

TEST(KelExpatParserHostile, ExternalEntityInAnAttributeIsAnError)
{
  const SecretFile Secret;
  const std::string Xml = "<!DOCTYPE a [<!ENTITY x SYSTEM \"file://" + Secret._Path + "\">]><a b=\"&x;\">t</a>";
  const CollectedReading Allowed = Collect(Xml, AllowingDoctype());
  EXPECT_EQ(Allowed._Result, E_FAIL);
  EXPECT_EQ(Allowed._Error, "reference to external entity in attribute");
  EXPECT_EQ(Allowed._Seen.find(Secret._Secret), std::string::npos);
}

TEST(KelExpatParserHostile, ExternalDtdIsNeverLoaded)
{
  const SecretFile Secret;
  const std::string Xml = "<!DOCTYPE a SYSTEM \"file://" + Secret._Path + "\"><a>&unknown;</a>";
  const CollectedReading Refused = Collect(Xml);
  EXPECT_EQ(Refused._Error, "document type declarations are not allowed in a server response");
  const CollectedReading Allowed = Collect(Xml, AllowingDoctype());
  // The external subset stays unread, so the entity is merely skipped.
  EXPECT_EQ(Allowed._Result, S_OK) << Allowed._Error;
  EXPECT_EQ(Allowed._Seen, "<a>");
}

TEST(KelExpatParserHostile, ExternalParameterEntityIsNeverLoaded)
{
  const SecretFile Secret;
  const std::string Xml = "<!DOCTYPE a [<!ENTITY % p SYSTEM \"file://" + Secret._Path + "\"> %p;]><a>ok</a>";
  const CollectedReading Refused = Collect(Xml);
  EXPECT_EQ(Refused._Error, "document type declarations are not allowed in a server response");
  const CollectedReading Allowed = Collect(Xml, AllowingDoctype());
  EXPECT_EQ(Allowed._Result, S_OK) << Allowed._Error;
  EXPECT_EQ(Allowed._Seen, "<a>ok");
}

// Parameter entities are not parsed: the declarations a reference would
// bring in, or that follow it, are not taken, and their entities are skipped.
TEST(KelExpatParserHostile, ParameterEntityReferencesAreNotExpanded)
{
  const std::string Xml = "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'declared'>\"> %p;]><a>&e;</a>";
  EXPECT_EQ(Collect(Xml)._Error, "document type declarations are not allowed in a server response");
  const CollectedReading Allowed = Collect(Xml, AllowingDoctype());
  EXPECT_EQ(Allowed._Result, S_OK) << Allowed._Error;
  EXPECT_EQ(Allowed._Seen, "<a>");
  const CollectedReading After =
      Collect("<!DOCTYPE a [<!ENTITY % p \"x\"> %p; <!ENTITY e 'after'>]><a>&e;</a>", AllowingDoctype());
  EXPECT_EQ(After._Result, S_OK) << After._Error;
  EXPECT_EQ(After._Seen, "<a>");
}

TEST(KelExpatParserHostile, ElementsUpToTheDepthLimitAreReadAndOneDeeperIsAnError)
{
  KelExpatParser::Options Options;
  Options._MaxDepth = 3;
  const CollectedReading AtLimit = Collect("<a><b><c>t</c></b></a>", Options);
  EXPECT_EQ(AtLimit._Result, S_OK) << AtLimit._Error;
  EXPECT_EQ(AtLimit._Seen, "<a><b><c>t");
  const CollectedReading Deeper = Collect("<a><b><c><d>t</d></c></b></a>", Options);
  EXPECT_EQ(Deeper._Result, E_FAIL);
  EXPECT_EQ(Deeper._Error, "elements nested deeper than 3 levels");
  EXPECT_EQ(Deeper._Seen, "<a><b><c>");
  // Depth is counted again for every document of a parser.
  const CollectedReading Siblings = Collect("<a><b><c/></b><b><c/></b><b><c/></b></a>", Options);
  EXPECT_EQ(Siblings._Result, S_OK) << Siblings._Error;
}

TEST(KelExpatParserHostile, TheDepthLimitReportsThePlaceOfTheDeeperElement)
{
  KelExpatParser::Options Options;
  Options._MaxDepth = 2;
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(Options));
  EXPECT_EQ(spParser->Parse(std::string("<a>\n <b>\n  <c/></b></a>")), E_FAIL);
  ASSERT_TRUE(spParser->HasParseError());
  EXPECT_EQ(spParser->GetParseError()._Line, 3);
  EXPECT_EQ(spParser->GetParseError()._Column, 3);
  // The same parser reads the next document from depth 0.
  EXPECT_EQ(spParser->Parse(std::string("<a><b/></a>")), S_OK);
}

TEST(KelExpatParserHostile, MillionNestedElementsEndAtTheDepthLimitInBoundedMemory)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        const std::size_t Depth = 1000000;
        std::string Close;
        for (std::size_t i = 0; i < Depth; ++i)
          Close += "</a>";
        GeneratedBuffer Buffer("", "<a>", Depth, Close);
        const StreamReading Reading = ReadGenerated(Buffer);
        const KelExpatParser& Parser = *Reading._spParser;
        MabRixBoundedSay("parse error: " + Parser.GetParseError()._Message.ToUtf8());
        MabRixBoundedSay("failures: " + std::to_string(Parser.GetCallbackFailureCount()));
        // The String handler refuses every nested element until the depth
        // limit ends the document: expat never holds a million open elements.
        return Parser.HasParseError() &&
                       Parser.GetParseError()._Message.ToUtf8() == "elements nested deeper than 100000 levels" &&
                       Reading._Result == E_FAIL && Parser.GetCallbackFailures().size() == 256 &&
                       Reading._spRoot->Values().empty()
                   ? 0
                   : 1;
      },
      TimeOutSeconds);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(64)) << Run.Describe();
}

TEST(KelExpatParserHostile, LargeTokenFedInSmallChunksStaysLinear)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        // expat's own deferral off: the parser's feeding alone must keep a
        // 16 MiB attribute fed 1 KiB at a time from rescanning it.
        KelExpatParser::Options Options;
        Options._ChunkSize = 1024;
        Options._ExpatReparseDeferral = false;
        GeneratedBuffer Buffer("<a b=\"", std::string(1024, 'x'), 16 * 1024, "\">text</a>");
        const StreamReading Reading = ReadGenerated(Buffer, Options);
        MabRixBoundedSay("parse error: " + Reading._spParser->GetParseError()._Message.ToUtf8());
        return Reading._Result == S_OK && Reading._spRoot->Values().size() == 1 &&
                       StringOf(Reading._spRoot->Values()[0]) == "text"
                   ? 0
                   : 1;
      },
      // Quadratic rescanning takes minutes here; linear takes well under a second.
      30);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(128)) << Run.Describe();
}

TEST(KelExpatParserHostile, LargeTokenFedThroughFeedStaysLinear)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        KelExpatParser::Options Options;
        Options._ExpatReparseDeferral = false;
        const std::string Text = "<a b=\"" + std::string(16 * 1024 * 1024, 'y') + "\">text</a>";
        const MabRixTestReading Reading = MabRixRead(Text, MabRixMake<MabRixSAXHandlerString>(), "", 512, Options);
        return Reading._Result == S_OK && Reading.Values().size() == 1 && StringOf(Reading.Values()[0]) == "text" ? 0
                                                                                                                  : 1;
      },
      30);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
}

TEST(KelExpatParserHostileHeavy, HugeAttributeValueIsReadInBoundedMemory)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        // 256 MiB in one attribute value, made as it is read.
        GeneratedBuffer Buffer("<a b=\"", std::string(4096, 'v'), 64 * 1024, "\">text</a>");
        const StreamReading Reading = ReadGenerated(Buffer);
        MabRixBoundedSay("parse error: " + Reading._spParser->GetParseError()._Message.ToUtf8());
        return Reading._Result == S_OK && Reading._spRoot->Values().size() == 1 &&
                       StringOf(Reading._spRoot->Values()[0]) == "text"
                   ? 0
                   : 1;
      },
      TimeOutSeconds);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  // The value is held once by expat while its tag is open, plus growth.
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(1024)) << Run.Describe();
}

TEST(KelExpatParserHostile, HundredThousandAttributesAreReadInLinearTime)
{
  const MabRixBoundedResult Run = MabRixRunBounded(
      [] {
        std::string Xml = "<cadobject";
        for (int i = 0; i < 100000; ++i)
          Xml += " a" + std::to_string(i) + "=\"v" + std::to_string(i) + "\"";
        Xml += "/>";
        const CollectedReading Reading = Collect(Xml);
        return Reading._Result == S_OK && Reading._Seen.find(" a99999=v99999>") != std::string::npos ? 0 : 1;
      },
      30);
  EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Run.Describe();
  EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(128)) << Run.Describe();
}

TEST(KelExpatParserHostile, InvalidUtf8IsAnErrorAndKeepsWhatWasRead)
{
  for (std::size_t Chunk : {0u, 1u, 7u})
  {
    const MabRixTestReading Reading =
        MabRixRead("<r><s>one</s><s>t\xC3\x28</s></r>", MabRixMake<MabRixSAXHandlerString>(), "s", Chunk);
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(ParseErrorOf(Reading), "not well-formed (invalid token)");
    EXPECT_EQ(Reading._spParser->GetParseError()._Line, 1);
    ASSERT_EQ(Reading.Values().size(), 1u);
    EXPECT_EQ(StringOf(Reading.Values()[0]), "one");
  }
}

TEST(KelExpatParserHostile, NulByteIsAnError)
{
  const std::string Xml("<r><s>one</s><s>a\0b</s></r>", 26);
  const MabRixTestReading Reading = MabRixRead(Xml, MabRixMake<MabRixSAXHandlerString>(), "s");
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(ParseErrorOf(Reading), "not well-formed (invalid token)");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(StringOf(Reading.Values()[0]), "one");
}

TEST(KelExpatParserHostile, TruncatedDocumentIsAnErrorAndKeepsWhatWasRead)
{
  const std::string Xml = "<r><s>one</s><s>two</s><s>thr";
  // The root starts one String handler, on the first s.
  for (std::size_t Length = 0; Length <= Xml.size(); ++Length)
  {
    const MabRixTestReading Reading =
        MabRixRead(Xml.substr(0, Length), MabRixMake<MabRixSAXHandlerString>(), "s", Length % 3);
    EXPECT_EQ(Reading._Result, E_FAIL) << Length;
    EXPECT_TRUE(Reading._spParser->HasParseError()) << Length;
    ASSERT_EQ(Reading.Values().size(), Length >= 13 ? 1u : 0u) << Length;
    if (Length >= 13)
    {
      EXPECT_EQ(StringOf(Reading.Values()[0]), "one");
    }
  }
  EXPECT_EQ(ParseErrorOf(MabRixRead("", MabRixMake<MabRixSAXHandlerString>())), "no element found");
  EXPECT_EQ(ParseErrorOf(MabRixRead("<r><s>on", MabRixMake<MabRixSAXHandlerString>())), "no element found");
}

TEST(KelExpatParserHostile, Utf16WithByteOrderMarkIsRead)
{
  const std::u16string Text = u"<a>h\u00e9llo \u263A</a>";
  for (bool BigEndian : {false, true})
  {
    std::string Bytes = BigEndian ? std::string("\xFE\xFF", 2) : std::string("\xFF\xFE", 2);
    for (char16_t Unit : Text)
    {
      const char High = static_cast<char>(Unit >> 8), Low = static_cast<char>(Unit & 0xFF);
      Bytes += BigEndian ? std::string{High, Low} : std::string{Low, High};
    }
    const MabRixTestReading Reading = MabRixRead(Bytes, MabRixMake<MabRixSAXHandlerString>(), "", 5);
    EXPECT_EQ(Reading._Result, S_OK) << ParseErrorOf(Reading);
    ASSERT_EQ(Reading.Values().size(), 1u);
    EXPECT_EQ(StringOf(Reading.Values()[0]), "h\xC3\xA9llo \xE2\x98\xBA");
  }
}

TEST(KelExpatParserHostile, UnknownEncodingIsAnError)
{
  const MabRixTestReading Reading =
      MabRixRead("<?xml version=\"1.0\" encoding=\"x-unheard-of\"?><a>x</a>", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(ParseErrorOf(Reading), "unknown encoding");
  EXPECT_TRUE(Reading.Values().empty());
}

TEST(KelExpatParserHostile, SecondDocumentElementIsAnErrorAndKeepsTheFirst)
{
  const MabRixTestReading Reading = MabRixRead("<a>one</a><a>two</a>", MabRixMake<MabRixSAXHandlerString>());
  EXPECT_EQ(Reading._Result, E_FAIL);
  EXPECT_EQ(ParseErrorOf(Reading), "junk after document element");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(StringOf(Reading.Values()[0]), "one");
}
