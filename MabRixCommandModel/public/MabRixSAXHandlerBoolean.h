/// Leaf handler: reads the text of one element into a MabRixBooleanValue and
/// hands it to its parent when the element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerBoolean_h
#define MabRixSAXHandlerBoolean_h

#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerBoolean : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerBoolean(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerBoolean() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
};

MabRixDeclareTIE(MabRixSAXHandlerBoolean)

#endif
