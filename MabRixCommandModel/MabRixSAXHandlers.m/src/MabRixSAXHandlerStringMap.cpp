#include "MabRixSAXHandlerStringMap.h"

#include <new>

#include "MabRixLeafHandlerMacros.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringUtils.h"

MabRixImplementHandler(MabRixSAXHandlerStringMap, MabRixSAXHandlerBase)

MabRixSAXHandlerStringMap::MabRixSAXHandlerStringMap(MabRixSAXHandlerBase& iParent,
                                                     const KelUnicodeString& iFirstSeparator,
                                                     const KelUnicodeString& iSecondSeparator)
    : MabRixSAXHandlerBase(iParent), _FirstSeparator(iFirstSeparator), _SecondSeparator(iSecondSeparator)
{
}

MabRixSAXHandlerStringMap::~MabRixSAXHandlerStringMap() = default;

MabRixImplementLeafStartElement(MabRixSAXHandlerStringMap)
MabRixImplementLeafEndElement(MabRixSAXHandlerStringMap)

MabIRixValue_var MabRixSAXHandlerStringMap::BuildValue() const
{
  MabRixStringMapValue* pValue = new (std::nothrow) MabRixStringMapValue();
  if (!pValue)
    return nullptr;  // no value to hand up
  pValue->_Value = MabRixStringUtils::GetMap(_Characters, _FirstSeparator, _SecondSeparator);
  return MabIRixValue_var::Adopt(pValue);
}
