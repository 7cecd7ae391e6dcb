#include "MabRixFuzzHandlers.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "KelCheck.h"
#include "KelError.h"
#include "KelNullVarError.h"
#include "MabRixHandlerTable.h"
#include "MabRixTestSupport.h"

namespace
{
const std::size_t HeaderSize = 12;

// Answers each report from the input: always stop, always go on, or the bits
// of a pattern in turn.
class FuzzReporter : public KelCheckReporter
{
public:
  FuzzReporter(std::uint8_t iMode, std::uint32_t iPattern) : _Mode(iMode), _Pattern(iPattern), _Scope(*this) {}
  int OnCheckFailure(const char*, const char*, int) override
  {
    if (_Mode <= 1)
      return _Mode;
    return static_cast<int>((_Pattern >> (_Count++ % 32)) & 1u);
  }

private:
  std::uint8_t _Mode;
  std::uint32_t _Pattern;
  unsigned _Count = 0;
  KelCheckReporterScope _Scope;
};

std::uint32_t Word(const std::uint8_t* iData)
{
  return static_cast<std::uint32_t>(iData[0]) | static_cast<std::uint32_t>(iData[1]) << 8 |
         static_cast<std::uint32_t>(iData[2]) << 16 | static_cast<std::uint32_t>(iData[3]) << 24;
}

void Read(const MabRixHandlerEntry& iEntry, const std::uint8_t* iOptions, std::size_t iOptionSize, std::uint8_t iParser,
          const std::uint8_t* iPieces, const char* iXml, std::size_t iXmlSize)
{
  MabRixBorrowed Borrowed;  // outlives the handlers below
  MabRixOptionBytes Options(iOptions, iOptionSize);
  KelExpatParser::Options ParserOptions;
  ParserOptions._StopOnCallbackFailure = (iParser & 1) != 0;
  ParserOptions._AllowDoctype = (iParser & 2) != 0;
  ParserOptions._ExpatReparseDeferral = (iParser & 4) == 0;
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(ParserOptions));
  KelISAXParser_var spISAXParser(spParser);
  const MabRixHandlerFactory Factory = [&](MabRixSAXHandlerBase& iParent) {
    return iEntry._Make(iParent, Options, Borrowed);
  };
  KelVar<MabRixTestRootHandler> spRoot =
      KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(spISAXParser, Factory, ""));
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));
  spParser->Begin();
  std::size_t At = 0;
  for (unsigned Step = 0;; ++Step)
  {
    const std::size_t Wanted = iPieces[Step % 4];
    const std::size_t Piece = Wanted == 0 || Wanted > iXmlSize - At ? iXmlSize - At : Wanted;
    const bool Final = At + Piece == iXmlSize;
    spParser->Feed(iXml + At, Piece, Final);
    At += Piece;
    if (Final)
      break;
  }
  // What the handlers built is read back, as the command layer would.
  for (const MabIRixValue_var& spValue : spRoot->Values())
    (void)MabRixDescribeValue(spValue);
  if (const MabIRixSAXHandler_var spHandler = spRoot->GetChildHandler())
  {
    MabIRixResponse_var spResponse;
    (void)spHandler->GetResponse(spResponse);
  }
  if (Borrowed._Describe)
    (void)Borrowed._Describe();
}
}  // namespace

std::vector<std::uint8_t> MabRixFuzzInput(std::size_t iHandler, std::uint8_t iReporter, const std::string& iXml,
                                          const std::vector<std::uint8_t>& iOptions, std::uint32_t iPattern,
                                          std::uint8_t iParser, std::uint32_t iPieces)
{
  std::vector<std::uint8_t> Input;
  const auto AppendWord = [&](std::uint32_t iWord) {
    for (int i = 0; i < 4; ++i)
      Input.push_back(static_cast<std::uint8_t>(iWord >> (8 * i)));
  };
  Input.push_back(static_cast<std::uint8_t>(iHandler));
  Input.push_back(iReporter);
  AppendWord(iPattern);
  Input.push_back(iParser);
  AppendWord(iPieces);
  const std::size_t OptionCount = iOptions.size() < 15 ? iOptions.size() : 15;
  Input.push_back(static_cast<std::uint8_t>(OptionCount));
  Input.insert(Input.end(), iOptions.begin(), iOptions.begin() + static_cast<std::ptrdiff_t>(OptionCount));
  Input.insert(Input.end(), iXml.begin(), iXml.end());
  return Input;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
  if (iSize < HeaderSize)
    return 0;
  const std::vector<MabRixHandlerEntry>& Table = MabRixHandlerTable();
  const MabRixHandlerEntry& Entry = Table[iData[0] % Table.size()];
  const std::size_t OptionSize = iData[11] % 16 < iSize - HeaderSize ? iData[11] % 16 : iSize - HeaderSize;
  const std::uint8_t* pOptions = iData + HeaderSize;
  const char* pXml = reinterpret_cast<const char*>(pOptions + OptionSize);
  const std::size_t XmlSize = iSize - HeaderSize - OptionSize;

  FuzzReporter Reporter(iData[1], Word(iData + 2));
  MabRixThrowingFatalHandler FatalHandler;
  try
  {
    Read(Entry, pOptions, OptionSize, iData[6], iData + 7, pXml, XmlSize);
  }
  catch (const MabRixFatalErrorRaised&)
  {
    // A fatal error the library reported: its handler threw, as hosts may.
  }
  catch (const KelNullVarError&)
  {
    // After a go-on answer the protocol may use a null reference: the host's
    // error reaches the caller of the parse.
  }
  KelError::KelCleanLastError();
  return 0;
}
