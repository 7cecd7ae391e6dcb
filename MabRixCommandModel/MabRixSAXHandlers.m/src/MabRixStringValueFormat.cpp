#include "MabRixStringValueFormat.h"

#include "MabRixSAXHandlerString.h"

MabRixImplementClass(MabRixStringValueFormat, MabRixValueFormat)

MabRixStringValueFormat::~MabRixStringValueFormat() = default;

HRESULT MabRixStringValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  // A string handler oHandler holds is read again when no one else holds it.
  iParent.RenewChild<MabRixSAXHandlerString>(oHandler);
  return !oHandler ? E_FAIL : S_OK;
}
