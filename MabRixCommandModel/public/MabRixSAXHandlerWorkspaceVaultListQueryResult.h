/// Reads the vaults of a workspace: one empty "row" per vault whose
/// attributes carry its row ID, OID, parent ID, name, revision and type, into
/// a MabRixWorkspaceVaultListQueryResultValue. The value goes to the parent
/// when the handler's own element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerWorkspaceVaultListQueryResult_h
#define MabRixSAXHandlerWorkspaceVaultListQueryResult_h

#include "MabRixSAXHandlerBase.h"
#include "MabRixVaultDetails.h"

class MabRixWorkspaceVaultListQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerWorkspaceVaultListQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerWorkspaceVaultListQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerWorkspaceVaultListQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

  /// The result under construction.
  MabRixWorkspaceVaultListQueryResultValue* GetVaultListValue() const { return _pVaultListValue; }

private:
  MabRixVaultDetails _CurrentVault;
  MabRixWorkspaceVaultListQueryResultValue* _pVaultListValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerWorkspaceVaultListQueryResult)

#endif
