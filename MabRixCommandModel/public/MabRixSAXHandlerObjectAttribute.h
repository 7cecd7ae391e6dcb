/// Reads the content of one cadobject element into a
/// MabRixObjectAttributeValue: the text of every simple child element under
/// its name, the "preview" text also as a path, and every attribute element
/// as a name/value pair. Hands the value to its parent when cadobject closes.
/// Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerObjectAttribute_h
#define MabRixSAXHandlerObjectAttribute_h

#include "MabRixSAXHandlerBase.h"

class MabRixAttributeValue;
class MabRixObjectAttributeValue;
class MabRixStringValueFormat;

class ExportedByMabRixCommandModel MabRixSAXHandlerObjectAttribute : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerObjectAttribute(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerObjectAttribute() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  friend class MabRixSAXHandlerBase;
  void Renew();
  void KeepElementText(const KelUnicodeString& iText);
  bool KeepAttribute(const MabRixAttributeValue& iAttribute);

  KelUnicodeString _CurrentElement;                              ///< the child element most recently started
  MabRixStringValueFormat* _pStringFormat = nullptr;             ///< owned: the format of every attribute's value
  MabRixObjectAttributeValue* _pObjectAttributeValue = nullptr;  ///< owned: one reference
  /// Finished children no one else holds, one of each class, waiting for the
  /// next element that needs one: records repeat the same children.
  MabIRixSAXHandler_var _spSpareString;
  MabIRixSAXHandler_var _spSpareAttribute;
};

MabRixDeclareTIE(MabRixSAXHandlerObjectAttribute)

#endif
