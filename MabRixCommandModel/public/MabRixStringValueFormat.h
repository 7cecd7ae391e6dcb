/// Format of a value written as plain text: read by MabRixSAXHandlerString. See @ref conventions. @file
#ifndef MabRixStringValueFormat_h
#define MabRixStringValueFormat_h

#include "MabRixValueFormat.h"

class ExportedByMabRixCommandModel MabRixStringValueFormat : public MabRixValueFormat
{
  KelDeclareClass

public:
  MabRixStringValueFormat() = default;
  MabRixStringValueFormat(const MabRixStringValueFormat&) = default;
  ~MabRixStringValueFormat() override;

  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override;
};

#endif
