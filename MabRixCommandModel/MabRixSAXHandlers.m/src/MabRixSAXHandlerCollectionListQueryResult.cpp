#include "MabRixSAXHandlerCollectionListQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerCollectionListQueryResult, MabRixSAXHandlerBase)

MabRixSAXHandlerCollectionListQueryResult::MabRixSAXHandlerCollectionListQueryResult(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pCollectionListValue(new (std::nothrow) MabRixStringMapValue())
{
}

MabRixSAXHandlerCollectionListQueryResult::~MabRixSAXHandlerCollectionListQueryResult()
{
  if (_pCollectionListValue)
    _pCollectionListValue->Release();
}

HRESULT MabRixSAXHandlerCollectionListQueryResult::StartElement(const KelUnicodeString& iName,
                                                                const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElementName = iName;
  if (iName != "name" && iName != "description")
    return S_OK;
  // The last text element's handler reads this one when no one else holds it.
  RenewChild<MabRixSAXHandlerString>(_spChildHandler);
  const HRESULT hr = !_spChildHandler ? S_OK : _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

HRESULT MabRixSAXHandlerCollectionListQueryResult::Value(const MabIRixValue_var& iValue)
{
  if (!KelCheck(!!iValue))
    return E_FAIL;
  if (!MabRixValueIsA(iValue, "MabRixStringValue"))
    return E_FAIL;
  const MabRixStringValue* pStringValue = KelImplCast<MabRixStringValue>(iValue.Get());
  if (!KelCheck(pStringValue) || !pStringValue)
    return E_FAIL;
  if (_CurrentElementName == "name")
    _Name = pStringValue->_Value;
  else if (_CurrentElementName == "description")
    _Description = pStringValue->_Value;
  else
    return E_FAIL;
  return S_OK;
}

HRESULT MabRixSAXHandlerCollectionListQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pCollectionListValue))
    return E_FAIL;
  HRESULT hr = S_OK;
  if (StopIfNecessary(iName))
  {
    const MabIRixValue_var spValue(_pCollectionListValue);
    (void)KelCheck(!!_spParentHandler);
    if (!!_spParentHandler)
      hr = _spParentHandler->Value(spValue);
  }
  if (iName == "row")
  {
    // A row needs a name; the first row of a name wins.
    if (_pCollectionListValue && !_Name.IsEmpty() && !_pCollectionListValue->_Value.HasKey(_Name))
      _pCollectionListValue->_Value.Insert(_Name, _Description);
    _Name = "";
    _Description = "";
  }
  return hr;
}
