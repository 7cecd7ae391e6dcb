/// A map of strings, handed up by counted reference. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringMapValue_h
#define MabRixStringMapValue_h

#include "KelClassMacros.h"
#include "KelDicos.h"
#include "MabIRixValue.h"

/// A map of strings: key to text.
class MabRixStringMapValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixStringMapValue() = default;
  KelUnicodeStringKelUnicodeStringDico _Value;
};

#endif
