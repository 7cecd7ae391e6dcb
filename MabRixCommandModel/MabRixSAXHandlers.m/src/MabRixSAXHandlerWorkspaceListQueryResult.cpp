#include "MabRixSAXHandlerWorkspaceListQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixWorkspaceListQueryResultValue.h"

MabRixImplementHandler(MabRixSAXHandlerWorkspaceListQueryResult, MabRixSAXHandlerBase)

MabRixSAXHandlerWorkspaceListQueryResult::MabRixSAXHandlerWorkspaceListQueryResult(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pWorkspaceListValue(new (std::nothrow) MabRixWorkspaceListQueryResultValue())
{
}

MabRixSAXHandlerWorkspaceListQueryResult::~MabRixSAXHandlerWorkspaceListQueryResult()
{
  if (_pWorkspaceListValue)
    _pWorkspaceListValue->Release();
}

// A row is whole at its start tag: its attributes carry everything.
HRESULT MabRixSAXHandlerWorkspaceListQueryResult::StartElement(const KelUnicodeString& iName,
                                                               const KelISAXAttributeList_var& iAttributes)
{
  if (!KelCheck(_pWorkspaceListValue))
    return E_FAIL;
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  if (iName != "row")
    return S_OK;
  MabRixReadAttribute(iAttributes, "rowid", _CurrentWorkspace._RowID);
  MabRixReadAttribute(iAttributes, "oid", _CurrentWorkspace._OID);
  MabRixReadAttribute(iAttributes, "name", _CurrentWorkspace._Name);
  MabRixReadAttribute(iAttributes, "revision", _CurrentWorkspace._Revision);
  MabRixReadAttribute(iAttributes, "type", _CurrentWorkspace._Type);
  if (_pWorkspaceListValue)
  {
    // First wins, for the OID and for the name.
    if (!_pWorkspaceListValue->_WorkspaceDetails.HasKey(_CurrentWorkspace._OID))
      _pWorkspaceListValue->_WorkspaceDetails.Insert(_CurrentWorkspace._OID, _CurrentWorkspace);
    if (!_pWorkspaceListValue->_WorkspaceOIDs.HasKey(_CurrentWorkspace._Name))
      _pWorkspaceListValue->_WorkspaceOIDs.Insert(_CurrentWorkspace._Name, _CurrentWorkspace._OID);
  }
  _CurrentWorkspace.Clear();
  return S_OK;
}

HRESULT MabRixSAXHandlerWorkspaceListQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pWorkspaceListValue))
    return E_FAIL;
  if (!StopIfNecessary(iName))
    return S_OK;
  const MabIRixValue_var spValue(_pWorkspaceListValue);
  (void)KelCheck(!!_spParentHandler);
  return !!_spParentHandler ? _spParentHandler->Value(spValue) : S_OK;
}
