#include "MabRixHandlerSteps.h"

#include "KelError.h"
#include "MabRixTextSupport.h"

HRESULT MabRixReadRequiredAttribute(HRESULT iResult, const KelISAXAttributeList_var& iAttributes, const char* iName,
                                    KelUnicodeString& oValue, bool iNonEmpty, const char* iFile, int iLine)
{
  HRESULT Result = iResult;
  if (SUCCEEDED(Result))
    Result = MabRixCopyAttribute(iAttributes, iName, oValue);
  if (FAILED(Result) || (iNonEmpty && oValue.IsEmpty()))
    Result = ::MabRixUnexpectedError(Result, iFile, iLine);
  return Result;
}

HRESULT MabRixStartContextElement(MabRixSAXHandlerBase& ioHandler, const void* ipContext, const KelUnicodeString& iName,
                                  const KelISAXAttributeList_var& iAttributes, const char* iFile, int iLine)
{
  HRESULT Result = RixSuccessInit();
  Result = ioHandler.MabRixSAXHandlerBase::StartElement(iName, iAttributes);
  if (FAILED(Result))
    Result = ::MabRixUnexpectedError(Result, iFile, iLine);
  if (FAILED(Result) || !ipContext)
    Result = ::MabRixUnexpectedError(Result, iFile, iLine);
  return Result;
}
