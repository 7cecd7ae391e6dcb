/// Result of a template list query: every template by its OID. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixTemplateQueryResultValue_h
#define MabRixTemplateQueryResultValue_h

#include "KelClassMacros.h"
#include "MabIRixValue.h"
#include "MabRixTemplateDetails.h"

class MabRixTemplateQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixTemplateQueryResultValue() = default;
  MabRixTemplateDetailsKelUnicodeStringDico _Value;  ///< OID to template
};

#endif
