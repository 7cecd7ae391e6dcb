// Base of every handler: the delegation protocol. A handler reads one
// element; for a nested element it may create a child, make it the parser's
// document handler, and get the parser and the child's value back when the
// child's element closes.
#ifndef MabRixSAXHandlerBase_h
#define MabRixSAXHandlerBase_h

#include "KelSAXHandlerBase.h"
#include "MabIRixSAXHandler.h"
#include "MabRixCommandModelExport.h"
#include "MabRixHandlerMacros.h"

// Reference of a handler to its parent. It holds a count while the handler
// is active and lets it go once the handler has given the parser back, so a
// parent and its finished last child do not keep each other alive. The
// pointer stays set: the parent outlives the children it holds.
class ExportedByMabRixCommandModel MabRixParentHandlerRef
{
public:
  MabRixParentHandlerRef() = default;
  explicit MabRixParentHandlerRef(MabIRixSAXHandler* ipParent);
  ~MabRixParentHandlerRef();
  MabRixParentHandlerRef(const MabRixParentHandlerRef&) = delete;
  MabRixParentHandlerRef& operator=(const MabRixParentHandlerRef&) = delete;

  MabIRixSAXHandler* operator->() const;
  bool operator!() const { return _p == nullptr; }
  MabIRixSAXHandler* Get() const { return _p; }
  operator MabIRixSAXHandler_var() const { return MabIRixSAXHandler_var(_p); }

  void Loosen();   // drop the count, keep the pointer
  void Tighten();  // hold a count again
  void Forget();   // the parent is going away

private:
  MabIRixSAXHandler* _p = nullptr;
  bool _Counted = false;
};

class ExportedByMabRixCommandModel MabRixSAXHandlerBase : public KelSAXHandlerBase, public virtual MabIRixSAXHandler
{
  KelDeclareClass

public:
  // Root handler around a parser; it has no parent.
  explicit MabRixSAXHandlerBase(KelISAXParser_var& iParser);
  // Child handler: shares the parent's parser.
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
  // True once this handler's own element has closed: the parser was given
  // back to the parent (unless a check stopped it).
  bool StopIfNecessary(const KelUnicodeString& iName);

  // State of the protocol, for the command layer and for tests.
  const KelUnicodeString& GetElementName() const { return _ElementName; }
  const KelUnicodeString& GetCharacters() const { return _Characters; }
  int GetDepth() const { return _Depth; }
  const MabIRixSAXHandler_var& GetChildHandler() const { return _spChildHandler; }
  MabIRixSAXHandler* GetParentHandler() const { return _spParentHandler.Get(); }

protected:
  KelISAXParser_var _spSAXParser;
  MabRixParentHandlerRef _spParentHandler;
  MabIRixSAXHandler_var _spChildHandler;
  KelUnicodeString _Characters;
  KelUnicodeString _ElementName;
  int _Depth = 0;
};

MabRixDeclareTIE(MabRixSAXHandlerBase)

#endif
