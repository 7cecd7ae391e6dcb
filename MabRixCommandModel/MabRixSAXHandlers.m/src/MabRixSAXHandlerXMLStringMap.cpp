#include "MabRixSAXHandlerXMLStringMap.h"

#include <new>
#include <utility>

#include "KelCheck.h"
#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"

MabRixImplementHandler(MabRixSAXHandlerXMLStringMap, MabRixSAXHandlerBase)

MabRixSAXHandlerXMLStringMap::MabRixSAXHandlerXMLStringMap(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pStringFormat(new (std::nothrow) MabRixStringValueFormat())
{
}

MabRixSAXHandlerXMLStringMap::MabRixSAXHandlerXMLStringMap(MabRixSAXHandlerBase& iParent,
                                                           const KelUnicodeString& iKeyElement,
                                                           const KelUnicodeString& iValueElement)
    : MabRixSAXHandlerBase(iParent), _KeyElement(iKeyElement), _ValueElement(iValueElement)
{
}

MabRixSAXHandlerXMLStringMap::~MabRixSAXHandlerXMLStringMap()
{
  _Entries.RemoveAll();
  if (_pStringFormat)
    _pStringFormat->Release();
  _pStringFormat = nullptr;
}

HRESULT MabRixSAXHandlerXMLStringMap::StartElement(const KelUnicodeString& iName,
                                                   const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _Characters.Clear();
  _CurrentElement = iName;
  // Key and value elements are read from the text, at their ends.
  if (IsKeyValueMode() || iName != "attribute")
    return S_OK;
  _spChildHandler = nullptr;
  if (_pStringFormat)
    _spChildHandler =
        MabIRixSAXHandler_var::Adopt(new (std::nothrow) MabRixSAXHandlerAttribute(*this, *_pStringFormat));
  // An attribute that cannot get a handler is skipped.
  if (!_spChildHandler)
    return S_OK;
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

// An entry, from an attribute handler. Values of another kind are reported
// and skipped without failing.
HRESULT MabRixSAXHandlerXMLStringMap::Value(const MabIRixValue_var& iValue)
{
  KelUnicodeString MabIRixValue_Type(!!iValue ? iValue->GetImpl()->IsA() : "");
  if (!KelCheck(!!iValue && MabIRixValue_Type == "MabRixAttributeValue"))
    return S_OK;
  const MabRixAttributeValue* pValue = KelImplCast<MabRixAttributeValue>(iValue.Get());
  if (!KelCheck(pValue) || !pValue)
    return S_OK;
  MabIRixValue_Type = !!pValue->_Value ? pValue->_Value->GetImpl()->IsA() : "";
  if (!KelCheck(MabIRixValue_Type == "MabRixStringValue"))
    return S_OK;
  if (const MabRixStringValue* pString = KelImplCast<MabRixStringValue>(pValue->_Value.Get()))
    _Entries.Insert(pValue->_Name, pString->_Value);
  return S_OK;
}

HRESULT MabRixSAXHandlerXMLStringMap::EndElement(const KelUnicodeString& iName)
{
  HRESULT hr = S_OK;
  if (StopIfNecessary(iName))
  {
    MabRixStringMapValue* pMapValue = new (std::nothrow) MabRixStringMapValue();
    if (!KelCheck(pMapValue) || !pMapValue)
      return S_OK;
    pMapValue->_Value = std::move(_Entries);  // the map is done: its value takes it
    const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pMapValue);
    (void)KelCheck(!!_spParentHandler);
    if (!!_spParentHandler)
      hr = _spParentHandler->Value(spValue);
  }
  KeepKeyOrValue();
  return hr;
}

// Key/value bookkeeping, at every end tag that reaches this handler: the end
// of a key element remembers its text; the end of a value element enters it
// under the remembered key, unless the key is empty or already entered.
void MabRixSAXHandlerXMLStringMap::KeepKeyOrValue()
{
  if (_KeyElement == _CurrentElement)
    _CurrentKey = _Characters;
  if (_ValueElement == _CurrentElement && !_CurrentKey.IsEmpty() && !_Entries.HasKey(_CurrentKey))
    _Entries.Insert(_CurrentKey, _Characters);
}
