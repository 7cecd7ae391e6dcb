/// A list of strings, in order. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringListValue_h
#define MabRixStringListValue_h

#include "KelClassMacros.h"
#include "KelUnicodeStringList.h"
#include "MabIRixValue.h"

class MabRixStringListValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixStringListValue() = default;
  KelUnicodeStringList _Value;
};

#endif
