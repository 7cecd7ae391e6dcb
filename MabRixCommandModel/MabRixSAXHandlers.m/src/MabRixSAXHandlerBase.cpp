#include "MabRixSAXHandlerBase.h"

#include <climits>

#include "KelCheck.h"

MabRixImplementHandler(MabRixSAXHandlerBase, KelSAXHandlerBase)

// Not counted yet: a child that never starts (its start failed, or nobody
// started it) must not keep its parent alive, nor be kept by it in a cycle.
MabRixParentHandlerRef::MabRixParentHandlerRef(MabRixSAXHandlerBase& iParent)
    : _p(&iParent), _Alive(iParent.AliveToken())
{
}

MabRixParentHandlerRef::~MabRixParentHandlerRef() { Loosen(); }

MabIRixSAXHandler* MabRixParentHandlerRef::operator->() const
{
  MabIRixSAXHandler* pParent = Get();
  if (!pParent)
    ThrowErrorNullVar();
  return pParent;
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
  if (!_Counted && Get())
  {
    _p->AddRef();
    _Counted = true;
  }
}

MabRixSAXHandlerBase::MabRixSAXHandlerBase(KelISAXParser_var& iParser) : _spSAXParser(iParser) {}

// Takes a non-const reference to the parent, so the language counts it as a
// copy constructor: the bases are named to say they are built fresh.
MabRixSAXHandlerBase::MabRixSAXHandlerBase(MabRixSAXHandlerBase& iParent)  // NOLINT(bugprone-copy-constructor-init)
    : KelBaseUnknown(), KelISAXDocumentHandler(), MabIRixSAXHandler(), KelISAXParseEndListener(), KelSAXHandlerBase(),
      _spSAXParser(iParent._spSAXParser), _spParentHandler(iParent)
{
}

MabRixSAXHandlerBase::~MabRixSAXHandlerBase() = default;

// Made with the first child: most handlers (text elements) never have one.
const std::shared_ptr<const char>& MabRixSAXHandlerBase::AliveToken()
{
  if (!_spAliveToken)
    _spAliveToken = std::make_shared<const char>();
  return _spAliveToken;
}

void MabRixSAXHandlerBase::OnParseEnd() noexcept
{
  // Each step keeps the next ancestor alive until it has been let go too.
  MabIRixSAXHandler_var spHeld;
  for (MabRixSAXHandlerBase* pHandler = this; pHandler;)
  {
    MabIRixSAXHandler_var spParent = pHandler->_spParentHandler;
    pHandler->_spParentHandler.Loosen();
    pHandler = KelImplCast<MabRixSAXHandlerBase>(spParent.Get());
    spHeld = spParent;
  }
}

HRESULT MabRixSAXHandlerBase::StartHandlingEvents(const KelUnicodeString& iName, const KelISAXAttributeList_var&)
{
  if (!KelCheck(!!_spSAXParser && !!_spParentHandler))
    return E_FAIL;
  // After a go-on answer a null parser throws the null-reference error here,
  // before the parent is counted: a count taken then would never be let go.
  KelISAXParser& Parser = *_spSAXParser;
  // Counted before the switch: the parser may let go of the parent when it
  // takes this handler, and the active handler keeps it alive from then on.
  _spParentHandler.Tighten();
  const HRESULT hr = Parser.SetDocumentHandler(KelISAXDocumentHandler_var(this));
  if (FAILED(hr))
    _spParentHandler.Loosen();
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

// The parent reference is already loose (the handler gave the parser back);
// loosening it again covers a hand-back that failed.
void MabRixSAXHandlerBase::ResetForReuse()
{
  _spParentHandler.Loosen();
  _Characters.Clear();
  _ElementName.Clear();
  _Depth = 0;
}

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
