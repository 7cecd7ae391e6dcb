/// Format of a value written as a truth text ("yes" or "true"): read by
/// MabRixSAXHandlerBoolean. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixBooleanValueFormat_h
#define MabRixBooleanValueFormat_h

#include "MabRixValueFormat.h"

class ExportedByMabRixCommandModel MabRixBooleanValueFormat : public MabRixValueFormat
{
  KelDeclareClass

public:
  MabRixBooleanValueFormat() = default;
  MabRixBooleanValueFormat(const MabRixBooleanValueFormat&) = default;
  ~MabRixBooleanValueFormat() override;

  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override;
};

#endif
