// Reads the text of one element of an XML file through a String handler and
// prints it: the smallest command layer there is.
#include <cstdio>

#include "KelExpatParser.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"

namespace
{
class RootHandler : public MabRixSAXHandlerBase
{
public:
  RootHandler(KelISAXParser_var& iParser, const char* iElement) : MabRixSAXHandlerBase(iParser), _Element(iElement) {}

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    if (iName != _Element)
      return S_OK;
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(*this));
    return _spChildHandler->StartHandlingEvents(iName, iAttributes);
  }

  HRESULT Value(const MabIRixValue_var& iValue) override
  {
    if (const MabRixStringValue* pString = KelImplCast<MabRixStringValue>(iValue.Get()))
      std::printf("%s\n", pString->_Value.ConvertToChar());
    return S_OK;
  }

private:
  KelUnicodeString _Element;
};
}  // namespace

int main(int argc, char** argv)
{
  if (argc != 3)
  {
    std::fprintf(stderr, "usage: read_string FILE ELEMENT\n");
    return 2;
  }
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(new KelExpatParser());
  KelExpatParser* pParser = KelImplCast<KelExpatParser>(spParser.Get());
  pParser->SetDocumentHandler(KelISAXDocumentHandler_var::Adopt(new RootHandler(spParser, argv[2])));
  if (FAILED(pParser->ParseFile(argv[1])) && pParser->HasParseError())
  {
    const KelSAXParseError& Error = pParser->GetParseError();
    std::fprintf(stderr, "%s:%d:%d: %s\n", argv[1], Error._Line, Error._Column, Error._Message.ConvertToChar());
    return 3;
  }
  return 0;
}
