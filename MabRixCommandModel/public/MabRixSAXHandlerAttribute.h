/// Reads one attribute element: a "name" child, then a "value" child whose
/// shape is given by a value format (one fixed format, or the format the
/// attribute's name selects in a format map). Hands a MabRixAttributeValue to
/// its parent when the attribute element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerAttribute_h
#define MabRixSAXHandlerAttribute_h

#include "KelDicos.h"
#include "MabRixSAXHandlerBase.h"

class MabRixAttributeValue;
class MabRixValueFormat;

class ExportedByMabRixCommandModel MabRixSAXHandlerAttribute : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// iFormatMap: attribute name to MabRixValueFormat. Borrowed: it must
  /// outlive the handler.
  MabRixSAXHandlerAttribute(MabRixSAXHandlerBase& iParent, KelBaseUnknown_varKelUnicodeStringDico& iFormatMap);
  /// iFormat: the format of every value. Borrowed: it must outlive the
  /// handler.
  MabRixSAXHandlerAttribute(MabRixSAXHandlerBase& iParent, MabRixValueFormat& iFormat);
  ~MabRixSAXHandlerAttribute() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  friend class MabRixSAXHandlerBase;
  void Renew(MabRixValueFormat& iFormat);
  HRESULT EndAttribute();
  void EndName();
  void KeepSpareValue(MabRixAttributeValue* ipValue);

  MabRixAttributeValue* _pAttributeValue = nullptr;               ///< owns one reference
  KelBaseUnknown_varKelUnicodeStringDico* _pFormatMap = nullptr;  ///< borrowed
  MabRixValueFormat* _pFormat = nullptr;                          ///< borrowed; null once the value's handler exists
  MabRixAttributeValue* _pSpareValue = nullptr;                   ///< owns one reference: built earlier, kept by no one
};

MabRixDeclareTIE(MabRixSAXHandlerAttribute)

#endif
