/// Reads a failure element into a MabRixFailureResponse: the attributes
/// "cname" and "errorcode" of the element itself and the text of its "reason"
/// child. The response is read through GetResponse; nothing is handed to the
/// parent. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerFailure_h
#define MabRixSAXHandlerFailure_h

#include "MabRixSAXHandlerBase.h"

class MabRixFailureResponse;

class ExportedByMabRixCommandModel MabRixSAXHandlerFailure : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerFailure(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerFailure() override;

  /// Reads the failure element's own attributes, then takes the parser.
  HRESULT StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT GetResponse(MabIRixResponse_var& oResponse) override;

private:
  MabRixFailureResponse* _pFailureResponse = nullptr;  ///< owns one reference
};

MabRixDeclareTIE(MabRixSAXHandlerFailure)

#endif
