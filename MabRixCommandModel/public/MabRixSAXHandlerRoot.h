/// The command layer's handler around the parser: it starts the handler of a response on the right
/// element and keeps the values handed up to it. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerRoot_h
#define MabRixSAXHandlerRoot_h

#include <cstddef>
#include <functional>

#include "MabRixBoundedList.h"
#include "MabRixSAXHandlerBase.h"

/**
 * @brief Root handler: the parser's first document handler. It waits for the
 * element where the response's handler starts, creates that handler with
 * itself as parent, starts it there, and keeps every value that reaches its
 * Value.
 *
 * The start element is the document element, or the first element of a given
 * name anywhere in the document. Elements before it are skipped; once the
 * handler has started, the root starts nothing else, and events that come
 * back to it after the handler has given the parser back are ignored.
 *
 * MabRixResponseReader builds one per read; use this class directly only to
 * drive a parser yourself (incremental feeding, a parser of your own).
 *
 * Ownership: the root holds the parser it was built with and the handler the
 * factory returned (one counted reference each), and the values it received.
 * Like every handler it is reference counted: create it with `new`, hand it
 * to the parser through a counted reference and release the creator's
 * reference.
 *
 * Thread safety: one root, its parser and its handlers belong to one thread.
 *
 * Errors: StartElement returns E_FAIL when the factory returns null, else
 * the result of the handler's StartHandlingEvents; Value always succeeds.
 */
class ExportedByMabRixCommandModel MabRixSAXHandlerRoot : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// Creates the response's handler. It must build the handler with @p iRoot
  /// as parent, for example
  /// `MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(iRoot))`, and
  /// return it with one reference the root takes over; null when it cannot.
  typedef std::function<MabIRixSAXHandler_var(MabRixSAXHandlerBase& iRoot)> Factory;

  /// A root around @p iParser that starts the handler of @p iFactory on the
  /// first element named @p iStartAt (empty: on the document element) and
  /// keeps at most @p iMaxValues values, counting the rest.
  MabRixSAXHandlerRoot(KelISAXParser_var& iParser, Factory iFactory, const KelUnicodeString& iStartAt,
                       std::size_t iMaxValues = MabRixBoundedList<MabIRixValue_var>::DefaultLimit);
  ~MabRixSAXHandlerRoot() override;

  /// At the start element: creates the handler and starts it there. Every
  /// other element is skipped.
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  /// Keeps @p iValue, or counts it once the limit is reached.
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// True once the start element was found (whether or not the handler could
  /// be created and started there).
  bool IsStarted() const { return _Started; }
  /// The values received, in order; bounded.
  const MabRixBoundedList<MabIRixValue_var>& GetValues() const { return _Values; }
  /// The values received, to move them out.
  MabRixBoundedList<MabIRixValue_var>& TakeValues() { return _Values; }
  /// The handler the factory created; null until then, or when it returned null.
  const MabIRixSAXHandler_var& GetHandler() const { return _spChildHandler; }

private:
  Factory _Factory;
  KelUnicodeString _StartAt;
  bool _Started = false;
  MabRixBoundedList<MabIRixValue_var> _Values;
};

MabRixDeclareTIE(MabRixSAXHandlerRoot)

#endif
