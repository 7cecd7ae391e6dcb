/// Reads the description of one saved query: its "name" and "description",
/// and inside "criteria" the criteria name, "revision", "owner", "type" and
/// "vault" lists (comma separated) and named "property" elements, basic or
/// not. The parts go to the query record of a MabRixSavedQueryResultValue as
/// they arrive; the value goes to the parent when the handler's own element
/// closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerSavedQueryResult_h
#define MabRixSAXHandlerSavedQueryResult_h

#include "KelUnicodeStringList.h"
#include "MabRixSAXHandlerBase.h"

class MabIRixSavedQueryRecord;
class MabRixSavedQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerSavedQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerSavedQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerSavedQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// The result under construction; its query record may be replaced before
  /// the reading starts.
  MabRixSavedQueryResultValue* GetSavedQueryResultValue() const { return _pSavedQueryResultValue; }

private:
  HRESULT StoreText(MabIRixSavedQueryRecord& ioRecord, const KelUnicodeString& iText);
  HRESULT StoreList(MabIRixSavedQueryRecord& ioRecord, const KelUnicodeStringList& iList);

  /// Set by a "property" of type "basic" and cleared only by the next end
  /// tag this handler itself receives while "property" is the current
  /// element: in a run of properties, every one after a basic one is basic.
  unsigned char _IsBasicProperty = 0;
  unsigned char _InCriteria = 0;
  KelUnicodeString _CurrentElementName;
  KelUnicodeString _CurrentPropertyName;
  KelUnicodeString _SavedQueryName;
  KelUnicodeString _SavedQueryDescription;
  MabRixSavedQueryResultValue* _pSavedQueryResultValue = nullptr;
};

MabRixDeclareTIE(MabRixSAXHandlerSavedQueryResult)

#endif
