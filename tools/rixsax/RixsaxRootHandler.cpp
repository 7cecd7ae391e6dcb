#include "RixsaxRootHandler.h"

KelImplementClass(RixsaxRootHandler, MabRixSAXHandlerBase, "rixsax")

RixsaxRootHandler::RixsaxRootHandler(KelISAXParser_var& iParser, Factory iFactory, const KelUnicodeString& iStartAt)
    : MabRixSAXHandlerBase(iParser), _Factory(std::move(iFactory)), _StartAt(iStartAt)
{
}

RixsaxRootHandler::~RixsaxRootHandler() = default;

// Once the handler has given the parser back, the rest of the document is
// the root's again and it has nothing more to do with it.
HRESULT RixsaxRootHandler::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  if (_Started || (!_StartAt.IsEmpty() && iName != _StartAt))
    return S_OK;
  _Started = true;
  _spChildHandler = _Factory(*this);
  if (!_spChildHandler)
    return E_FAIL;
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

HRESULT RixsaxRootHandler::Value(const MabIRixValue_var& iValue)
{
  _Values.push_back(iValue);
  return S_OK;
}
