// Small steps shared by the query result handlers. Checks stay in the
// handlers' own sources, so their reports name the handler's file and line.
#ifndef MabRixQueryResultSupport_h
#define MabRixQueryResultSupport_h

#include <cstring>
#include <string_view>

#include "KelISAXAttributeList.h"
#include "KelUnicodeString.h"
#include "MabIRixSAXHandler.h"
#include "MabIRixValue.h"
#include "MabRixTextSupport.h"

// The attribute iName of the element being started; empty when the element
// does not carry it. Every read starts from an empty string, so a missing
// attribute never repeats the one read before it.
inline KelUnicodeString MabRixGetAttribute(const KelISAXAttributeList_var& iAttributes, const char* iName)
{
  KelUnicodeString Value;
  (void)MabRixCopyAttribute(iAttributes, iName, Value);
  return Value;
}

// The same into oValue, in the room it already has: a handler reading every
// row into the same strings allocates nothing once they have grown.
inline void MabRixReadAttribute(const KelISAXAttributeList_var& iAttributes, std::string_view iName,
                                KelUnicodeString& oValue)
{
  std::string_view Value;
  if (!iAttributes || FAILED(iAttributes->GetValueView(iName, Value)))
    Value = std::string_view();
  oValue.Assign(Value);
}

// Makes ipChild the child handler, adopting its creation reference, and
// starts it on the element that has just opened. S_OK when there is no child
// (its allocation failed).
inline HRESULT MabRixStartChild(MabIRixSAXHandler_var& oChild, MabIRixSAXHandler* ipChild,
                                const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  oChild = MabIRixSAXHandler_var::Adopt(ipChild);
  return !oChild ? S_OK : oChild->StartHandlingEvents(iName, iAttributes);
}

// True when the implementation behind iValue is of class iClassName. A null
// iValue raises the host's null-reference error.
inline bool MabRixValueIsA(const MabIRixValue_var& iValue, const char* iClassName)
{
  return std::strcmp(iValue->GetImpl()->IsA(), iClassName) == 0;
}

#endif
