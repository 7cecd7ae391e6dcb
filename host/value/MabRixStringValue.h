/// One text (MabRixSAXHandlerString), handed up by counted reference. See @ref conventions. @file
#ifndef MabRixStringValue_h
#define MabRixStringValue_h

#include "KelClassMacros.h"
#include "KelUnicodeString.h"
#include "MabIRixValue.h"

/// One text: the element's characters.
class MabRixStringValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixStringValue() = default;
  KelUnicodeString _Value;
};

#endif
