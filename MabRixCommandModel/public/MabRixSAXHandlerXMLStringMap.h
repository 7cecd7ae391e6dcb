/// Reads a map written as child elements, in one of two modes fixed by the
/// constructor:
/// - attribute mode: one "attribute" element per entry (name and string
/// value, read by an attribute handler with a string format);
/// - key/value mode: a key element then a value element per entry, read from
/// their text directly; the first value of a key wins. Ownership, threads, errors: @ref conventions.
/// Hands a MabRixStringMapValue to its parent when the map element closes. @file
#ifndef MabRixSAXHandlerXMLStringMap_h
#define MabRixSAXHandlerXMLStringMap_h

#include "KelDicos.h"
#include "MabRixSAXHandlerBase.h"

class MabRixStringValueFormat;

class ExportedByMabRixCommandModel MabRixSAXHandlerXMLStringMap : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// Attribute mode.
  explicit MabRixSAXHandlerXMLStringMap(MabRixSAXHandlerBase& iParent);
  /// Key/value mode.
  MabRixSAXHandlerXMLStringMap(MabRixSAXHandlerBase& iParent, const KelUnicodeString& iKeyElement,
                               const KelUnicodeString& iValueElement);
  ~MabRixSAXHandlerXMLStringMap() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  bool IsKeyValueMode() const { return !_KeyElement.IsEmpty() || !_ValueElement.IsEmpty(); }
  void KeepKeyOrValue();

  KelUnicodeStringKelUnicodeStringDico _Entries;
  MabRixStringValueFormat* _pStringFormat = nullptr;  ///< owned; attribute mode only
  KelUnicodeString _CurrentElement;                   ///< the element most recently started
  KelUnicodeString _KeyElement;
  KelUnicodeString _ValueElement;
  KelUnicodeString _CurrentKey;  ///< text of the last key element; never cleared
};

MabRixDeclareTIE(MabRixSAXHandlerXMLStringMap)

#endif
