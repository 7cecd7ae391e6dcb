#include "MabRixSAXHandlerStringList.h"

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
  MabRixStringListValue* pValue = new MabRixStringListValue();
  pValue->_Value = MabRixStringUtils::GetList(_Characters, _ListSeparator);
  return MabIRixValue_var::Adopt(pValue);
}
