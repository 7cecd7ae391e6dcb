/// One attribute of an object: its name, its value (any kind) and whether it is enforced. See @ref conventions. @file
#ifndef MabRixAttributeValue_h
#define MabRixAttributeValue_h

#include "KelClassMacros.h"
#include "KelUnicodeString.h"
#include "MabIRixValue.h"

class MabRixAttributeValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixAttributeValue() = default;
  unsigned char _Enforced = 0;  ///< the value's type was "enforced"
  KelUnicodeString _Name;
  MabIRixValue_var _Value;
};

#endif
