/// Leaf handler: reads the text of one element as a map whose values are lists and hands a MabRixStringListMapValue
/// to its parent when the element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerStringListMap_h
#define MabRixSAXHandlerStringListMap_h

#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerStringListMap : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// The separators go to MabRixStringUtils::GetListMap in this order.
  MabRixSAXHandlerStringListMap(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iFirstSeparator,
                                const KelUnicodeString& iSecondSeparator, const KelUnicodeString& iListSeparator);
  ~MabRixSAXHandlerStringListMap() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  MabIRixValue_var BuildValue() const;

  KelUnicodeString _FirstSeparator;
  KelUnicodeString _SecondSeparator;
  KelUnicodeString _ListSeparator;
};

MabRixDeclareTIE(MabRixSAXHandlerStringListMap)

#endif
