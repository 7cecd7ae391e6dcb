#include "MabRixSAXHandlerAttribute.h"

#include <new>
#include <string_view>
#include <utility>

#include "KelCheck.h"
#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSpareValue.h"
#include "MabRixStringValue.h"
#include "MabRixTextSupport.h"
#include "MabRixValueFormat.h"

MabRixImplementHandler(MabRixSAXHandlerAttribute, MabRixSAXHandlerBase)

MabRixSAXHandlerAttribute::MabRixSAXHandlerAttribute(MabRixSAXHandlerBase& iParent,
                                                     KelBaseUnknown_varKelUnicodeStringDico& iFormatMap)
    : MabRixSAXHandlerBase(iParent), _pFormatMap(&iFormatMap)
{
}

MabRixSAXHandlerAttribute::MabRixSAXHandlerAttribute(MabRixSAXHandlerBase& iParent, MabRixValueFormat& iFormat)
    : MabRixSAXHandlerBase(iParent), _pFormat(&iFormat)
{
}

MabRixSAXHandlerAttribute::~MabRixSAXHandlerAttribute()
{
  if (_pAttributeValue)
    _pAttributeValue->Release();
  _pAttributeValue = nullptr;
  _pFormat = nullptr;
  if (_pSpareValue)
    _pSpareValue->Release();
}

// Read again, for the next attribute element, by the parent that built it.
// Its last value handler stays its child: the format renews it.
void MabRixSAXHandlerAttribute::Renew(MabRixValueFormat& iFormat)
{
  ResetForReuse();
  if (_pAttributeValue)
    _pAttributeValue->Release();
  _pAttributeValue = nullptr;
  _pFormatMap = nullptr;
  _pFormat = &iFormat;
}

HRESULT MabRixSAXHandlerAttribute::StartElement(const KelUnicodeString& iName,
                                                const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  // Any other child is ignored.
  if (!KelCheck(iName == "name" || iName == "value"))
    return S_OK;
  // Text directly inside the attribute element belongs to neither child.
  _Characters.Clear();
  // A value without a format (no name yet, no format for the name, or a
  // second value) is skipped: its text gathers here and is dropped.
  if (iName != "value" || !_pFormat)
    return S_OK;

  // Read in place: a missing type reads as empty.
  std::string_view Type;
  if (!!iAttributes && FAILED(iAttributes->GetValueView("type", Type)))
    Type = {};
  if (_pAttributeValue)
    _pAttributeValue->_Enforced = MabRixEqualsLowered(Type, "enforced") ? 1 : 0;

  // One value per format: the format is done with once asked.
  HRESULT hr = _pFormat->GetSubHandler(*this, _spChildHandler);
  _pFormat = nullptr;
  if (!KelCheck(SUCCEEDED(hr) && !!_spChildHandler))
    return hr;
  hr = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

HRESULT MabRixSAXHandlerAttribute::EndElement(const KelUnicodeString& iName)
{
  if (StopIfNecessary(iName))
    return EndAttribute();
  if (iName == "name")
  {
    EndName();
    return S_OK;
  }
  if (iName == "value" && !_pFormat)
    return S_OK;
  // An ignored child's end, or a value whose handler was never made.
  (void)KelCheck(iName == "value" && !_pFormat);
  return S_OK;
}

// The attribute element has closed: the parent gets the attribute value and
// with it the handler's reference.
HRESULT MabRixSAXHandlerAttribute::EndAttribute()
{
  if (!KelCheck(!!_spParentHandler))
    return S_OK;
  if (!_pAttributeValue)
    return S_OK;
  MabRixAttributeValue* pValue = _pAttributeValue;
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pValue);
  _pAttributeValue = nullptr;
  const MabIRixSAXHandler_var spSelf(this);  // the parent may let this handler go in its Value
  const HRESULT hr = _spParentHandler->Value(spValue);
  KeepSpareValue(pValue);
  return hr;
}

// An attribute value the parent did not keep is seen by no one: the next
// attribute is built in it, and its string value goes back to the string
// handler that built it when no one kept that either.
void MabRixSAXHandlerAttribute::KeepSpareValue(MabRixAttributeValue* ipValue)
{
  if (!MabRixKeepIfUnheld(ipValue, _pSpareValue))
    return;
  const MabIRixValue_var spInner = std::move(ipValue->_Value);
  if (MabRixSAXHandlerString* pString = Reusable<MabRixSAXHandlerString>(_spChildHandler))
    if (MabRixStringValue* pInner = KelImplCast<MabRixStringValue>(spInner.Get()))
      pString->KeepSpareValue(pInner);
  ipValue->_Enforced = 0;
  ipValue->_Name.Clear();
}

// The name is known: with a format map it selects the value's format. A new
// attribute value is started only when there is a format to read its value.
void MabRixSAXHandlerAttribute::EndName()
{
  if (!_pFormat)
  {
    if (!_pFormatMap)
      (void)KelCheck(_pFormatMap);
    else if (const KelBaseUnknown_var* pEntry = _pFormatMap->Find(_Characters))
      _pFormat = KelImplCast<MabRixValueFormat>(pEntry->Get());
  }
  if (_pFormat)
  {
    // A second name replaces the attribute value begun by the first.
    if (_pAttributeValue)
      _pAttributeValue->Release();
    _pAttributeValue = _pSpareValue ? std::exchange(_pSpareValue, nullptr) : new (std::nothrow) MabRixAttributeValue();
  }
  if (_pAttributeValue)
    _pAttributeValue->_Name = _Characters;
}

HRESULT MabRixSAXHandlerAttribute::Value(const MabIRixValue_var& iValue)
{
  if (!KelCheck(_pAttributeValue))
    return E_FAIL;
  // Going on without an attribute value: there is nothing to keep the value in.
  if (_pAttributeValue)
    _pAttributeValue->_Value = iValue;
  return S_OK;
}
