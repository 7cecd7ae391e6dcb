/// Leaf handler: reads the text of one element into a MabRixStringValue and
/// hands it to its parent when the element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerString_h
#define MabRixSAXHandlerString_h

#include "MabRixSAXHandlerBase.h"

class MabRixStringValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerString : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerString(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerString() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  friend class MabRixSAXHandlerBase;
  friend class MabRixSAXHandlerAttribute;
  void Renew();
  void KeepSpareValue(MabRixStringValue* ipValue);

  // A value built earlier that no one kept: the next one is built in it.
  MabRixStringValue* _pSpareValue = nullptr;  // owns one reference
};

MabRixDeclareTIE(MabRixSAXHandlerString)

#endif
