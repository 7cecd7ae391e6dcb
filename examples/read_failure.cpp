// Reads a failure response (the failure element anywhere in the document)
// and prints what the server said: command, error code and reason.
#include <cstdio>

#include <MabRix/MabRixFailureResponse.h>
#include <MabRix/MabRixResponseReader.h>
#include <MabRix/MabRixSAXHandlerFailure.h>

int main(int iArgc, char** iArgv)
{
  if (iArgc != 2)
  {
    std::fprintf(stderr, "usage: read_failure FILE\n");
    return 2;
  }
  MabRixResponseReader::Options Options;
  Options._StartAt = "failure";
  Options._ContinueOnCheck = true;  // a missing attribute is reported, not fatal
  const MabRixResponseReader Reader(
      [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(iRoot)); },
      Options);
  const MabRixReadResult Result = Reader.ReadFile(iArgv[1]);
  if (Result._ParseError)
  {
    std::fprintf(stderr, "%s:%d:%d: %s\n", iArgv[1], Result._ParseError->_Line, Result._ParseError->_Column,
                 Result._ParseError->_Message.ConvertToChar());
    return 3;
  }
  const MabRixFailureResponse* pResponse = Result.GetFailureResponse();
  if (!pResponse)
  {
    std::fprintf(stderr, "%s: no failure element\n", iArgv[1]);
    return 1;
  }
  std::printf("command %s failed with %s: %s\n", pResponse->GetCommandName().ConvertToChar(),
              pResponse->GetErrorCode().ConvertToChar(), pResponse->GetReason().ConvertToChar());
  for (const MabRixReadResult::CheckReport& Check : Result._Checks)
    std::printf("check: %s\n", Check._Text.c_str());
  return 0;
}
