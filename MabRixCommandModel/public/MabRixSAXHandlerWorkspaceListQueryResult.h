/// Reads the user's workspaces: one empty "row" per workspace whose
/// attributes carry its row ID, OID, name, revision and type, into a
/// MabRixWorkspaceListQueryResultValue. The value goes to the parent when the
/// handler's own element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerWorkspaceListQueryResult_h
#define MabRixSAXHandlerWorkspaceListQueryResult_h

#include "MabRixSAXHandlerBase.h"
#include "MabRixWorkspaceDetails.h"

class MabRixWorkspaceListQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerWorkspaceListQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerWorkspaceListQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerWorkspaceListQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

  /// The result under construction.
  MabRixWorkspaceListQueryResultValue* GetWorkspaceListValue() const { return _pWorkspaceListValue; }

private:
  MabRixWorkspaceDetails _CurrentWorkspace;
  MabRixWorkspaceListQueryResultValue* _pWorkspaceListValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerWorkspaceListQueryResult)

#endif
