#include "MabRixSAXHandlerSavedQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "KelError.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSAXHandlerStringList.h"
#include "MabRixSavedQueryResultValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerSavedQueryResult, MabRixSAXHandlerBase)

MabRixSAXHandlerSavedQueryResult::MabRixSAXHandlerSavedQueryResult(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pSavedQueryResultValue(new (std::nothrow) MabRixSavedQueryResultValue())
{
}

MabRixSAXHandlerSavedQueryResult::~MabRixSAXHandlerSavedQueryResult()
{
  if (_pSavedQueryResultValue)
    _pSavedQueryResultValue->Release();
}

HRESULT MabRixSAXHandlerSavedQueryResult::StartElement(const KelUnicodeString& iName,
                                                       const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElementName = iName;
  if (iName == "criteria")
    _InCriteria = 1;
  if (iName == "property")
  {
    MabRixReadAttribute(iAttributes, "name", _CurrentPropertyName);
    if (MabRixGetAttribute(iAttributes, "type") == "basic")
      _IsBasicProperty = 1;
  }
  MabRixSAXHandlerBase* pChild = nullptr;
  if (iName == "name" || iName == "description" || iName == "revision" || iName == "owner" || iName == "property")
    pChild = new (std::nothrow) MabRixSAXHandlerString(*this);
  else if (iName == "type" || iName == "vault")
    pChild = new (std::nothrow) MabRixSAXHandlerStringList(*this, ",");
  else
    return S_OK;
  const HRESULT hr = MabRixStartChild(_spChildHandler, pChild, iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// A child's value means what the element it read (the current element) and
// the criteria flag say.
HRESULT MabRixSAXHandlerSavedQueryResult::Value(const MabIRixValue_var& iValue)
{
  HRESULT hr = RixSuccessInit();
  if (FAILED(hr) || !_pSavedQueryResultValue)
    hr = MabRixRaiseUnexpected(hr);
  if (FAILED(hr) || !iValue)
    hr = MabRixRaiseUnexpected(hr);
  if (FAILED(hr) || !iValue || !_pSavedQueryResultValue)
    return hr;
  MabIRixSavedQueryRecord* pRecord = _pSavedQueryResultValue->GetQueryRecord();
  if (!pRecord)
    hr = MabRixRaiseUnexpected(hr);
  const bool IsText = MabRixValueIsA(iValue, "MabRixStringValue");
  const bool IsList = MabRixValueIsA(iValue, "MabRixStringListValue");
  if (FAILED(hr))
    return hr;
  if (IsText)
  {
    const MabRixStringValue* pText = KelImplCast<MabRixStringValue>(iValue.Get());
    return pText ? StoreText(*pRecord, pText->_Value) : MabRixRaiseUnexpected(hr);
  }
  if (IsList && _InCriteria)
  {
    const MabRixStringListValue* pList = KelImplCast<MabRixStringListValue>(iValue.Get());
    return pList ? StoreList(*pRecord, pList->_Value) : MabRixRaiseUnexpected(hr);
  }
  return hr;  // any other value is ignored
}

HRESULT MabRixSAXHandlerSavedQueryResult::StoreText(MabIRixSavedQueryRecord& ioRecord, const KelUnicodeString& iText)
{
  if (!_InCriteria)
  {
    // Outside the criteria only the query's own name and description count;
    // their setters' results are not looked at.
    if (_CurrentElementName == "name")
    {
      _SavedQueryName = iText;
      (void)ioRecord.SetName(iText);
    }
    else if (_CurrentElementName == "description")
    {
      _SavedQueryDescription = iText;
      (void)ioRecord.SetDescription(iText);
    }
    return S_OK;
  }
  HRESULT hr = S_OK;
  if (_CurrentElementName == "name")
    hr = ioRecord.SetCriteriaName(iText);
  else if (_CurrentElementName == "revision")
    hr = ioRecord.SetCriteriaRevision(iText);
  else if (_CurrentElementName == "owner")
    hr = ioRecord.SetCriteriaOwner(iText);
  else if (_CurrentElementName == "property")
    hr = _IsBasicProperty ? ioRecord.AddBasicProperty(_CurrentPropertyName, iText)
                          : ioRecord.AddProperty(_CurrentPropertyName, iText);
  return FAILED(hr) ? MabRixRaiseUnexpected(hr) : hr;
}

HRESULT MabRixSAXHandlerSavedQueryResult::StoreList(MabIRixSavedQueryRecord& ioRecord,
                                                    const KelUnicodeStringList& iList)
{
  HRESULT hr = S_OK;
  if (_CurrentElementName == "type")
    hr = ioRecord.SetCriteriaTypes(iList);
  else if (_CurrentElementName == "vault")
    hr = ioRecord.SetCriteriaVaults(iList);
  return FAILED(hr) ? MabRixRaiseUnexpected(hr) : hr;
}

HRESULT MabRixSAXHandlerSavedQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (iName == "criteria")
    _InCriteria = 0;
  // A "property" end tag goes to its String child, so this resets at the
  // next end tag that reaches this handler.
  if (_CurrentElementName == "property")
  {
    _CurrentPropertyName = "";
    _IsBasicProperty = 0;
  }
  if (!StopIfNecessary(iName))
    return S_OK;
  (void)KelCheck(_pSavedQueryResultValue);
  if (_pSavedQueryResultValue)
    _pSavedQueryResultValue->_SavedQueryID = MabRixSavedQueryID(_SavedQueryName, _SavedQueryDescription);
  const MabIRixValue_var spValue(_pSavedQueryResultValue);
  (void)KelCheck(!!_spParentHandler);
  return !!_spParentHandler ? _spParentHandler->Value(spValue) : S_OK;
}
