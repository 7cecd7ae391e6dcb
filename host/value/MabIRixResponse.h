/// A command's response as the command layer reads it. Ownership, threads, errors: @ref conventions. @file
#ifndef MabIRixResponse_h
#define MabIRixResponse_h

#include "KelBaseUnknown.h"
#include "KelUnicodeString.h"
#include "KelVar.h"

class MabIRixResponse : public virtual KelBaseUnknown
{
public:
  virtual const KelUnicodeString& GetCommandName() const = 0;
  virtual unsigned char Success() const = 0;
  virtual unsigned char Request() const = 0;
};

typedef KelVar<MabIRixResponse> MabIRixResponse_var;

#endif
