#include "MabRixStringListMapValueFormat.h"

#include "MabRixSAXHandlerStringListMap.h"
#include "MabRixSAXHandlerXMLStringListMap.h"

MabRixImplementClass(MabRixStringListMapValueFormat, MabRixValueFormat)

MabRixStringListMapValueFormat::MabRixStringListMapValueFormat(const KelUnicodeString& iListSeparator)
    : _IsXML(1), _ListSeparator(iListSeparator)
{
}

MabRixStringListMapValueFormat::MabRixStringListMapValueFormat(const KelUnicodeString& iFirstSeparator,
                                                               const KelUnicodeString& iSecondSeparator,
                                                               const KelUnicodeString& iListSeparator)
    : _IsXML(0), _FirstSeparator(iFirstSeparator), _SecondSeparator(iSecondSeparator), _ListSeparator(iListSeparator)
{
}

MabRixStringListMapValueFormat::~MabRixStringListMapValueFormat() = default;

HRESULT MabRixStringListMapValueFormat::GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler)
{
  if (_IsXML)
    return CreateSubHandler<MabRixSAXHandlerXMLStringListMap>(oHandler, iParent, _ListSeparator);
  return CreateSubHandler<MabRixSAXHandlerStringListMap>(oHandler, iParent, _FirstSeparator, _SecondSeparator,
                                                         _ListSeparator);
}
