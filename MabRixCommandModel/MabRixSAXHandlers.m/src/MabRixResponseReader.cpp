#include "MabRixResponseReader.h"

#include <optional>
#include <stdexcept>

#include "KelAllocationFailure.h"
#include "KelCheck.h"
#include "KelError.h"
#include "KelNullVarError.h"

namespace
{
// Records every failed check with the place in the document, and answers
// as the reader's options say.
class ReadReporter : public KelCheckReporter
{
public:
  ReadReporter(int iAnswer, const KelExpatParser& iParser, MabRixBoundedList<MabRixReadResult::CheckReport>& oRecords)
      : _Answer(iAnswer), _Parser(iParser), _Records(oRecords), _Scope(*this)
  {
  }

  int OnCheckFailure(const char* iText, const char* iFile, int iLine) override
  {
    if (_Records.size() < _Records.Limit())
      _Records.Add({iText ? iText : "", iFile ? iFile : "", iLine, _Parser.GetCurrentLine(), _Parser.GetCurrentColumn(),
                    _Answer});
    else
      _Records.AddOmitted(1);
    return _Answer;
  }

private:
  int _Answer;
  const KelExpatParser& _Parser;
  MabRixBoundedList<MabRixReadResult::CheckReport>& _Records;
  KelCheckReporterScope _Scope;
};

struct FatalErrorRaised : std::runtime_error
{
  FatalErrorRaised(const std::string& iText, int iLine, int iColumn)
      : std::runtime_error(iText), _XmlLine(iLine), _XmlColumn(iColumn)
  {
  }
  int _XmlLine;
  int _XmlColumn;
};

// A fatal error leaves the handler at once: the parser stops and rethrows,
// and the read records it.
class ReadFatalHandler : public KelFatalErrorHandler
{
public:
  explicit ReadFatalHandler(const KelExpatParser& iParser) : _Parser(iParser), _Scope(*this) {}

  void OnFatalError(const char* iText, const char* iFile, int iLine) override
  {
    throw FatalErrorRaised(
        std::string(iText ? iText : "") + " (" + (iFile ? iFile : "") + ":" + std::to_string(iLine) + ")",
        _Parser.GetCurrentLine(), _Parser.GetCurrentColumn());
  }

private:
  const KelExpatParser& _Parser;
  KelFatalErrorScope _Scope;
};

// Records each change of document handler. The element a handler reads is
// known only once its StartHandlingEvents has run, after the change: the
// entry is completed at the next change or at the end of the read.
class ReadTracer
{
public:
  ReadTracer(const KelExpatParser& iParser, MabRixBoundedList<MabRixReadResult::HandlerChange>& oRecords)
      : _Parser(iParser), _Records(oRecords)
  {
  }
  ~ReadTracer() { Complete(); }
  ReadTracer(const ReadTracer&) = delete;
  ReadTracer& operator=(const ReadTracer&) = delete;

  void OnChange(const KelISAXDocumentHandler_var& iHandler)
  {
    Complete();
    if (!iHandler)
      return;
    if (_Records.size() >= _Records.Limit())
    {
      _Records.AddOmitted(1);
      return;
    }
    _Records.Add({iHandler->GetImpl()->IsA(), "", _Parser.GetCurrentLine(), _Parser.GetCurrentColumn()});
    _spPending = iHandler;
  }

  void Complete()
  {
    if (const MabRixSAXHandlerBase* pHandler = KelImplCast<MabRixSAXHandlerBase>(_spPending.Get()))
      _Records.back()._Element = pHandler->GetElementName().ToUtf8();
    _spPending = nullptr;
  }

private:
  const KelExpatParser& _Parser;
  MabRixBoundedList<MabRixReadResult::HandlerChange>& _Records;
  KelISAXDocumentHandler_var _spPending;
};

std::optional<MabRixReadResult::ErrorRecord> LastError()
{
  KelError* pError = KelError::KelGetLastError(E_FAIL);
  if (!pError)
    return std::nullopt;
  MabRixReadResult::ErrorRecord Record{pError->GetMessageKey().ToUtf8(), pError->GetMessageCatalog().ToUtf8(),
                                       pError->GetNLSMessage().ToUtf8(), pError->GetSourceFile().ToUtf8(),
                                       pError->GetSourceLine()};
  pError->Release();
  return Record;
}

// Reads the document; an exception that crosses the handlers ends the read.
void ReadDocument(KelExpatParser& ioParser, const std::function<HRESULT(KelExpatParser&)>& iParse,
                  MabRixReadResult& ioResult)
{
  try
  {
    iParse(ioParser);
  }
  catch (const FatalErrorRaised& Error)
  {
    ioResult._HostError = MabRixReadResult::HostError{"fatal error", Error.what(), Error._XmlLine, Error._XmlColumn};
  }
  catch (const std::bad_alloc& Error)
  {
    ioResult._HostError = MabRixReadResult::HostError{"out of memory", Error.what(), ioParser.GetCurrentLine(),
                                                      ioParser.GetCurrentColumn()};
  }
  catch (const KelNullVarError& Error)
  {
    ioResult._HostError = MabRixReadResult::HostError{"null reference", Error.what(), ioParser.GetCurrentLine(),
                                                      ioParser.GetCurrentColumn()};
  }
  catch (const std::exception& Error)
  {
    ioResult._HostError =
        MabRixReadResult::HostError{"exception", Error.what(), ioParser.GetCurrentLine(), ioParser.GetCurrentColumn()};
  }
}
}  // namespace

