// Reads an object list into a TNR context the way a command layer does, with
// its own root handler, spelling the result names without qualification:
// included after whichever declarations of those names a test wants to try.
#ifndef MabRixReadObjectList_h
#define MabRixReadObjectList_h

#include <string>

#include "KelExpatParser.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixTNRObjectContext.h"

namespace
{
class MabRixObjectListRoot : public MabRixSAXHandlerBase
{
public:
  MabRixObjectListRoot(KelISAXParser_var& iParser, MabRixTNRObjectContext*& ioContext)
      : MabRixSAXHandlerBase(iParser), _rpContext(ioContext)
  {
  }

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    if (!!_spChildHandler)
      return S_OK;
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerObjectList(*this, _rpContext));
    return _spChildHandler->StartHandlingEvents(iName, iAttributes);
  }

private:
  MabRixTNRObjectContext*& _rpContext;
};

// The parse result; ioContext receives the objects.
HRESULT MabRixReadObjectList(const std::string& iXml, MabRixTNRObjectContext*& ioContext)
{
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
  KelISAXParser_var spISAXParser(spParser);
  if (FAILED(spParser->SetDocumentHandler(
          KelISAXDocumentHandler_var::Adopt(new MabRixObjectListRoot(spISAXParser, ioContext)))))
    return E_UNEXPECTED;
  return spParser->Parse(iXml);
}

// One locked part in a list.
const char* const MabRixOneObjectList =
    "<objectlist><cadobject cadid=\"c-1001\" busid=\"20541.33102.6610.7781\" bustype=\"CAD Part\" "
    "zqtype=\"CAD Model\" type=\"part\" name=\"Bracket-100\" zqversion=\"A.3\" oid=\"20541.33102.6610.7000\" "
    "islocked=\"TRUE\"/></objectlist>";
}  // namespace

#endif
