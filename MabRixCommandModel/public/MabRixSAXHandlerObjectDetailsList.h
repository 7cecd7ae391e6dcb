// Reads the answer to an object-details command, a list of cadobject
// elements, straight into a CAD object context: for each cadobject the
// object, its current major object and its minor object are got or made and
// their properties set from the element's attributes, its revisioninfo and
// access records and its text elements. Hands nothing to its parent.
#ifndef MabRixSAXHandlerObjectDetailsList_h
#define MabRixSAXHandlerObjectDetailsList_h

#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixObjectDetailsResponse.h"
#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerObjectDetailsList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  // The context is borrowed, never released.
  MabRixSAXHandlerObjectDetailsList(MabRixSAXHandlerBase& iParent, MabRixCADObjectContext*& pObjectContext);
  ~MabRixSAXHandlerObjectDetailsList() override;

  // Optional: the response that says whether UUID conflicts can be resolved
  // (borrowed, never released).
  HRESULT SetObjDetailsResponsePtr(MabRixObjectDetailsResponse* iResponse);

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  HRESULT StartCADObject(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT StartRevisionInfo(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT StartTextElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT Flush();
  HRESULT FlushRevInfo();

  unsigned char _bInCADObject = FALSE;
  unsigned char _bInRevisionInfo = FALSE;  // kept up to date, read by nothing
  KelUnicodeString _CurrentElement;
  KelUnicodeString _Type;
  KelUnicodeString _Name;
  KelUnicodeString _Revision;
  KelUnicodeString _RevInfoRevision;
  KelUnicodeString _Message;
  MabRixCADObjectContext* _pObjectContext = nullptr;
  MabRixObjectDetailsResponse* _pObjDetailsResponse = nullptr;
  // References a revision record takes and never gives back; held here so
  // that they end with the handler.
  std::vector<KelBaseUnknown_var> _KeptReferences;
};

MabRixDeclareTIE(MabRixSAXHandlerObjectDetailsList)

#endif
