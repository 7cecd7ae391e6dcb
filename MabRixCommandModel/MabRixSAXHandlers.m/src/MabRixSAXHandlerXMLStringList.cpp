#include "MabRixSAXHandlerXMLStringList.h"

#include <new>
#include <utility>

#include "KelCheck.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerXMLStringList, MabRixSAXHandlerBase)

MabRixSAXHandlerXMLStringList::MabRixSAXHandlerXMLStringList(MabRixSAXHandlerBase& iParent,
                                                             const KelUnicodeString& iItemElement)
    : MabRixSAXHandlerBase(iParent), _ItemElement(iItemElement)
{
}

MabRixSAXHandlerXMLStringList::~MabRixSAXHandlerXMLStringList() = default;

HRESULT MabRixSAXHandlerXMLStringList::StartElement(const KelUnicodeString& iName,
                                                    const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  // Without an item name there is nothing this list can read.
  if (_ItemElement.IsEmpty())
    return E_FAIL;
  _CurrentElement = iName;
  _spChildHandler = nullptr;
  if (iName != _ItemElement)
    return S_OK;
  // An item that cannot get a handler is skipped.
  _spChildHandler = MabIRixSAXHandler_var::Adopt(new (std::nothrow) MabRixSAXHandlerString(*this));
  if (!_spChildHandler)
    return S_OK;
  const HRESULT hr = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// An item's text, from its string handler.
HRESULT MabRixSAXHandlerXMLStringList::Value(const MabIRixValue_var& iValue)
{
  if (_CurrentElement != _ItemElement)
    return E_FAIL;
  const MabRixStringValue* pValue = KelImplCast<MabRixStringValue>(iValue.Get());
  if (!pValue)
  {
    KelFatal("AssertionFailed:pValue");
    return E_FAIL;
  }
  _Items.Append(pValue->_Value);
  return S_OK;
}

HRESULT MabRixSAXHandlerXMLStringList::EndElement(const KelUnicodeString& iName)
{
  // The end of a skipped element.
  if (!StopIfNecessary(iName))
    return S_OK;
  MabRixStringListValue* pStringListValue = new (std::nothrow) MabRixStringListValue();
  if (!KelCheck(pStringListValue) || !pStringListValue)
    return E_FAIL;
  pStringListValue->_Value = std::move(_Items);  // the list is done: its value takes it
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pStringListValue);
  if (!KelCheck(!!_spParentHandler))
    return S_OK;
  return _spParentHandler->Value(spValue);
}
