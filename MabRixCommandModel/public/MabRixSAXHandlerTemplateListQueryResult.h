/// Reads a template list: one "row" per template, with name, type, revision
/// and OID as attributes and "filename" and "format" as child elements, into a
/// MabRixTemplateQueryResultValue keyed by OID. The value goes to the parent
/// when the handler's own element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerTemplateListQueryResult_h
#define MabRixSAXHandlerTemplateListQueryResult_h

#include "MabRixSAXHandlerBase.h"
#include "MabRixTemplateDetails.h"

class MabRixTemplateQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerTemplateListQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerTemplateListQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerTemplateListQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// The result under construction.
  MabRixTemplateQueryResultValue* GetTemplateQueryResultValue() const { return _pTemplateDetailsValue; }

private:
  KelUnicodeString _CurrentElementName;
  /// Never cleared between rows: a row without "filename" or "format" keeps
  /// the previous row's file name or format.
  MabRixTemplateDetails _CurrentTemplate;
  MabRixTemplateQueryResultValue* _pTemplateDetailsValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerTemplateListQueryResult)

#endif
