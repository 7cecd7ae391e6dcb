#include "MabRixSAXHandlerTemplateListQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixTemplateQueryResultValue.h"

MabRixImplementHandler(MabRixSAXHandlerTemplateListQueryResult, MabRixSAXHandlerBase)

MabRixSAXHandlerTemplateListQueryResult::MabRixSAXHandlerTemplateListQueryResult(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pTemplateDetailsValue(new (std::nothrow) MabRixTemplateQueryResultValue())
{
}

MabRixSAXHandlerTemplateListQueryResult::~MabRixSAXHandlerTemplateListQueryResult()
{
  if (_pTemplateDetailsValue)
    _pTemplateDetailsValue->Release();
}

HRESULT MabRixSAXHandlerTemplateListQueryResult::StartElement(const KelUnicodeString& iName,
                                                              const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElementName = iName;
  if (iName == "row")
  {
    MabRixReadAttribute(iAttributes, "name", _CurrentTemplate._Name);
    MabRixReadAttribute(iAttributes, "type", _CurrentTemplate._Type);
    MabRixReadAttribute(iAttributes, "revision", _CurrentTemplate._Revision);
    MabRixReadAttribute(iAttributes, "oid", _CurrentTemplate._OID);
  }
  if (iName != "filename" && iName != "format")
    return S_OK;
  // The last text element's handler reads this one when no one else holds it.
  RenewChild<MabRixSAXHandlerString>(_spChildHandler);
  const HRESULT hr = !_spChildHandler ? S_OK : _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

HRESULT MabRixSAXHandlerTemplateListQueryResult::Value(const MabIRixValue_var& iValue)
{
  if (!KelCheck(!!iValue))
    return E_FAIL;
  if (!MabRixValueIsA(iValue, "MabRixStringValue"))
    return E_FAIL;
  const MabRixStringValue* pStringValue = KelImplCast<MabRixStringValue>(iValue.Get());
  if (!KelCheck(pStringValue) || !pStringValue)
    return E_FAIL;
  if (_CurrentElementName == "filename")
    _CurrentTemplate._FileName = pStringValue->_Value;
  else if (_CurrentElementName == "format")
    _CurrentTemplate._Format = pStringValue->_Value;
  else
    return E_FAIL;
  return S_OK;
}

HRESULT MabRixSAXHandlerTemplateListQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pTemplateDetailsValue))
    return E_FAIL;
  HRESULT hr = S_OK;
  if (StopIfNecessary(iName))
  {
    const MabIRixValue_var spValue(_pTemplateDetailsValue);
    (void)KelCheck(!!_spParentHandler);
    if (!!_spParentHandler)
      hr = _spParentHandler->Value(spValue);
  }
  // The first row of an OID wins; an empty OID is a key like any other.
  if (iName == "row" && _pTemplateDetailsValue && !_pTemplateDetailsValue->_Value.HasKey(_CurrentTemplate._OID))
    _pTemplateDetailsValue->_Value.Insert(_CurrentTemplate._OID, _CurrentTemplate);
  return hr;
}
