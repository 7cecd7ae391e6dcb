#include "MabRixSAXHandlerStringListMap.h"

#include <new>

#include "MabRixLeafHandlerMacros.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringUtils.h"

MabRixImplementHandler(MabRixSAXHandlerStringListMap, MabRixSAXHandlerBase)

MabRixSAXHandlerStringListMap::MabRixSAXHandlerStringListMap(MabRixSAXHandlerBase& iParent,
                                                             const KelUnicodeString& iFirstSeparator,
                                                             const KelUnicodeString& iSecondSeparator,
                                                             const KelUnicodeString& iListSeparator)
    : MabRixSAXHandlerBase(iParent), _FirstSeparator(iFirstSeparator), _SecondSeparator(iSecondSeparator),
      _ListSeparator(iListSeparator)
{
}

MabRixSAXHandlerStringListMap::~MabRixSAXHandlerStringListMap() = default;

MabRixImplementLeafStartElement(MabRixSAXHandlerStringListMap)
MabRixImplementLeafEndElement(MabRixSAXHandlerStringListMap)

MabIRixValue_var MabRixSAXHandlerStringListMap::BuildValue() const
{
  MabRixStringListMapValue* pValue = new (std::nothrow) MabRixStringListMapValue();
  if (!pValue)
    return nullptr;  // no value to hand up
  pValue->_Value = MabRixStringUtils::GetListMap(_Characters, _FirstSeparator, _SecondSeparator, _ListSeparator);
  return MabIRixValue_var::Adopt(pValue);
}
