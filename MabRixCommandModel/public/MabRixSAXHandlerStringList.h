/// Leaf handler: reads the text of one element as a list cut at every list
/// separator and hands a MabRixStringListValue to its parent when the element
/// closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerStringList_h
#define MabRixSAXHandlerStringList_h

#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerStringList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  MabRixSAXHandlerStringList(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iListSeparator);
  ~MabRixSAXHandlerStringList() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  MabIRixValue_var BuildValue() const;

  KelUnicodeString _ListSeparator;
};

MabRixDeclareTIE(MabRixSAXHandlerStringList)

#endif
