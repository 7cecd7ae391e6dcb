// Leaf handler: reads the text of one element into a MabRixStringValue and
// hands it to its parent when the element closes.
#ifndef MabRixSAXHandlerString_h
#define MabRixSAXHandlerString_h

#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerString : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerString(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerString() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
};

MabRixDeclareTIE(MabRixSAXHandlerString)

#endif
