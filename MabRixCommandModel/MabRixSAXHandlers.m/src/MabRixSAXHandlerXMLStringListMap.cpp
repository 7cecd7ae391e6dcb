#include "MabRixSAXHandlerXMLStringListMap.h"

#include <new>
#include <utility>

#include "KelCheck.h"
#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringListValueFormat.h"

MabRixImplementHandler(MabRixSAXHandlerXMLStringListMap, MabRixSAXHandlerBase)

MabRixSAXHandlerXMLStringListMap::MabRixSAXHandlerXMLStringListMap(MabRixSAXHandlerBase& iParent,
                                                                   const KelUnicodeString& iListSeparator)
    : MabRixSAXHandlerBase(iParent), _ListSeparator(iListSeparator),
      _pListFormat(new (std::nothrow) MabRixStringListValueFormat(iListSeparator))
{
}

MabRixSAXHandlerXMLStringListMap::~MabRixSAXHandlerXMLStringListMap()
{
  _Entries.RemoveAll();
  if (_pListFormat)
    _pListFormat->Release();
  _pListFormat = nullptr;
}

HRESULT MabRixSAXHandlerXMLStringListMap::StartElement(const KelUnicodeString& iName,
                                                       const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _Characters.Clear();
  if (iName != "attribute")
    return S_OK;
  _spChildHandler = nullptr;
  if (_pListFormat)
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new (std::nothrow) MabRixSAXHandlerAttribute(*this, *_pListFormat));
  // An attribute that cannot get a handler is skipped.
  if (!_spChildHandler)
    return S_OK;
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

// An entry, from an attribute handler. A value of another kind fails.
HRESULT MabRixSAXHandlerXMLStringListMap::Value(const MabIRixValue_var& iValue)
{
  KelUnicodeString MabIRixValue_Type(!!iValue ? iValue->GetImpl()->IsA() : "");
  if (!KelCheck(!!iValue && MabIRixValue_Type == "MabRixAttributeValue"))
    return E_FAIL;
  const MabRixAttributeValue* pValue = KelImplCast<MabRixAttributeValue>(iValue.Get());
  if (!KelCheck(pValue) || !pValue)
    return E_FAIL;
  MabIRixValue_Type = !!pValue->_Value ? pValue->_Value->GetImpl()->IsA() : "";
  if (!KelCheck(MabIRixValue_Type == "MabRixStringListValue"))
    return E_FAIL;
  if (const MabRixStringListValue* pList = KelImplCast<MabRixStringListValue>(pValue->_Value.Get()))
    _Entries.Insert(pValue->_Name, pList->_Value);
  return S_OK;
}

HRESULT MabRixSAXHandlerXMLStringListMap::EndElement(const KelUnicodeString& iName)
{
  // Attribute ends go to the attribute handlers: any other end that reaches
  // this handler before its own is a failure.
  if (!StopIfNecessary(iName))
    return E_FAIL;
  MabRixStringListMapValue* pListMapValue = new (std::nothrow) MabRixStringListMapValue();
  if (!KelCheck(pListMapValue) || !pListMapValue)
    return E_FAIL;
  pListMapValue->_Value = std::move(_Entries);  // the map is done: its value takes it
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pListMapValue);
  if (!KelCheck(!!_spParentHandler))
    return E_FAIL;
  return _spParentHandler->Value(spValue);
}
