#include "MabRixStringValueFormat.h"

#include "MabRixSAXHandlerString.h"

MabRixImplementClass(MabRixStringValueFormat, MabRixValueFormat)

MabRixStringValueFormat::~MabRixStringValueFormat() = default;

HRESULT MabRixStringValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  return CreateSubHandler<MabRixSAXHandlerString>(oHandler, iParent);
}
