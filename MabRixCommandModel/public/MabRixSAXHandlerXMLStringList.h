/// Reads a list written as child elements of one name: the text of each item
/// element, read by a string handler, in document order. Hands a
/// MabRixStringListValue to its parent when the list element closes. Elements
/// of other names are skipped. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerXMLStringList_h
#define MabRixSAXHandlerXMLStringList_h

#include "KelUnicodeStringList.h"
#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerXMLStringList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  MabRixSAXHandlerXMLStringList(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iItemElement);
  ~MabRixSAXHandlerXMLStringList() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  KelUnicodeString _ItemElement;
  KelUnicodeString _CurrentElement;  ///< the element most recently started
  KelUnicodeStringList _Items;
};

MabRixDeclareTIE(MabRixSAXHandlerXMLStringList)

#endif
