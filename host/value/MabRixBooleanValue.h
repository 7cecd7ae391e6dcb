#ifndef MabRixBooleanValue_h
#define MabRixBooleanValue_h

#include "KelClassMacros.h"
#include "MabIRixValue.h"

class MabRixBooleanValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixBooleanValue() = default;
  unsigned char _Value = 1;  // true until set
};

#endif
