#include "MabRixSAXHandlerBase.h"

#include <climits>

#include "KelCheck.h"

MabRixImplementHandler(MabRixSAXHandlerBase, KelSAXHandlerBase)

MabRixParentHandlerRef::MabRixParentHandlerRef(MabIRixSAXHandler* ipParent) : _p(ipParent)
{
  if (_p)
  {
    _p->AddRef();
    _Counted = true;
  }
}

MabRixParentHandlerRef::~MabRixParentHandlerRef() { Loosen(); }

MabIRixSAXHandler* MabRixParentHandlerRef::operator->() const
{
  if (!_p)
    ThrowErrorNullVar();
  return _p;
}

void MabRixParentHandlerRef::Loosen()
{
  if (_Counted)
  {
    _Counted = false;
    _p->Release();
  }
}

void MabRixParentHandlerRef::Tighten()
{
  if (_p && !_Counted)
  {
    _p->AddRef();
    _Counted = true;
  }
}

void MabRixParentHandlerRef::Forget()
{
  if (!_Counted)
    _p = nullptr;
}

MabRixSAXHandlerBase::MabRixSAXHandlerBase(KelISAXParser_var& iParser) : _spSAXParser(iParser) {}

// Takes a non-const reference to the parent, so the language counts it as a
// copy constructor: the bases are named to say they are built fresh.
MabRixSAXHandlerBase::MabRixSAXHandlerBase(MabRixSAXHandlerBase& iParent)
    : KelBaseUnknown(), KelISAXDocumentHandler(), MabIRixSAXHandler(), KelSAXHandlerBase(),
      _spSAXParser(iParent._spSAXParser), _spParentHandler(&iParent)
{
}

MabRixSAXHandlerBase::~MabRixSAXHandlerBase()
{
  // A finished child that outlives this handler must not reach it.
  if (MabRixSAXHandlerBase* pChild = KelImplCast<MabRixSAXHandlerBase>(_spChildHandler.Get()))
    if (pChild->_spParentHandler.Get() == static_cast<MabIRixSAXHandler*>(this))
      pChild->_spParentHandler.Forget();
}

HRESULT MabRixSAXHandlerBase::StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var&)
{
  if (!KelCheck(!!_spSAXParser && !!_spParentHandler))
    return E_FAIL;
  _spParentHandler.Tighten();
  const HRESULT hr = _spSAXParser->SetDocumentHandler(KelISAXDocumentHandler_var(this));
  _ElementName = iName;
  _Depth = 0;
  return hr;
}

HRESULT MabRixSAXHandlerBase::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var&)
{
  if (iName == _ElementName && _Depth < INT_MAX)
    ++_Depth;
  return S_OK;
}

HRESULT MabRixSAXHandlerBase::Characters(const KelUnicodeString& iCharacters)
{
  _Characters += iCharacters;
  return S_OK;
}

bool MabRixSAXHandlerBase::StopIfNecessary(const KelUnicodeString& iName)
{
  if (iName == _ElementName && _Depth > INT_MIN)
    --_Depth;
  if (_Depth >= 0)
    return false;
  if (!KelCheck(!!_spSAXParser && !!_spParentHandler))
    return true;
  const HRESULT hr = _spSAXParser->SetDocumentHandler(KelISAXDocumentHandler_var(_spParentHandler.Get()));
  (void)KelCheckText(SUCCEEDED(hr), "ExpressionCheck:SUCCEEDED(_spSAXParser->SetDocumentHandler(_spParentHandler))");
  // The parser holds the parent now; this handler's part is done.
  if (SUCCEEDED(hr))
    _spParentHandler.Loosen();
  return true;
}

HRESULT MabRixSAXHandlerBase::Value(const MabIRixValue_var&) { return S_OK; }

HRESULT MabRixSAXHandlerBase::GetResponse(MabIRixResponse_var& oResponse)
{
  oResponse = nullptr;
  return E_FAIL;
}

HRESULT MabRixSAXHandlerBase::GetParser(KelISAXParser_var& ospISAXParser)
{
  ospISAXParser = _spSAXParser;
  if (!!ospISAXParser)
    return S_OK;
  return KelCheck(!!ospISAXParser) ? S_OK : E_FAIL;
}
