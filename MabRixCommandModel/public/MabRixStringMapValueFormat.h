/// Format of a map of strings, in one of two written forms fixed at
/// construction: XML (entries as "attribute" elements, read by
/// MabRixSAXHandlerXMLStringMap) or delimited (one text cut by two
/// separators, read by MabRixSAXHandlerStringMap). Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringMapValueFormat_h
#define MabRixStringMapValueFormat_h

#include "MabRixValueFormat.h"

class ExportedByMabRixCommandModel MabRixStringMapValueFormat : public MabRixValueFormat
{
  KelDeclareClass

public:
  /// XML form.
  MabRixStringMapValueFormat();
  /// Delimited form, even when both separators are empty.
  MabRixStringMapValueFormat(const KelUnicodeString& iFirstSeparator, const KelUnicodeString& iSecondSeparator);
  MabRixStringMapValueFormat(const MabRixStringMapValueFormat&) = default;
  MabRixStringMapValueFormat& operator=(const MabRixStringMapValueFormat&) = default;
  ~MabRixStringMapValueFormat() override;

  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override;

  bool IsXML() const { return _IsXML != 0; }
  const KelUnicodeString& GetFirstSeparator() const { return _FirstSeparator; }
  const KelUnicodeString& GetSecondSeparator() const { return _SecondSeparator; }

private:
  unsigned char _IsXML;
  KelUnicodeString _FirstSeparator;
  KelUnicodeString _SecondSeparator;
};

#endif
