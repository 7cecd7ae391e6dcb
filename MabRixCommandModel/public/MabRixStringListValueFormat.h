/// Format of a list written as one text cut by a separator: read by
/// MabRixSAXHandlerStringList. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringListValueFormat_h
#define MabRixStringListValueFormat_h

#include "MabRixValueFormat.h"

class ExportedByMabRixCommandModel MabRixStringListValueFormat : public MabRixValueFormat
{
  KelDeclareClass

public:
  explicit MabRixStringListValueFormat(const KelUnicodeString& iSeparator);
  MabRixStringListValueFormat(const MabRixStringListValueFormat&) = default;
  MabRixStringListValueFormat& operator=(const MabRixStringListValueFormat&) = default;
  ~MabRixStringListValueFormat() override;

  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override;

  const KelUnicodeString& GetListSeparator() const { return _ListSeparator; }

private:
  KelUnicodeString _ListSeparator;
};

#endif
