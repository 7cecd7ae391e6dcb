#include "MabRixSAXHandlerRoot.h"

MabRixImplementHandler(MabRixSAXHandlerRoot, MabRixSAXHandlerBase)

MabRixSAXHandlerRoot::MabRixSAXHandlerRoot(KelISAXParser_var& iParser, Factory iFactory,
                                           const KelUnicodeString& iStartAt, std::size_t iMaxValues)
    : MabRixSAXHandlerBase(iParser), _Factory(std::move(iFactory)), _StartAt(iStartAt), _Values(iMaxValues)
{
}

MabRixSAXHandlerRoot::~MabRixSAXHandlerRoot() = default;

// Once the handler has given the parser back, the rest of the document is
// the root's again and it has nothing more to do with it.
HRESULT MabRixSAXHandlerRoot::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  if (_Started || (!_StartAt.IsEmpty() && iName != _StartAt))
    return S_OK;
  _Started = true;
  if (_Factory)
    _spChildHandler = _Factory(*this);
  if (!_spChildHandler)
    return E_FAIL;
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

HRESULT MabRixSAXHandlerRoot::Value(const MabIRixValue_var& iValue)
{
  _Values.Add(iValue);
  return S_OK;
}
