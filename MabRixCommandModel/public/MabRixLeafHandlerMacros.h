/// The two operations every leaf handler (a handler that reads the text of one
/// element into one value) shares, written once. Macros rather than a shared
/// base: checks report the source file and line of the handler that expands
/// them, and the class chain of each handler stays its own. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixLeafHandlerMacros_h
#define MabRixLeafHandlerMacros_h

#include "KelCheck.h"
#include "MabRixSAXHandlerBase.h"

/// A value element holds no element: any nested start tag is reported and
/// fails.
#define MabRixImplementLeafStartElement(Class)                                                            \
  HRESULT Class::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) \
  {                                                                                                       \
    (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));                    \
    (void)KelCheck(FALSE);                                                                                \
    return E_FAIL;                                                                                        \
  }

/// At the element's close the value the class's BuildValue() makes from the
/// whole text goes to the parent, which then holds the only reference to it.
#define MabRixImplementLeafEndElement(Class)                                                             \
  HRESULT Class::EndElement(const KelUnicodeString& iName)                                               \
  {                                                                                                      \
    if (!StopIfNecessary(iName) && !KelCheckText(false, "ExpressionCheck:this->StopIfNecessary(iName)")) \
      return E_FAIL;                                                                                     \
    const MabIRixValue_var spValue = BuildValue();                                                       \
    if (!KelCheck(!!_spParentHandler))                                                                   \
      return E_FAIL;                                                                                     \
    return _spParentHandler->Value(spValue);                                                             \
  }

#endif
