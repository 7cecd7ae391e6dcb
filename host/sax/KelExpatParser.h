/// SAX parser over expat. It parses a memory buffer, a file or a stream fed
/// in chunks (memory stays constant: a file is never read whole), and sends
/// the events to its current document handler.
///
/// A negative callback result is a failure: the parser records it (the first
/// ones, with event, element, line and column) and goes on, or stops there
/// when _StopOnCallbackFailure is set. A document that is not well-formed ends
/// the parse with expat's message and position. External entities and
/// external parameter entities are never loaded, and document type
/// declarations are refused unless _AllowDoctype is set; when allowed, entity
/// expansion is bounded by expat's amplification limits. A large token fed in
/// small pieces is gathered rather than rescanned, so time stays linear.
/// Exceptions thrown by a handler never unwind through expat: the parser
/// catches them, stops, and rethrows them from the parse call. Ownership, threads, errors: @ref conventions.
///
/// The parser holds its document handler until the document is over (end,
/// error or stop), then lets it go: handlers hold the parser in return. A
/// handler that also implements KelISAXParseEndListener is told first. @file
#ifndef KelExpatParser_h
#define KelExpatParser_h

#include <cstddef>
#include <exception>
#include <functional>
#include <istream>
#include <string>
#include <vector>

#include "KelClassMacros.h"
#include "KelISAXParseEndListener.h"
#include "KelISAXParser.h"

struct XML_ParserStruct;

struct KelSAXCallbackFailure
{
  HRESULT _Result = KelResult::Ok;
  const char* _Event = "";    // "StartElement", "EndElement", "Characters", ...
  KelUnicodeString _Element;  ///< the element of the event; empty for text
  int _Line = 0;
  int _Column = 0;
};

struct KelSAXParseError
{
  KelUnicodeString _Message;
  int _Line = 0;
  int _Column = 0;
  bool _OutOfMemory = false;  // expat could not allocate: the document may be well-formed
};

class KelExpatAttributeList;
class KelExpatLocator;

class KelExpatParser : public virtual KelISAXParser
{
  KelDeclareClass

public:
  struct Options
  {
    bool _StopOnCallbackFailure = false;
    bool _AllowDoctype = false;          // external entities stay unloaded either way
    std::size_t _ChunkSize = 64 * 1024;  // bytes read per step from a file or stream
    std::size_t _MaxRecordedFailures = 256;
    // An element nested deeper ends the document as not well-formed: expat
    // keeps about 140 bytes per open element, so depth bounds its memory.
    std::size_t _MaxDepth = 100000;
    // With a document type allowed, entity expansion may make the document at
    // most this many times larger than its input, once past the threshold.
    float _MaxAmplification = 100.0f;
    unsigned long long _AmplificationThreshold = 4ull * 1024 * 1024;
    // expat's own deferral of large tokens, where the installed expat has it;
    // the parser's feeding keeps large tokens linear either way.
    bool _ExpatReparseDeferral = true;
  };

  KelExpatParser();
  explicit KelExpatParser(const Options& iOptions);
  ~KelExpatParser() override;
  KelExpatParser(const KelExpatParser&) = delete;
  KelExpatParser& operator=(const KelExpatParser&) = delete;

  HRESULT SetDocumentHandler(const KelISAXDocumentHandler_var& iHandler) override;
  HRESULT GetDocumentHandler(KelISAXDocumentHandler_var& oHandler) override;

  /// Each parse call reads one whole document. The result is E_FAIL when the
  /// document is not well-formed or cannot be read, else the first failed
  /// callback result, else S_OK.
  HRESULT Parse(const char* iData, std::size_t iSize);
  HRESULT Parse(const std::string& iText) { return Parse(iText.data(), iText.size()); }
  HRESULT ParseFile(const char* iPath);
  HRESULT ParseStream(std::istream& ioStream);

  /// Incremental parsing: Begin, any number of Feed calls, Feed with iFinal.
  /// Once the document is over (complete, malformed or stopped), Feed reads
  /// nothing more and returns the document's result until the next Begin.
  void Begin();
  HRESULT Feed(const char* iData, std::size_t iSize, bool iFinal);

  const std::vector<KelSAXCallbackFailure>& GetCallbackFailures() const { return _Failures; }
  std::size_t GetCallbackFailureCount() const { return _FailureCount; }
  HRESULT GetFirstFailedResult() const { return _Failures.empty() ? KelResult::Ok : _Failures.front()._Result; }
  bool HasParseError() const { return _HasParseError; }
  const KelSAXParseError& GetParseError() const { return _ParseError; }

  int GetCurrentLine() const;
  int GetCurrentColumn() const;

  /// Called after every change of document handler (for tracing).
  void SetHandlerObserver(std::function<void(const KelISAXDocumentHandler_var&)> iObserver)
  {
    _Observer = std::move(iObserver);
  }

private:
  friend struct KelExpatCallbacks;

  void CreateExpat();
  void Reset();
  HRESULT Outcome() const;
  void Push(const char* iData, std::size_t iSize, bool iFinal);
  void ReleasePending();
  void Finish(bool iComplete);
  void EndParse();
  void Record(HRESULT iResult, const char* iEvent, const char* iElement);
  void SetParseError(const std::string& iMessage);
  void Stop();

  Options _Options;
  XML_ParserStruct* _pExpat = nullptr;
  KelISAXDocumentHandler_var _spHandler;
  KelExpatAttributeList* _pAttributes = nullptr;
  KelISAXAttributeList_var _spAttributes;
  KelExpatLocator* _pLocator = nullptr;
  KelISAXLocator_var _spLocator;
  std::vector<KelSAXCallbackFailure> _Failures;
  std::size_t _FailureCount = 0;
  bool _HasParseError = false;
  KelSAXParseError _ParseError;
  std::exception_ptr _Exception;
  bool _Started = false;
  bool _Over = false;  ///< a document ended; Feed waits for Begin
  bool _Stopped = false;
  std::size_t _Depth = 0;      ///< elements open now
  bool _Progressed = false;    ///< an event came during the last call of expat
  std::size_t _Stalled = 0;    ///< bytes given to expat since its last event
  std::vector<char> _Pending;  ///< input gathered while a large token is open
  std::function<void(const KelISAXDocumentHandler_var&)> _Observer;
  /// The name or text of the event being delivered. Reused from event to
  /// event, so delivering one allocates nothing once they have grown.
  KelUnicodeString _EventName;
  KelUnicodeString _EventText;
};

typedef KelVar<KelExpatParser> KelExpatParser_var;

#endif
