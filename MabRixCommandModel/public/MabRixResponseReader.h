/// Reads one server response through one handler in a single call: the
/// command layer's work of building the parser and the root handler, starting
/// the handler on the right element and collecting what comes out. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixResponseReader_h
#define MabRixResponseReader_h

#include <cstddef>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

#include "KelExpatParser.h"
#include "MabRixCommandModelExport.h"
#include "MabRixReadResult.h"
#include "MabRixSAXHandlerRoot.h"

/**
 * @brief Reads a response (a file, a memory buffer or a stream) through a
 * handler the caller creates, and returns everything the read produced in
 * one MabRixReadResult.
 *
 * For each read the reader makes a new KelExpatParser with the options given
 * and a MabRixSAXHandlerRoot around it. The root waits for the start element
 * (the document element, or the first element of a given name), calls the
 * factory there with itself as parent, and starts the handler the factory
 * returned. The parser then drives that handler to the end of its element.
 * @code
 * MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
 * MabRixResponseReader Reader([&pContext](MabRixSAXHandlerBase& iRoot) {
 *   return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerObjectList(iRoot, pContext));
 * });
 * const MabRixReadResult Result = Reader.ReadFile("objects.xml");
 * // pContext now holds the objects; Result says how the read went.
 * pContext->Release();
 * @endcode
 *
 * During a read the reader answers failed checks itself (Options::_ContinueOnCheck)
 * and records them, and turns a fatal error of a handler into a
 * MabRixReadResult::HostError instead of aborting; the reporters the thread
 * had before are back once the read returns. It also clears the thread's last
 * error before reading and records the one the handlers leave.
 *
 * Ownership: contexts, value formats and every other object the factory
 * lends to the handler stay the caller's: the reader never creates, releases
 * or resets them, and they must outlive the read (the handler returned in
 * the result may still point to them). The result owns its own references.
 *
 * Thread safety: a reader is used by one thread at a time; reads on several
 * threads need one reader each, and the objects the factories lend (contexts,
 * formats) must not be shared between threads that read at the same time.
 * Check reporters, fatal-error handlers and the last error are the host's
 * per-thread state, so reads on different threads do not see each other.
 *
 * Errors: a read never throws for what the document holds. A document that is
 * not well-formed or cannot be read gives MabRixReadResult::_ParseError; a
 * failed callback gives MabRixReadResult::_Result and _CallbackFailures; an
 * exception raised inside a handler or the factory (which runs inside the
 * parse) gives MabRixReadResult::_HostError. Only a failure to allocate the
 * parser or the root before the document is read leaves the read call
 * (`std::bad_alloc`).
 */
class ExportedByMabRixCommandModel MabRixResponseReader
{
public:
  /// Creates the handler of the response, with the root as its parent.
  typedef MabRixSAXHandlerRoot::Factory HandlerFactory;

  /// How a reader reads.
  struct Options
  {
    /// The parser's options: stop at the first failed callback, document
    /// types, chunk size of files and streams, nesting depth. Its
    /// _MaxRecordedFailures is replaced by _MaxRecords.
    KelExpatParser::Options _Parser;
    /// The element to start the handler on; empty: the document element.
    KelUnicodeString _StartAt;
    /// The answer to a failed check: false stops the operation that checked,
    /// true lets it go on.
    bool _ContinueOnCheck = false;
    /// How many values, check reports, failed callbacks and handler changes
    /// each list of the result keeps; the rest are only counted.
    std::size_t _MaxRecords = MabRixBoundedList<int>::DefaultLimit;
    /// Record every change of the parser's document handler in
    /// MabRixReadResult::_Trace.
    bool _Trace = false;
  };

  /// A reader with the default options: start on the document element, stop
  /// at failed checks, keep 1000 entries of each kind.
  explicit MabRixResponseReader(HandlerFactory iFactory);
  /// A reader with the options @p iOptions.
  MabRixResponseReader(HandlerFactory iFactory, const Options& iOptions);
  ~MabRixResponseReader();

  /// The options of the next reads.
  const Options& GetOptions() const { return _Options; }
  /// Changes the options of the next reads.
  void SetOptions(const Options& iOptions) { _Options = iOptions; }

  /// Reads the file @p iPath in chunks of Options::_Parser._ChunkSize bytes;
  /// a file that cannot be opened or read gives a parse error at line 0.
  MabRixReadResult ReadFile(const std::string& iPath) const;
  /// Reads a whole document held in memory; the caller keeps the buffer.
  MabRixReadResult ReadBuffer(const char* iData, std::size_t iSize) const;
  /// Reads a whole document held in memory; the caller keeps the text.
  MabRixReadResult ReadBuffer(std::string_view iText) const { return ReadBuffer(iText.data(), iText.size()); }
  /// Reads @p ioStream to its end in chunks of Options::_Parser._ChunkSize
  /// bytes; a stream that fails gives a parse error at line 0.
  MabRixReadResult ReadStream(std::istream& ioStream) const;

private:
  MabRixReadResult Read(const std::function<HRESULT(KelExpatParser&)>& iParse) const;

  HandlerFactory _Factory;
  Options _Options;
};

#endif
