/// Base of every handler: the delegation protocol. A handler reads one
/// element; for a nested element it may create a child, make it the parser's
/// document handler, and get the parser and the child's value back when the
/// child's element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerBase_h
#define MabRixSAXHandlerBase_h

#include <memory>
#include <new>
#include <typeinfo>

#include "KelISAXParseEndListener.h"
#include "KelSAXHandlerBase.h"
#include "MabIRixSAXHandler.h"
#include "MabRixCommandModelExport.h"
#include "MabRixHandlerMacros.h"

class MabRixSAXHandlerBase;

/// Reference of a handler to its parent. It holds a count while the handler
/// is active and lets it go once the handler has given the parser back (or
/// the document ended first), so a parent and its finished last child do not
/// keep each other alive. Uncounted, it still knows whether the parent lives:
/// a parent that is gone reads as null, never as a dangling pointer.
class ExportedByMabRixCommandModel MabRixParentHandlerRef
{
public:
  MabRixParentHandlerRef() = default;
  explicit MabRixParentHandlerRef(MabRixSAXHandlerBase& iParent);
  ~MabRixParentHandlerRef();
  MabRixParentHandlerRef(const MabRixParentHandlerRef&) = delete;
  MabRixParentHandlerRef& operator=(const MabRixParentHandlerRef&) = delete;

  MabIRixSAXHandler* operator->() const;
  bool operator!() const { return Get() == nullptr; }
  MabIRixSAXHandler* Get() const { return _Counted || !_Alive.expired() ? _p : nullptr; }
  operator MabIRixSAXHandler_var() const { return MabIRixSAXHandler_var(Get()); }

  void Loosen();   ///< drop the count, keep watching the parent
  void Tighten();  ///< hold a count again, if the parent still lives
  bool IsCounted() const { return _Counted; }

private:
  MabIRixSAXHandler* _p = nullptr;
  std::weak_ptr<const char> _Alive;
  bool _Counted = false;
};

class ExportedByMabRixCommandModel MabRixSAXHandlerBase : public KelSAXHandlerBase,
                                                          public virtual MabIRixSAXHandler,
                                                          public virtual KelISAXParseEndListener
{
  KelDeclareClass

public:
  /// Root handler around a parser; it has no parent.
  explicit MabRixSAXHandlerBase(KelISAXParser_var& iParser);
  /// Child handler: shares the parent's parser.
  explicit MabRixSAXHandlerBase(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerBase() override;
  MabRixSAXHandlerBase(const MabRixSAXHandlerBase&) = delete;
  MabRixSAXHandlerBase& operator=(const MabRixSAXHandlerBase&) = delete;

  HRESULT Characters(const KelUnicodeString& iCharacters) override;
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;
  HRESULT GetResponse(MabIRixResponse_var& oResponse) override;
  HRESULT GetParser(KelISAXParser_var& ospISAXParser) override;

  HRESULT StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  /// True once this handler's own element has closed: the parser was given
  /// back to the parent (unless a check stopped it).
  bool StopIfNecessary(const KelUnicodeString& iName);

  /// The parser let this handler go while its element was still open (the
  /// document ended early): the open ancestors are let go, from here up.
  void OnParseEnd() noexcept override;

  /// State of the protocol, for the command layer and for tests.
  const KelUnicodeString& GetElementName() const { return _ElementName; }
  const KelUnicodeString& GetCharacters() const { return _Characters; }
  int GetDepth() const { return _Depth; }
  const MabIRixSAXHandler_var& GetChildHandler() const { return _spChildHandler; }
  MabIRixSAXHandler* GetParentHandler() const { return _spParentHandler.Get(); }

  // Sets ioHandler to a handler of class Handler built from this one, ready
  // to be started. The handler ioHandler holds is reused when it is one of
  // exactly that class, built by this handler, that nothing else references:
  // it has finished (the parser no longer holds it) and no one can tell it
  // from a new one, so a record's children then cost no allocation. Otherwise
  // ioHandler's handler is released and a new one made (null when that fails).
  template <class Handler, class... Arguments>
  void RenewChild(MabIRixSAXHandler_var& ioHandler, Arguments&... iArguments)
  {
    if (Handler* pHandler = Reusable<Handler>(ioHandler))
    {
      pHandler->Renew(iArguments...);
      return;
    }
    ioHandler = nullptr;
    ioHandler = MabIRixSAXHandler_var::Adopt(new (std::nothrow) Handler(*this, iArguments...));
  }

protected:
  // The handler iHandler holds, when it is of exactly class Handler, was
  // built by this handler and iHandler holds its only reference; else null.
  template <class Handler>
  Handler* Reusable(const MabIRixSAXHandler_var& iHandler) const
  {
    MabIRixSAXHandler* pInterface = iHandler.Get();
    if (!pInterface)
      return nullptr;
    const KelBaseUnknown* pImpl = pInterface->GetImpl();
    if (typeid(*pImpl) != typeid(Handler) || pImpl->GetRefCount() != 1)
      return nullptr;
    Handler* pHandler = KelImplCast<Handler>(pInterface);
    const MabRixSAXHandlerBase* pBase = pHandler;
    return pBase->_spParentHandler.Get() == static_cast<const MabIRixSAXHandler*>(this) ? pHandler : nullptr;
  }
  // Back to the state of a handler just built from its parent, keeping the
  // room its texts have grown. For a handler that Reusable gave.
  void ResetForReuse();

  KelISAXParser_var _spSAXParser;
  MabRixParentHandlerRef _spParentHandler;
  MabIRixSAXHandler_var _spChildHandler;
  KelUnicodeString _Characters;
  KelUnicodeString _ElementName;
  int _Depth = 0;

private:
  friend class MabRixParentHandlerRef;
  /// Expires with this handler: children's uncounted references watch it.
  const std::shared_ptr<const char>& AliveToken();
  std::shared_ptr<const char> _spAliveToken;
};

MabRixDeclareTIE(MabRixSAXHandlerBase)

#endif
