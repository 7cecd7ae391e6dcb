// Reads the text of one element of an XML file through a String handler and
// prints it: the smallest command layer there is.
#include <cstdio>

#include <MabRix/MabRixResponseReader.h>
#include <MabRix/MabRixSAXHandlerString.h>
#include <MabRix/MabRixStringValue.h>

int main(int argc, char** argv)
{
  if (argc != 3)
  {
    std::fprintf(stderr, "usage: read_string FILE ELEMENT\n");
    return 2;
  }
  MabRixResponseReader::Options Options;
  Options._StartAt = argv[2];
  const MabRixReadResult Result =
      MabRixResponseReader(
          [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(iRoot)); },
          Options)
          .ReadFile(argv[1]);
  if (Result._ParseError)
  {
    std::fprintf(stderr, "%s:%d:%d: %s\n", argv[1], Result._ParseError->_Line, Result._ParseError->_Column,
                 Result._ParseError->_Message.ConvertToChar());
    return 3;
  }
  for (const MabIRixValue_var& Value : Result._Values)
    if (const MabRixStringValue* pString = KelImplCast<MabRixStringValue>(Value.Get()))
      std::printf("%s\n", pString->_Value.ConvertToChar());
  return 0;
}
