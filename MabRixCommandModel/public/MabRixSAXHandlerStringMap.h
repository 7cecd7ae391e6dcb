/// Leaf handler: reads the text of one element as a map (entries and key from
/// value cut by two separators) and hands a MabRixStringMapValue to its parent
/// when the element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerStringMap_h
#define MabRixSAXHandlerStringMap_h

#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerStringMap : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// The separators go to MabRixStringUtils::GetMap in this order.
  MabRixSAXHandlerStringMap(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iFirstSeparator,
                            const KelUnicodeString& iSecondSeparator);
  ~MabRixSAXHandlerStringMap() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  MabIRixValue_var BuildValue() const;

  KelUnicodeString _FirstSeparator;
  KelUnicodeString _SecondSeparator;
};

MabRixDeclareTIE(MabRixSAXHandlerStringMap)

#endif
