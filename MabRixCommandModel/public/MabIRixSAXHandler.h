/// Interface every handler offers to the others: the document-handler
/// operations plus the delegation protocol's own four. Ownership, threads, errors: @ref conventions. @file
#ifndef MabIRixSAXHandler_h
#define MabIRixSAXHandler_h

#include "KelISAXDocumentHandler.h"
#include "KelISAXParser.h"
#include "KelVar.h"
#include "MabIRixResponse.h"
#include "MabIRixValue.h"
#include "MabRixCommandModelExport.h"

class ExportedByMabRixCommandModel MabIRixSAXHandler : public virtual KelISAXDocumentHandler
{
public:
  /// Makes the handler the parser's document handler for the element iName.
  virtual HRESULT StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) = 0;
  /// Receives the value a child handler built.
  virtual HRESULT Value(const MabIRixValue_var& iValue) = 0;
  virtual HRESULT GetResponse(MabIRixResponse_var& oResponse) = 0;
  virtual HRESULT GetParser(KelISAXParser_var& ospISAXParser) = 0;
};

typedef KelVar<MabIRixSAXHandler> MabIRixSAXHandler_var;

#endif
