/// The response of a command the server could not carry out: the reason and
/// the server's error code, besides the command's name. Ownership, threads, errors: @ref conventions. @file
#ifndef MabIRixFailureResponse_h
#define MabIRixFailureResponse_h

#include "MabIRixResponse.h"

class MabIRixFailureResponse : public virtual MabIRixResponse
{
public:
  virtual const KelUnicodeString& GetReason() const = 0;
  virtual const KelUnicodeString& GetErrorCode() const = 0;
};

typedef KelVar<MabIRixFailureResponse> MabIRixFailureResponse_var;

#endif
