/// A yes/no value (MabRixSAXHandlerBoolean), handed up by counted reference. See @ref conventions. @file
#ifndef MabRixBooleanValue_h
#define MabRixBooleanValue_h

#include "KelClassMacros.h"
#include "MabIRixValue.h"

/// A yes/no value: _Value is 1 or 0.
class MabRixBooleanValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixBooleanValue() = default;
  unsigned char _Value = 1;  ///< true until set
};

#endif
