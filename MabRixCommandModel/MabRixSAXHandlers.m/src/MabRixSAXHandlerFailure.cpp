#include "MabRixSAXHandlerFailure.h"

#include <new>

#include "KelCheck.h"
#include "MabRixFailureResponse.h"

MabRixImplementHandler(MabRixSAXHandlerFailure, MabRixSAXHandlerBase)

MabRixSAXHandlerFailure::MabRixSAXHandlerFailure(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pFailureResponse(new (std::nothrow) MabRixFailureResponse())
{
}

MabRixSAXHandlerFailure::~MabRixSAXHandlerFailure()
{
  if (_pFailureResponse)
    _pFailureResponse->Release();
  _pFailureResponse = nullptr;
}

// A missing attribute is reported and leaves its field empty; the element is
// read all the same.
HRESULT MabRixSAXHandlerFailure::StartHandlingEvents(const KelUnicodeString& iName,
                                                     const KelISAXAttributeList_var& iAttributes)
{
  if (!KelCheck(!!iAttributes))
    return E_FAIL;
  if (!_pFailureResponse)
    return E_OUTOFMEMORY;  // its allocation failed: nowhere to read the failure into
  (void)KelCheck(SUCCEEDED(iAttributes->GetValue("cname", _pFailureResponse->_CommandName)));
  (void)KelCheck(SUCCEEDED(iAttributes->GetValue("errorcode", _pFailureResponse->_ErrorCode)));
  KelUnicodeString Success;
  (void)KelCheck(SUCCEEDED(iAttributes->GetValue("success", Success)));
  // A failure that claims success is suspicious, not wrong.
  (void)KelCheck(Success != "true");
  return MabRixSAXHandlerBase::StartHandlingEvents(iName, iAttributes);
}

HRESULT MabRixSAXHandlerFailure::StartElement(const KelUnicodeString& iName,
                                              const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  // Only the reason's own text counts; everything inside it is kept.
  if (iName == "reason")
    _Characters.Clear();
  return S_OK;
}

HRESULT MabRixSAXHandlerFailure::EndElement(const KelUnicodeString& iName)
{
  // The response is read through GetResponse, so the end of the failure
  // element only gives the parser back.
  (void)StopIfNecessary(iName);
  if (iName == "reason")
    _pFailureResponse->_Reason = _Characters;
  return S_OK;
}

HRESULT MabRixSAXHandlerFailure::GetResponse(MabIRixResponse_var& oResponse)
{
  oResponse = _pFailureResponse;
  return !oResponse ? E_FAIL : S_OK;
}
