/// A map from string to a list of strings. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringListMapValue_h
#define MabRixStringListMapValue_h

#include "KelClassMacros.h"
#include "KelDicos.h"
#include "MabIRixValue.h"

class MabRixStringListMapValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixStringListMapValue() = default;
  KelUnicodeStringListKelUnicodeStringDico _Value;
};

#endif
