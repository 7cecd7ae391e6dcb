/// Everything a command layer can observe of one response read through one
/// handler: filled by MabRixResponseReader. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixReadResult_h
#define MabRixReadResult_h

#include <optional>
#include <string>

#include "KelExpatParser.h"
#include "MabIRixResponse.h"
#include "MabIRixSAXHandler.h"
#include "MabIRixValue.h"
#include "MabRixBoundedList.h"
#include "MabRixCommandModelExport.h"

class MabRixFailureResponse;

/**
 * @brief What one read of a response produced: the handler's result, the
 * values the root received, the failure response, and every failure seen on
 * the way.
 *
 * A MabRixResponseReader returns one of these per read. Its members are plain
 * data, filled once by the reader and then the caller's: read them, move
 * them out, keep the result as long as needed.
 *
 * Lists are bounded (MabRixBoundedList): the first
 * MabRixResponseReader::Options::_MaxRecords entries of each are kept and the
 * rest only counted, so a document full of failures costs bounded memory.
 *
 * Ownership: the result holds one counted reference to each value, to the
 * response and to the handler; they stay valid while the result (or a copy of
 * the reference) lives. What the handler wrote into an object context is in
 * that context, which the caller owns; the result does not refer to it.
 *
 * Thread safety: none of its own. The counted references are not atomic:
 * keep a result, its values and the contexts the handler filled on the thread
 * that read them, or hand them all over together.
 */
class ExportedByMabRixCommandModel MabRixReadResult
{
public:
  /// A check that failed during the read (a precondition of a handler).
  struct CheckReport
  {
    std::string _Text;   ///< "ExpressionCheck:" and the expression as written
    std::string _File;   ///< source file of the check, without extension
    int _Line = 0;       ///< source line of the check
    int _XmlLine = 0;    ///< position in the document when the check failed
    int _XmlColumn = 0;  ///< column in the document, from 1
    int _Answer = 0;     ///< the reader's answer: 0 stop the operation, else go on
  };

  /// The error a handler recorded as the thread's last error (the
  /// unexpected-error result of the object handlers).
  struct ErrorRecord
  {
    std::string _Key;      ///< message key, e.g. "Unexpected"
    std::string _Catalog;  ///< message catalog, e.g. "MabRixIntegration"
    std::string _Message;  ///< the catalog's text with its parameters
    std::string _File;     ///< source file that raised it
    int _Line = 0;         ///< source line that raised it
  };

  /// A change of the parser's document handler (recorded when tracing).
  struct HandlerChange
  {
    std::string _Handler;  ///< class name of the handler that takes the parser
    std::string _Element;  ///< the element that handler reads; empty for the root
    int _XmlLine = 0;      ///< position in the document of the change
    int _XmlColumn = 0;    ///< column in the document, from 1
  };

  /// An exception that crossed the handlers and ended the read: the host's
  /// null-reference error, a fatal error, or another exception. The state of
  /// the contexts the handler wrote into is not to be trusted after it.
  struct HostError
  {
    std::string _Kind;     ///< "null reference", "fatal error", "out of memory" or "exception"
    std::string _Message;  ///< the exception's text (a fatal error: text, file and line)
    int _XmlLine = 0;      ///< position in the document where it was raised
    int _XmlColumn = 0;    ///< column in the document, from 1
  };

  /// True when the handler started, the document was well-formed and read to
  /// its end, no exception ended the read, no allocation failed and no
  /// callback failed. Check
  /// reports alone do not make a read fail: the answer decided that.
  bool Succeeded() const;

  /// The failure response when the handler was the failure handler
  /// (MabRixSAXHandlerFailure); null otherwise. It lives as long as
  /// #_spResponse holds it.
  const MabRixFailureResponse* GetFailureResponse() const;

  /// The start element was found and the factory's handler started on it.
  bool _Started = false;
  /// The first failed callback's result (the handler's result); S_OK when
  /// no callback failed.
  HRESULT _Result = KelResult::Ok;
  /// The handler the factory created; null when it never was (start element
  /// not found, or the factory returned null).
  MabIRixSAXHandler_var _spHandler;
  /// Every value the root received through its Value, in order.
  MabRixBoundedList<MabIRixValue_var> _Values;
  /// The handler's response (GetResponse), when it has one: only the failure
  /// handler does. Null otherwise.
  MabIRixResponse_var _spResponse;
  /// Checks that failed during the read, in order.
  MabRixBoundedList<CheckReport> _Checks;
  /// The error the handlers left as the thread's last error, if any.
  std::optional<ErrorRecord> _LastError;
  /// Callbacks that returned a failure to the parser, in order.
  MabRixBoundedList<KelSAXCallbackFailure> _CallbackFailures;
  /// Why the document could not be read: not well-formed (message, line and
  /// column), or a file or stream that cannot be read (line 0).
  std::optional<KelSAXParseError> _ParseError;
  /// Changes of document handler; filled only when the reader traces.
  MabRixBoundedList<HandlerChange> _Trace;
  /// The exception that ended the read, if one did.
  std::optional<HostError> _HostError;
  /// An allocation failed during the read and the host carried on: a
  /// handler that could not make the handler of an element went on without
  /// it, so values and contexts may be incomplete (the host records such
  /// failures per thread, KelAllocationFailure.h; expat running out of
  /// memory counts too).
  bool _AllocationFailed = false;
};

#endif
