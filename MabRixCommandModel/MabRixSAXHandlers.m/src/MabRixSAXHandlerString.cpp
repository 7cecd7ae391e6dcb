#include "MabRixSAXHandlerString.h"

#include <new>

#include "KelCheck.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerString, MabRixSAXHandlerBase)

MabRixSAXHandlerString::MabRixSAXHandlerString(MabRixSAXHandlerBase& iParent) : MabRixSAXHandlerBase(iParent) {}

MabRixSAXHandlerString::~MabRixSAXHandlerString() = default;

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
  MabRixStringValue* pValue = new (std::nothrow) MabRixStringValue();  // null: no value to hand up
  if (pValue)
    pValue->_Value.Append(_Characters);
  const MabIRixValue_var spValue = MabIRixValue_var::Adopt(pValue);  // the parent's reference is the one that counts
  if (!KelCheck(!!_spParentHandler))
    return E_FAIL;
  return _spParentHandler->Value(spValue);
}