MabRixResponseReader::MabRixResponseReader(HandlerFactory iFactory) : _Factory(std::move(iFactory)) {}

MabRixResponseReader::MabRixResponseReader(HandlerFactory iFactory, const Options& iOptions)
    : _Factory(std::move(iFactory)), _Options(iOptions)
{
}

MabRixResponseReader::~MabRixResponseReader() = default;

MabRixReadResult MabRixResponseReader::ReadFile(const std::string& iPath) const
{
  return Read([&iPath](KelExpatParser& ioParser) { return ioParser.ParseFile(iPath.c_str()); });
}

MabRixReadResult MabRixResponseReader::ReadBuffer(const char* iData, std::size_t iSize) const
{
  return Read([iData, iSize](KelExpatParser& ioParser) { return ioParser.Parse(iData, iSize); });
}

MabRixReadResult MabRixResponseReader::ReadStream(std::istream& ioStream) const
{
  return Read([&ioStream](KelExpatParser& ioParser) { return ioParser.ParseStream(ioStream); });
}

MabRixReadResult MabRixResponseReader::Read(const std::function<HRESULT(KelExpatParser&)>& iParse) const
{
  MabRixReadResult Result;
  Result._Values.SetLimit(_Options._MaxRecords);
  Result._Checks.SetLimit(_Options._MaxRecords);
  Result._CallbackFailures.SetLimit(_Options._MaxRecords);
  Result._Trace.SetLimit(_Options._MaxRecords);

  KelExpatParser::Options ParserOptions = _Options._Parser;
  ParserOptions._MaxRecordedFailures = _Options._MaxRecords;
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(ParserOptions));
  KelISAXParser_var spISAXParser(spParser);
  KelVar<MabRixSAXHandlerRoot> spRoot = KelVar<MabRixSAXHandlerRoot>::Adopt(
      new MabRixSAXHandlerRoot(spISAXParser, _Factory, _Options._StartAt, _Options._MaxRecords));
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));

  {
    ReadReporter Reporter(_Options._ContinueOnCheck ? 1 : 0, *spParser, Result._Checks);
    ReadFatalHandler FatalHandler(*spParser);
    std::optional<ReadTracer> Tracer;
    if (_Options._Trace)
    {
      Tracer.emplace(*spParser, Result._Trace);
      spParser->SetHandlerObserver(
          [&Tracer](const KelISAXDocumentHandler_var& iHandler) { Tracer->OnChange(iHandler); });
    }
    KelError::KelCleanLastError();
    KelClearAllocationFailure();
    ReadDocument(*spParser, iParse, Result);
    Result._AllocationFailed = KelAllocationFailed();
    spParser->SetHandlerObserver(nullptr);
  }

  Result._Started = spRoot->IsStarted();
  Result._Result = spParser->GetFirstFailedResult();
  Result._spHandler = spRoot->GetHandler();
  Result._Values = std::move(spRoot->TakeValues());
  Result._LastError = LastError();
  for (const KelSAXCallbackFailure& Failure : spParser->GetCallbackFailures())
    Result._CallbackFailures.Add(Failure);
  Result._CallbackFailures.AddOmitted(spParser->GetCallbackFailureCount() - spParser->GetCallbackFailures().size());
  if (spParser->HasParseError())
    Result._ParseError = spParser->GetParseError();
  // Only the failure handler has a response; every other one answers E_FAIL.
  if (Result._spHandler && FAILED(Result._spHandler->GetResponse(Result._spResponse)))
    Result._spResponse = nullptr;
  return Result;
}
