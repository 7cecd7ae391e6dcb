#include "MabRixSAXHandlerObjectAttribute.h"

#include <new>
#include <string_view>
#include <utility>

#include "KelCheck.h"
#include "MabRixAttributeValue.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"

MabRixImplementHandler(MabRixSAXHandlerObjectAttribute, MabRixSAXHandlerBase)

MabRixSAXHandlerObjectAttribute::MabRixSAXHandlerObjectAttribute(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pStringFormat(new (std::nothrow) MabRixStringValueFormat()),
      _pObjectAttributeValue(new (std::nothrow) MabRixObjectAttributeValue())
{
}

MabRixSAXHandlerObjectAttribute::~MabRixSAXHandlerObjectAttribute()
{
  if (_pStringFormat)
  {
    _pStringFormat->Release();
    _pStringFormat = nullptr;
  }
  if (_pObjectAttributeValue)
  {
    _pObjectAttributeValue->Release();
    _pObjectAttributeValue = nullptr;
  }
}

// Read again, for the next cadobject, by the parent that built it. The
// value starts empty again; a value someone kept is left to them.
void MabRixSAXHandlerObjectAttribute::Renew()
{
  ResetForReuse();
  _CurrentElement.Clear();
  if (_pObjectAttributeValue && _pObjectAttributeValue->GetRefCount() == 1)
  {
    // The texts keep their room for the next cadobject's.
    _pObjectAttributeValue->_PreviewPath.Clear();
    _pObjectAttributeValue->_ElementValues.Recycle();
    _pObjectAttributeValue->_Attributes.Recycle();
    return;
  }
  if (_pObjectAttributeValue)
    _pObjectAttributeValue->Release();
  _pObjectAttributeValue = new (std::nothrow) MabRixObjectAttributeValue();
}

// Every direct child gets a handler of its own: attribute elements an
// attribute handler, any other element a string handler. The last child,
// when no one else holds it, waits as the spare of its class.
HRESULT MabRixSAXHandlerObjectAttribute::StartElement(const KelUnicodeString& iName,
                                                      const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElement = iName;
  if (Reusable<MabRixSAXHandlerString>(_spChildHandler))
    _spSpareString = std::move(_spChildHandler);
  else if (Reusable<MabRixSAXHandlerAttribute>(_spChildHandler))
    _spSpareAttribute = std::move(_spChildHandler);
  _spChildHandler = nullptr;
  if (iName != "attribute")
  {
    RenewChild<MabRixSAXHandlerString>(_spSpareString);
    _spChildHandler = std::move(_spSpareString);
  }
  else if (_pStringFormat)
  {
    RenewChild<MabRixSAXHandlerAttribute>(_spSpareAttribute, *_pStringFormat);
    _spChildHandler = std::move(_spSpareAttribute);
  }
  if (!_spChildHandler)
    return S_OK;  // no handler could be made: the element is skipped
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

HRESULT MabRixSAXHandlerObjectAttribute::Value(const MabIRixValue_var& iValue)
{
  HRESULT hr = E_FAIL;
  if (!_pObjectAttributeValue)
    _pObjectAttributeValue = new (std::nothrow) MabRixObjectAttributeValue();
  if (!_pObjectAttributeValue)
  {
    (void)KelCheck(_pObjectAttributeValue);
    return E_FAIL;  // nowhere to keep the value, whatever the answer
  }
  const std::string_view Type = !!iValue ? iValue->GetImpl()->IsA() : "";
  if (Type == "MabRixStringValue")
  {
    const MabRixStringValue* pValue = KelImplCast<MabRixStringValue>(iValue.Get());
    if (!pValue)
    {
      KelFatal("AssertionFailed:pValue");
      return E_FAIL;
    }
    KeepElementText(pValue->_Value);
    hr = S_OK;
  }
  if (_CurrentElement == "attribute")
  {
    const MabRixAttributeValue* pValue = KelImplCast<MabRixAttributeValue>(iValue.Get());
    if (!pValue)
    {
      KelFatal("AssertionFailed:pValue");
      return E_FAIL;
    }
    if (KeepAttribute(*pValue))
      hr = S_OK;
  }
  // An "attributes" element is accepted whatever it gave.
  return _CurrentElement == "attributes" ? S_OK : hr;
}

void MabRixSAXHandlerObjectAttribute::KeepElementText(const KelUnicodeString& iText)
{
  _pObjectAttributeValue->_ElementValues.Insert(_CurrentElement, iText);
  if (_CurrentElement == "preview")
    _pObjectAttributeValue->_PreviewPath.Assign(iText.View());
}

// Only string values are kept; false when the reporter refused another kind.
bool MabRixSAXHandlerObjectAttribute::KeepAttribute(const MabRixAttributeValue& iAttribute)
{
  const std::string_view MabIRixValue_Type = !!iAttribute._Value ? iAttribute._Value->GetImpl()->IsA() : "";
  if (!KelCheck(MabIRixValue_Type == "MabRixStringValue"))
    return false;
  if (const MabRixStringValue* pString = KelImplCast<MabRixStringValue>(iAttribute._Value.Get()))
    _pObjectAttributeValue->_Attributes.Insert(iAttribute._Name, pString->_Value);
  return true;
}

HRESULT MabRixSAXHandlerObjectAttribute::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pObjectAttributeValue))
    return E_FAIL;
  if (!StopIfNecessary(iName))
    return S_OK;
  // cadobject has closed: the parent copies what it needs in its Value.
  const MabIRixValue_var spValue(_pObjectAttributeValue);
  if (!KelCheck(!!_spParentHandler))
    return S_OK;
  return _spParentHandler->Value(spValue);
}
