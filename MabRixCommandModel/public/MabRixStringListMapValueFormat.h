/// Format of a map of string lists, in one of two written forms fixed at
/// construction: XML ("attribute" elements whose values are cut by the list
/// separator, read by MabRixSAXHandlerXMLStringListMap) or delimited (one text
/// cut by three separators, read by MabRixSAXHandlerStringListMap). Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringListMapValueFormat_h
#define MabRixStringListMapValueFormat_h

#include "MabRixValueFormat.h"

class ExportedByMabRixCommandModel MabRixStringListMapValueFormat : public MabRixValueFormat
{
  KelDeclareClass

public:
  /// XML form: only the list separator is used.
  explicit MabRixStringListMapValueFormat(const KelUnicodeString& iListSeparator);
  /// Delimited form.
  MabRixStringListMapValueFormat(const KelUnicodeString& iFirstSeparator, const KelUnicodeString& iSecondSeparator,
                                 const KelUnicodeString& iListSeparator);
  MabRixStringListMapValueFormat(const MabRixStringListMapValueFormat&) = default;
  MabRixStringListMapValueFormat& operator=(const MabRixStringListMapValueFormat&) = default;
  ~MabRixStringListMapValueFormat() override;

  HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) override;

  bool IsXML() const { return _IsXML != 0; }
  const KelUnicodeString& GetFirstSeparator() const { return _FirstSeparator; }
  const KelUnicodeString& GetSecondSeparator() const { return _SecondSeparator; }
  const KelUnicodeString& GetListSeparator() const { return _ListSeparator; }

private:
  unsigned char _IsXML;
  KelUnicodeString _FirstSeparator;
  KelUnicodeString _SecondSeparator;
  KelUnicodeString _ListSeparator;
};

#endif
