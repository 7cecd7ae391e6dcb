/// What a failure element says: the failed command's name, the server's error
/// code (kept as text) and the reason. Filled by MabRixSAXHandlerFailure and
/// read through its GetResponse. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixFailureResponse_h
#define MabRixFailureResponse_h

#include "KelClassMacros.h"
#include "MabIRixFailureResponse.h"
#include "MabRixCommandModelExport.h"

class ExportedByMabRixCommandModel MabRixFailureResponse : public virtual MabIRixFailureResponse
{
  KelDeclareClass

public:
  MabRixFailureResponse();
  MabRixFailureResponse(const MabRixFailureResponse& iOther);
  MabRixFailureResponse& operator=(const MabRixFailureResponse& iOther);
  ~MabRixFailureResponse() override;

  const KelUnicodeString& GetCommandName() const override;
  /// A failure response is neither a success nor a request.
  unsigned char Success() const override;
  unsigned char Request() const override;
  const KelUnicodeString& GetReason() const override;
  const KelUnicodeString& GetErrorCode() const override;

  KelUnicodeString _CommandName;
  KelUnicodeString _Reason;
  KelUnicodeString _ErrorCode;
};

ExportedByMabRixCommandModel MabIRixFailureResponse* CreateBOAMabIRixFailureResponseMabRixFailureResponse(
    MabRixFailureResponse& iImplementation);

#endif
