#include "MabRixFailureResponse.h"

MabRixImplementClass(MabRixFailureResponse, KelBaseUnknown)

MabIRixFailureResponse* CreateBOAMabIRixFailureResponseMabRixFailureResponse(MabRixFailureResponse& iImplementation)
{
  return &iImplementation;
}

MabRixFailureResponse::MabRixFailureResponse() = default;

// A copy is a new object with its own reference count.
// NOLINTNEXTLINE(bugprone-copy-constructor-init)
MabRixFailureResponse::MabRixFailureResponse(const MabRixFailureResponse& iOther)
    : KelBaseUnknown(), MabIRixResponse(), MabIRixFailureResponse(), _CommandName(iOther._CommandName),
      _Reason(iOther._Reason), _ErrorCode(iOther._ErrorCode)
{
}

MabRixFailureResponse& MabRixFailureResponse::operator=(const MabRixFailureResponse& iOther)
{
  _CommandName = iOther._CommandName;
  _Reason = iOther._Reason;
  _ErrorCode = iOther._ErrorCode;
  return *this;
}

MabRixFailureResponse::~MabRixFailureResponse() = default;

const KelUnicodeString& MabRixFailureResponse::GetCommandName() const { return _CommandName; }

unsigned char MabRixFailureResponse::Success() const { return 0; }

unsigned char MabRixFailureResponse::Request() const { return 0; }

const KelUnicodeString& MabRixFailureResponse::GetReason() const { return _Reason; }

const KelUnicodeString& MabRixFailureResponse::GetErrorCode() const { return _ErrorCode; }
