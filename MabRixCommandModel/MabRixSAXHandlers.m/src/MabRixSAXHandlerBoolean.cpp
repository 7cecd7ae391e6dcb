#include "MabRixSAXHandlerBoolean.h"

#include <new>

#include "KelCheck.h"
#include "MabRixBooleanValue.h"

MabRixImplementHandler(MabRixSAXHandlerBoolean, MabRixSAXHandlerBase)

MabRixSAXHandlerBoolean::MabRixSAXHandlerBoolean(MabRixSAXHandlerBase& iParent) : MabRixSAXHandlerBase(iParent) {}

MabRixSAXHandlerBoolean::~MabRixSAXHandlerBoolean() = default;

// A value element has no element inside it.
HRESULT MabRixSAXHandlerBoolean::StartElement(const KelUnicodeString& iName,
                                              const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  (void)KelCheck(FALSE);
  return E_FAIL;
}

HRESULT MabRixSAXHandlerBoolean::EndElement(const KelUnicodeString& iName)
{
  if (!StopIfNecessary(iName) && !KelCheckText(false, "ExpressionCheck:this->StopIfNecessary(iName)"))
    return E_FAIL;
  // The creation reference is kept on purpose: a Boolean value outlives every holder. Null: no value to hand up.
  MabRixBooleanValue* pValue = new (std::nothrow) MabRixBooleanValue();
  if (pValue)
    pValue->_Value = (_Characters.Compare("yes") || _Characters.Compare("true")) ? 1 : 0;
  const MabIRixValue_var spValue(pValue);
  if (!KelCheck(!!_spParentHandler))
    return E_FAIL;
  return _spParentHandler->Value(spValue);
}
