/// Reads a list of user-interface elements of one kind: one "row" per element
/// with its "name", "issystem" flag and "default" keys (comma separated), into
/// a MabRixUIElementQueryResultValue. The value goes to the parent when the
/// handler's own element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerUIElementQueryResult_h
#define MabRixSAXHandlerUIElementQueryResult_h

#include "KelUnicodeStringList.h"
#include "MabRixSAXHandlerBase.h"

class MabRixUIElementQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerUIElementQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// iElementKind goes into every element identity.
  MabRixSAXHandlerUIElementQueryResult(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iElementKind);
  ~MabRixSAXHandlerUIElementQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// The result under construction.
  MabRixUIElementQueryResultValue* GetUIElementQueryResultValue() const { return _pUIElementQueryResultValue; }

private:
  /// Name, system flag and default list are never reset: a row without one
  /// of them takes the previous row's.
  unsigned char _IsSystem = 0;
  KelUnicodeString _Name;
  KelUnicodeString _ElementKind;
  KelUnicodeString _CurrentElementName;
  KelUnicodeStringList _DefaultList;
  MabRixUIElementQueryResultValue* _pUIElementQueryResultValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerUIElementQueryResult)

#endif
