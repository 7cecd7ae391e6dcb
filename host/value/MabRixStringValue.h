#ifndef MabRixStringValue_h
#define MabRixStringValue_h

#include "KelClassMacros.h"
#include "KelUnicodeString.h"
#include "MabIRixValue.h"

class MabRixStringValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixStringValue() = default;
  KelUnicodeString _Value;
};

#endif
