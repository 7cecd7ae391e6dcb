#include "MabRixSAXHandlerUIElementQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixBooleanValue.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSAXHandlerStringList.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"
#include "MabRixUIElementQueryResultValue.h"

MabRixImplementHandler(MabRixSAXHandlerUIElementQueryResult, MabRixSAXHandlerBase)

namespace
{
// The object of class C behind iValue. A value without one is a fatal error.
template <class C>
const C* ValueObject(const MabIRixValue_var& iValue)
{
  const C* pValue = KelImplCast<C>(iValue.Get());
  if (!pValue)
    KelFatal("AssertionFailed:pValue");
  return pValue;
}
}  // namespace

MabRixSAXHandlerUIElementQueryResult::MabRixSAXHandlerUIElementQueryResult(MabRixSAXHandlerBase& iParent,
                                                                           const KelUnicodeString& iElementKind)
    : MabRixSAXHandlerBase(iParent), _ElementKind(iElementKind),
      _pUIElementQueryResultValue(new (std::nothrow) MabRixUIElementQueryResultValue())
{
}

MabRixSAXHandlerUIElementQueryResult::~MabRixSAXHandlerUIElementQueryResult()
{
  if (_pUIElementQueryResultValue)
    _pUIElementQueryResultValue->Release();
}

HRESULT MabRixSAXHandlerUIElementQueryResult::StartElement(const KelUnicodeString& iName,
                                                           const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElementName = iName;
  _spChildHandler = nullptr;
  MabRixSAXHandlerBase* pChild = nullptr;
  if (iName == "name")
    pChild = new (std::nothrow) MabRixSAXHandlerString(*this);
  else if (iName == "default")
    pChild = new (std::nothrow) MabRixSAXHandlerStringList(*this, ",");
  else if (iName == "issystem")
    pChild = new (std::nothrow) MabRixSAXHandlerBoolean(*this);
  else
    return S_OK;
  const HRESULT hr = MabRixStartChild(_spChildHandler, pChild, iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// The meaning of a value is the element it was read from; its class is not
// examined.
HRESULT MabRixSAXHandlerUIElementQueryResult::Value(const MabIRixValue_var& iValue)
{
  if (_CurrentElementName == "default")
  {
    const MabRixStringListValue* pValue = ValueObject<MabRixStringListValue>(iValue);
    if (!pValue)
      return E_FAIL;
    _DefaultList = pValue->_Value;
    return S_OK;
  }
  if (_CurrentElementName == "name")
  {
    const MabRixStringValue* pValue = ValueObject<MabRixStringValue>(iValue);
    if (!pValue)
      return E_FAIL;
    _Name = pValue->_Value;
    return S_OK;
  }
  if (_CurrentElementName == "issystem")
  {
    const MabRixBooleanValue* pValue = ValueObject<MabRixBooleanValue>(iValue);
    if (!pValue)
      return E_FAIL;
    _IsSystem = pValue->_Value;
    return S_OK;
  }
  return E_FAIL;
}

HRESULT MabRixSAXHandlerUIElementQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pUIElementQueryResultValue))
    return E_FAIL;
  if (StopIfNecessary(iName))
  {
    const MabIRixValue_var spValue(_pUIElementQueryResultValue);
    (void)KelCheck(!!_spParentHandler);
    return !!_spParentHandler ? _spParentHandler->Value(spValue) : S_OK;
  }
  if (iName == "row" && _pUIElementQueryResultValue)
  {
    const MabRixUIElementID ID(_ElementKind, _Name, _IsSystem);
    _pUIElementQueryResultValue->_UIElementIDs.Append(ID);
    for (const KelUnicodeString& Key : _DefaultList)
      if (!Key.IsEmpty())
        _pUIElementQueryResultValue->_DefaultUIElementIDs.Insert(Key, ID);
  }
  return S_OK;
}
