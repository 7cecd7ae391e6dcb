#include "MabRixSAXHandlerString.h"

#include <new>
#include <utility>

#include "KelCheck.h"
#include "MabRixSpareValue.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerString, MabRixSAXHandlerBase)

MabRixSAXHandlerString::MabRixSAXHandlerString(MabRixSAXHandlerBase& iParent) : MabRixSAXHandlerBase(iParent) {}

MabRixSAXHandlerString::~MabRixSAXHandlerString()
{
  if (_pSpareValue)
    _pSpareValue->Release();
}

// Read again, for the next element, by the parent that built it.
void MabRixSAXHandlerString::Renew() { ResetForReuse(); }

// A value element has no element inside it.
HRESULT MabRixSAXHandlerString::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  (void)KelCheck(FALSE);
  return E_FAIL;
}

HRESULT MabRixSAXHandlerString::EndElement(const KelUnicodeString& iName)
{
  if (!StopIfNecessary(iName) && !KelCheckText(false, "ExpressionCheck:this->StopIfNecessary(iName)"))
    return E_FAIL;
  // Null when it cannot be made: no value to hand up.
  MabRixStringValue* pValue =
      _pSpareValue ? std::exchange(_pSpareValue, nullptr) : new (std::nothrow) MabRixStringValue();
  if (pValue)
    pValue->_Value.Append(_Characters);
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pValue);  // the parent's reference is the one that counts
  if (!KelCheck(!!_spParentHandler))
    return E_FAIL;
  const MabIRixSAXHandler_var spSelf(this);  // the parent may let this handler go in its Value
  const HRESULT hr = _spParentHandler->Value(spValue);
  if (pValue)
    KeepSpareValue(pValue);
  return hr;
}

// A value nobody kept is seen by no one: its room serves the next element.
void MabRixSAXHandlerString::KeepSpareValue(MabRixStringValue* ipValue)
{
  if (MabRixKeepIfUnheld(ipValue, _pSpareValue))
    ipValue->_Value.Clear();
}
