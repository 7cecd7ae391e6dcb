#include "MabRixBooleanValueFormat.h"

#include "MabRixSAXHandlerBoolean.h"

MabRixImplementClass(MabRixBooleanValueFormat, MabRixValueFormat)

MabRixBooleanValueFormat::~MabRixBooleanValueFormat() = default;

HRESULT MabRixBooleanValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  return CreateSubHandler<MabRixSAXHandlerBoolean>(oHandler, iParent);
}
