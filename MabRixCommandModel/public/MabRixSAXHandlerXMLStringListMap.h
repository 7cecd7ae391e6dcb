/// Reads a map of lists written as "attribute" elements: each attribute's value is one text
/// cut into a list by the separator (through a string list format). Hands a
/// MabRixStringListMapValue to its parent when the map element closes. Any other element
/// inside the map is a failure at its end. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerXMLStringListMap_h
#define MabRixSAXHandlerXMLStringListMap_h

#include "KelDicos.h"
#include "MabRixSAXHandlerBase.h"

class MabRixStringListValueFormat;

class ExportedByMabRixCommandModel MabRixSAXHandlerXMLStringListMap : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  MabRixSAXHandlerXMLStringListMap(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iListSeparator);
  ~MabRixSAXHandlerXMLStringListMap() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  KelUnicodeString _ListSeparator;
  MabRixStringListValueFormat* _pListFormat = nullptr;  ///< owned
  KelUnicodeStringListKelUnicodeStringDico _Entries;
};

MabRixDeclareTIE(MabRixSAXHandlerXMLStringListMap)

#endif
