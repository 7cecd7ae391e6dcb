// The smallest command layer that reads an object list: a root handler
// around the parser starts the object list handler on the document element,
// lends it a TNR context, and the filled context is printed afterwards.
#include <cstdio>

#include "KelExpatParser.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixTNRObjectContext.h"

namespace
{
class CommandLayerRoot : public MabRixSAXHandlerBase
{
public:
  CommandLayerRoot(KelISAXParser_var& iParser, MabRixTNRObjectContext*& ioContext)
      : MabRixSAXHandlerBase(iParser), _rpContext(ioContext)
  {
  }

  // The list handler reads the document element and everything inside it;
  // the root sees events again only after the list has closed.
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

void PrintContext(const MabRixTNRObjectContext& iContext)
{
  for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
  {
    KelUnicodeString Type;
    Minor->GetMinorType(Type);
    std::printf("%s %s %s.%s (%s)\n", Minor->GetObjectID().GetID().ConvertToChar(), Minor->GetKeyName().ConvertToChar(),
                Minor->GetKeyRevision().ConvertToChar(), Minor->GetKeyVersion().ConvertToChar(), Type.ConvertToChar());
  }
  std::printf("%zu objects, %zu major objects, %zu minor objects\n", iContext.GetObjects().size(),
              iContext.GetMajorObjects().size(), iContext.GetMinorObjects().size());
}
}  // namespace

int main(int iArgc, char** iArgv)
{
  if (iArgc != 2)
  {
    std::fprintf(stderr, "usage: read_object_list FILE\n");
    return 2;
  }
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  int Status = 0;
  {
    KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
    KelISAXParser_var spISAXParser(spParser);
    spParser->SetDocumentHandler(KelISAXDocumentHandler_var::Adopt(new CommandLayerRoot(spISAXParser, pContext)));
    const HRESULT Result = spParser->ParseFile(iArgv[1]);
    if (spParser->HasParseError())
    {
      const KelSAXParseError& Error = spParser->GetParseError();
      std::fprintf(stderr, "%s:%d:%d: %s\n", iArgv[1], Error._Line, Error._Column, Error._Message.ConvertToChar());
      Status = 3;
    }
    else if (FAILED(Result))
    {
      std::fprintf(stderr, "%s: the object list failed with 0x%08X\n", iArgv[1], static_cast<unsigned>(Result));
      Status = 1;
    }
  }
  PrintContext(*pContext);
  pContext->Release();
  return Status;
}
