#include "MabRixSAXHandlerWorkspaceVaultListQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixWorkspaceVaultListQueryResultValue.h"

MabRixImplementHandler(MabRixSAXHandlerWorkspaceVaultListQueryResult, MabRixSAXHandlerBase)

MabRixSAXHandlerWorkspaceVaultListQueryResult::MabRixSAXHandlerWorkspaceVaultListQueryResult(
    MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pVaultListValue(new (std::nothrow) MabRixWorkspaceVaultListQueryResultValue())
{
}

MabRixSAXHandlerWorkspaceVaultListQueryResult::~MabRixSAXHandlerWorkspaceVaultListQueryResult()
{
  if (_pVaultListValue)
    _pVaultListValue->Release();
}

// A row is whole at its start tag: its attributes carry everything.
HRESULT MabRixSAXHandlerWorkspaceVaultListQueryResult::StartElement(const KelUnicodeString& iName,
                                                                    const KelISAXAttributeList_var& iAttributes)
{
  if (!KelCheck(_pVaultListValue))
    return E_FAIL;
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  if (iName != "row")
    return S_OK;
  MabRixReadAttribute(iAttributes, "rowid", _CurrentVault._RowID);
  MabRixReadAttribute(iAttributes, "oid", _CurrentVault._OID);
  MabRixReadAttribute(iAttributes, "parentid", _CurrentVault._ParentID);
  MabRixReadAttribute(iAttributes, "name", _CurrentVault._Name);
  MabRixReadAttribute(iAttributes, "revision", _CurrentVault._Revision);
  MabRixReadAttribute(iAttributes, "type", _CurrentVault._Type);
  if (_pVaultListValue)
  {
    // The first row of an OID gives its details; the list keeps every row.
    if (!_pVaultListValue->_VaultDetails.HasKey(_CurrentVault._OID))
      _pVaultListValue->_VaultDetails.Insert(_CurrentVault._OID, _CurrentVault);
    _pVaultListValue->_VaultOIDs.Append(_CurrentVault._OID);
  }
  _CurrentVault.Clear();
  return S_OK;
}

HRESULT MabRixSAXHandlerWorkspaceVaultListQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pVaultListValue))
    return E_FAIL;
  if (!StopIfNecessary(iName))
    return S_OK;
  const MabIRixValue_var spValue(_pVaultListValue);
  (void)KelCheck(!!_spParentHandler);
  return !!_spParentHandler ? _spParentHandler->Value(spValue) : S_OK;
}
