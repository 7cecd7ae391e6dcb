#include "MabRixStringListValueFormat.h"

#include "MabRixSAXHandlerStringList.h"

MabRixImplementClass(MabRixStringListValueFormat, MabRixValueFormat)

MabRixStringListValueFormat::MabRixStringListValueFormat(const KelUnicodeString& iSeparator)
    : _ListSeparator(iSeparator)
{
}

MabRixStringListValueFormat::~MabRixStringListValueFormat() = default;

HRESULT MabRixStringListValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  return CreateSubHandler<MabRixSAXHandlerStringList>(oHandler, iParent, _ListSeparator);
}
