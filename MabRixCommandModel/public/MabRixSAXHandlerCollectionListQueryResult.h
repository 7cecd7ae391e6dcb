/// Reads the list of collections: one "row" per collection with a "name" and
/// a "description" element, into a MabRixStringMapValue from name to
/// description. The value goes to the parent when the handler's own element
/// closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerCollectionListQueryResult_h
#define MabRixSAXHandlerCollectionListQueryResult_h

#include "MabRixSAXHandlerBase.h"

class MabRixStringMapValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerCollectionListQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerCollectionListQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerCollectionListQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// The result under construction.
  MabRixStringMapValue* GetCollectionListValue() const { return _pCollectionListValue; }

private:
  KelUnicodeString _CurrentElementName;
  /// Cleared only at the end of a "row": a name or description read outside
  /// any row joins the next row.
  KelUnicodeString _Name;
  KelUnicodeString _Description;
  MabRixStringMapValue* _pCollectionListValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerCollectionListQueryResult)

#endif
