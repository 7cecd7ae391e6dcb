#include "RixsaxStep.h"

#include <iostream>
#include <stdexcept>

#include "KelCheck.h"
#include "KelError.h"
#include "KelNullVarError.h"
#include "RixsaxContextJson.h"
#include "RixsaxRegistry.h"
#include "RixsaxRootHandler.h"
#include "RixsaxSession.h"
#include "RixsaxValueJson.h"

namespace
{
// Records every failed check with the place in the document, and answers
// as the command line says.
class StepReporter : public KelCheckReporter
{
public:
  StepReporter(int iAnswer, const KelExpatParser& iParser, std::vector<RixsaxCheckRecord>& oRecords)
      : _Answer(iAnswer), _Parser(iParser), _Records(oRecords), _Scope(*this)
  {
  }

  int OnCheckFailure(const char* iText, const char* iFile, int iLine) override
  {
    _Records.push_back(
        {iText ? iText : "", iFile ? iFile : "", iLine, _Parser.GetCurrentLine(), _Parser.GetCurrentColumn(), _Answer});
    return _Answer;
  }

private:
  int _Answer;
  const KelExpatParser& _Parser;
  std::vector<RixsaxCheckRecord>& _Records;
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

// A fatal error leaves the handler at once: the parser stops and rethrows.
class StepFatalHandler : public KelFatalErrorHandler
{
public:
  explicit StepFatalHandler(const KelExpatParser& iParser) : _Parser(iParser), _Scope(*this) {}

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
// entry is completed at the next change or at the end of the step.
class StepTracer
{
public:
  StepTracer(const KelExpatParser& iParser, std::vector<RixsaxTraceRecord>& oRecords)
      : _Parser(iParser), _Records(oRecords)
  {
  }
  ~StepTracer() { Complete(); }

  void OnChange(const KelISAXDocumentHandler_var& iHandler)
  {
    Complete();
    if (!iHandler)
      return;
    _Records.push_back({iHandler->GetImpl()->IsA(), "", _Parser.GetCurrentLine(), _Parser.GetCurrentColumn()});
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
  std::vector<RixsaxTraceRecord>& _Records;
  KelISAXDocumentHandler_var _spPending;
};

std::optional<RixsaxErrorRecord> LastError()
{
  KelError* pError = KelError::KelGetLastError(E_FAIL);
  if (!pError)
    return std::nullopt;
  RixsaxErrorRecord Record{pError->GetMessageKey().ToUtf8(), pError->GetMessageCatalog().ToUtf8(),
                           pError->GetNLSMessage().ToUtf8(), pError->GetSourceFile().ToUtf8(), pError->GetSourceLine()};
  pError->Release();
  return Record;
}

// The contexts the handler borrowed, as they stand after the step, and those
// its values carry.
RixsaxContextCounts CountContexts(RixsaxSession& iSession, unsigned iContexts,
                                  const std::vector<MabIRixValue_var>& iValues)
{
  RixsaxContextCounts Counts;
  const auto Add = [&Counts](const MabRixObjectContext* ipContext) {
    if (!ipContext)
      return;
    const RixsaxContextCounts Some = RixsaxCountContext(*ipContext);
    Counts._Objects += Some._Objects;
    Counts._MajorObjects += Some._MajorObjects;
    Counts._MinorObjects += Some._MinorObjects;
    Counts._Relationships += Some._Relationships;
    Counts._Relations += Some._Relations;
  };
  if (iContexts & RixsaxUsesTNRContext)
    Add(iSession.UsedTNRContext());
  if (iContexts & RixsaxUsesCADContext)
    Add(iSession.UsedCADContext());
  for (const MabIRixValue_var& Value : iValues)
    Add(RixsaxValueContext(Value));
  return Counts;
}

HRESULT Parse(KelExpatParser& ioParser, const std::string& iFile)
{
  if (iFile == "-")
    return ioParser.ParseStream(std::cin);
  return ioParser.ParseFile(iFile.c_str());
}

// Reads the document; an exception that crosses the handlers ends the step.
void ReadDocument(KelExpatParser& ioParser, const std::string& iFile, RixsaxStepRecord& ioRecord)
{
  try
  {
    Parse(ioParser, iFile);
  }
  catch (const FatalErrorRaised& Error)
  {
    ioRecord._HostError = RixsaxHostError{"fatal error", Error.what(), Error._XmlLine, Error._XmlColumn};
  }
  catch (const KelNullVarError& Error)
  {
    ioRecord._HostError =
        RixsaxHostError{"null reference", Error.what(), ioParser.GetCurrentLine(), ioParser.GetCurrentColumn()};
  }
  catch (const std::exception& Error)
  {
    ioRecord._HostError =
        RixsaxHostError{"exception", Error.what(), ioParser.GetCurrentLine(), ioParser.GetCurrentColumn()};
  }
}
}  // namespace

RixsaxStepRecord RixsaxRunStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile)
{
  const RixsaxOptions& Options = ioSession.Options();
  RixsaxStepRecord Record;
  Record._pEntry = &iEntry;
  Record._File = iFile;

  KelExpatParser::Options ParserOptions;
  ParserOptions._StopOnCallbackFailure = Options._StopOnFailure;
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(ParserOptions));
  KelISAXParser_var spISAXParser(spParser);
  const RixsaxHandlerEntry* pEntry = &iEntry;
  auto Factory = [pEntry, &ioSession](MabRixSAXHandlerBase& iParent) { return pEntry->_Factory(iParent, ioSession); };
  KelVar<RixsaxRootHandler> spRoot =
      KelVar<RixsaxRootHandler>::Adopt(new RixsaxRootHandler(spISAXParser, Factory, KelUnicodeString(Options._At)));
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));

  StepReporter Reporter(Options._ContinueOnCheck ? 1 : 0, *spParser, Record._Checks);
  StepFatalHandler FatalHandler(*spParser);
  std::optional<StepTracer> Tracer;
  if (Options._Trace)
  {
    Tracer.emplace(*spParser, Record._Trace);
    spParser->SetHandlerObserver([&Tracer](const KelISAXDocumentHandler_var& iHandler) { Tracer->OnChange(iHandler); });
  }

  KelError::KelCleanLastError();
  ReadDocument(*spParser, iFile, Record);
  spParser->SetHandlerObserver(nullptr);
  Tracer.reset();

  Record._Started = spRoot->Started();
  Record._Result = spParser->GetFirstFailedResult();
  Record._Values = spRoot->Values();
  Record._LastError = LastError();
  Record._CallbackFailures = spParser->GetCallbackFailures();
  if (spParser->HasParseError())
    Record._ParseError = spParser->GetParseError();
  // Only the failure handler has a response; every other one answers E_FAIL.
  if (MabIRixSAXHandler_var spHandler = spRoot->Handler();
      spHandler && FAILED(spHandler->GetResponse(Record._spResponse)))
    Record._spResponse = nullptr;
  Record._ContextCounts = CountContexts(ioSession, iEntry._Contexts, Record._Values);
  return Record;
}
