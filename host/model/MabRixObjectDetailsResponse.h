/// What the command layer tells the object-details reading about the client:
/// whether it can resolve UUID conflicts (FALSE unless set). Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixObjectDetailsResponse_h
#define MabRixObjectDetailsResponse_h

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelResult.h"
#include "KelVar.h"

class MabRixObjectDetailsResponse : public KelBaseUnknown
{
  KelDeclareClass

public:
  MabRixObjectDetailsResponse() = default;

  virtual unsigned char CanResolveUUIDConflict() { return _bCanResolveUUIDConflict; }
  void _SetCanResolveUUIDConflict(unsigned char iCan) { _bCanResolveUUIDConflict = iCan; }

private:
  unsigned char _bCanResolveUUIDConflict = KelFalse;
};

typedef KelVar<MabRixObjectDetailsResponse> MabRixObjectDetailsResponse_var;

#endif
