#include "MabRixSpineProbes.h"

#include "MabRixSAXHandlerString.h"

HRESULT MabRixDepthProbe::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  MabRixSAXHandlerBase::StartElement(iName, iAttributes);
  _Log.push_back("<" + iName.ToUtf8() + "> " + std::to_string(_Depth));
  if (iName == "boom")
  {
    KelISAXParser_var spNull;
    return spNull->SetDocumentHandler(nullptr);
  }
  if (iName != "v")
    return S_OK;
  if (_pChildCount)
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixCounted<MabRixSAXHandlerString>(*this, *_pChildCount));
  else
    _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(*this));
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}
