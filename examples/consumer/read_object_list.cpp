// Reads an object list into a TNR context through the library's reader and
// prints the objects. The context is the program's: the handler borrows it.
#include <cstdio>

#include <MabRix/MabRixResponseReader.h>
#include <MabRix/MabRixSAXHandlerObjectList.h>
#include <MabRix/MabRixTNRObjectContext.h>

int main(int iArgc, char** iArgv)
{
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  const MabRixResponseReader Reader([&pContext](MabRixSAXHandlerBase& iRoot) {
    return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerObjectList(iRoot, pContext));
  });
  const MabRixReadResult Result = Reader.ReadFile(iArgc > 1 ? iArgv[1] : "objects.xml");
  for (const MabERixMinorObject_var& Minor : pContext->GetMinorObjects())
    std::printf("%s %s.%s\n", Minor->GetKeyName().ConvertToChar(), Minor->GetKeyRevision().ConvertToChar(),
                Minor->GetKeyVersion().ConvertToChar());
  if (Result._ParseError)
    std::fprintf(stderr, "line %d, column %d: %s\n", Result._ParseError->_Line, Result._ParseError->_Column,
                 Result._ParseError->_Message.ConvertToChar());
  pContext->Release();
  return Result.Succeeded() ? 0 : 1;
}
