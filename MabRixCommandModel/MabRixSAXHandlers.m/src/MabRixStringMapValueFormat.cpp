#include "MabRixStringMapValueFormat.h"

#include "MabRixSAXHandlerStringMap.h"
#include "MabRixSAXHandlerXMLStringMap.h"

MabRixImplementClass(MabRixStringMapValueFormat, MabRixValueFormat)

MabRixStringMapValueFormat::MabRixStringMapValueFormat() : _IsXML(1) {}

MabRixStringMapValueFormat::MabRixStringMapValueFormat(const KelUnicodeString& iFirstSeparator,
                                                       const KelUnicodeString& iSecondSeparator)
    : _IsXML(0), _FirstSeparator(iFirstSeparator), _SecondSeparator(iSecondSeparator)
{
}

MabRixStringMapValueFormat::~MabRixStringMapValueFormat() = default;

HRESULT MabRixStringMapValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  if (_IsXML)
    return CreateSubHandler<MabRixSAXHandlerXMLStringMap>(oHandler, iParent);
  return CreateSubHandler<MabRixSAXHandlerStringMap>(oHandler, iParent, _FirstSeparator, _SecondSeparator);
}
