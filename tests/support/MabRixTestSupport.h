// Test harness: runs a handler over an XML text under a recording root
// handler, with a check reporter whose answers can be scripted.
#ifndef MabRixTestSupport_h
#define MabRixTestSupport_h

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "KelCheck.h"
#include "KelError.h"
#include "KelExpatParser.h"
#include "MabRixSAXHandlerBase.h"

struct MabRixCheckReport
{
  std::string _Text;
  std::string _File;
  int _Line = 0;
  int _Answer = 0;
};

// Records every check report; answers with _DefaultAnswer unless a text has
// its own answer. Installed for the thread while it lives.
class MabRixTestReporter : public KelCheckReporter
{
public:
  enum Answer
  {
    Stop = 0,
    GoOn = 1
  };

  explicit MabRixTestReporter(int iDefaultAnswer = Stop);
  int OnCheckFailure(const char* iText, const char* iFile, int iLine) override;

  void AnswerFor(const std::string& iText, int iAnswer) { _Answers[iText] = iAnswer; }
  void SetDefaultAnswer(int iAnswer) { _DefaultAnswer = iAnswer; }

  const std::vector<MabRixCheckReport>& Reports() const { return _Reports; }
  std::vector<std::string> Texts() const;
  // Number of reports with this text.
  int Count(const std::string& iText) const;
  void Clear() { _Reports.clear(); }

private:
  int _DefaultAnswer;
  std::map<std::string, int> _Answers;
  std::vector<MabRixCheckReport> _Reports;
  KelCheckReporterScope _Scope;
};

// Fatal errors become a C++ exception the test can expect.
struct MabRixFatalErrorRaised : std::runtime_error
{
  MabRixFatalErrorRaised(const std::string& iText, std::string iFile, int iLine)
      : std::runtime_error(iText), _File(std::move(iFile)), _Line(iLine)
  {
  }
  std::string _File;
  int _Line;
};

class MabRixThrowingFatalHandler : public KelFatalErrorHandler
{
public:
  MabRixThrowingFatalHandler() : _Scope(*this) {}
  void OnFatalError(const char* iText, const char* iFile, int iLine) override;

private:
  KelFatalErrorScope _Scope;
};

// The last error of the thread, copied out for assertions.
struct MabRixLastError
{
  bool _Present = false;
  std::string _Key;
  std::string _Catalog;
  std::string _Message;
  std::string _File;
  int _Line = 0;
  HRESULT _Code = S_OK;
};
MabRixLastError MabRixGetLastError();

// Builds the handler under test with the root as its parent; returns null on
// failure.
typedef std::function<MabIRixSAXHandler_var(MabRixSAXHandlerBase& iParent)> MabRixHandlerFactory;

// Root handler of a test: on the element where the handler starts (the
// document element, or the first element named _StartAt) it creates the
// handler under test and starts it; it records every value it receives.
class MabRixTestRootHandler : public MabRixSAXHandlerBase
{
public:
  MabRixTestRootHandler(KelISAXParser_var& iParser, MabRixHandlerFactory iFactory, std::string iStartAt);

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  const std::vector<MabIRixValue_var>& Values() const { return _Values; }
  HRESULT StartResult() const { return _StartResult; }
  bool Started() const { return _Started; }
  // Events the root received after starting the handler (the parser came back).
  int EventsAfterStart() const { return _EventsAfterStart; }
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Characters(const KelUnicodeString& iCharacters) override;

private:
  MabRixHandlerFactory _Factory;
  std::string _StartAt;
  bool _Started = false;
  HRESULT _StartResult = S_OK;
  int _EventsAfterStart = 0;
  std::vector<MabIRixValue_var> _Values;
};

struct MabRixTestReading
{
  KelVar<KelExpatParser> _spParser;
  KelVar<MabRixTestRootHandler> _spRoot;
  HRESULT _Result = S_OK;  // the parse call's result

  const std::vector<MabIRixValue_var>& Values() const { return _spRoot->Values(); }
  // The handler under test (the root's child).
  MabIRixSAXHandler_var Handler() const { return _spRoot->GetChildHandler(); }
};

// Reads iXml (fed in chunks of iChunk bytes when iChunk > 0) through the
// handler iFactory builds.
MabRixTestReading MabRixRead(const std::string& iXml, MabRixHandlerFactory iFactory, const std::string& iStartAt = "",
                             std::size_t iChunk = 0, KelExpatParser::Options iOptions = {});

// Implementation object of a value, as class C (null if it is not one).
template <class C>
C* MabRixValueAs(const MabIRixValue_var& iValue)
{
  return KelImplCast<C>(iValue.Get());
}

template <class Handler, class... Args>
MabRixHandlerFactory MabRixMake(Args... iArgs)
{
  return [=](MabRixSAXHandlerBase& iParent) mutable {
    return MabIRixSAXHandler_var::Adopt(new Handler(iParent, iArgs...));
  };
}

#endif
