#include "MabRixSAXHandlerStringList.h"

#include <new>

#include "MabRixLeafHandlerMacros.h"
#include "MabRixStringListValue.h"
#include "MabRixStringUtils.h"

MabRixImplementHandler(MabRixSAXHandlerStringList, MabRixSAXHandlerBase)

MabRixSAXHandlerStringList::MabRixSAXHandlerStringList(MabRixSAXHandlerBase& iParent,
                                                       const KelUnicodeString& iListSeparator)
    : MabRixSAXHandlerBase(iParent), _ListSeparator(iListSeparator)
{
}

MabRixSAXHandlerStringList::~MabRixSAXHandlerStringList() = default;

MabRixImplementLeafStartElement(MabRixSAXHandlerStringList)
MabRixImplementLeafEndElement(MabRixSAXHandlerStringList)

// The text is cut once, whole, so a separator split across two text events
// is still found.
MabIRixValue_var MabRixSAXHandlerStringList::BuildValue() const
{
  MabRixStringListValue* pValue = new (std::nothrow) MabRixStringListValue();
  if (!pValue)
    return nullptr;  // no value to hand up
  pValue->_Value = MabRixStringUtils::GetList(_Characters, _ListSeparator);
  return MabIRixValue_var::Adopt(pValue);
}
