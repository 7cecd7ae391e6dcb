#include "KelExpatParser.h"

// The amplification and allocation limits are declared only with XML_DTD.
#if defined(KEL_EXPAT_HAS_AMPLIFICATION_LIMIT) || defined(KEL_EXPAT_HAS_ALLOCATION_LIMIT)
#ifndef XML_DTD
#define XML_DTD
#endif
#endif
#include <expat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "KelAllocationFailure.h"

KelImplementClass(KelExpatParser, KelBaseUnknown, "KelSystem")

// Wraps expat's attribute array of the element being started; it is empty
// outside the StartElement callback, so a list kept by a handler never
// reaches freed memory. The length is counted once per element, so reading
// every position of a huge attribute list stays linear.
class KelExpatAttributeList : public virtual KelISAXAttributeList
{
public:
  void Set(const XML_Char** ipAttributes)
  {
    _ppAttributes = ipAttributes;
    _Count = 0;
    if (_ppAttributes)
      while (_ppAttributes[2 * _Count])
        ++_Count;
  }

  HRESULT GetLength(unsigned int& oLength) override
  {
    oLength = _Count;
    return S_OK;
  }
  HRESULT GetName(unsigned int iPosition, KelUnicodeString& oName) override
  {
    std::string_view Text;
    return Copy(GetNameView(iPosition, Text), Text, oName);
  }
  HRESULT GetValue(unsigned int iPosition, KelUnicodeString& oValue) override
  {
    std::string_view Text;
    return Copy(GetValueView(iPosition, Text), Text, oValue);
  }
  HRESULT GetValue(const KelUnicodeString& iName, KelUnicodeString& oValue) override
  {
    std::string_view Text;
    return Copy(GetValueView(iName.View(), Text), Text, oValue);
  }
  HRESULT GetNameView(unsigned int iPosition, std::string_view& oName) override
  {
    const XML_Char* const* ppPair = At(iPosition);
    if (!ppPair)
      return E_FAIL;
    oName = ppPair[0];
    return S_OK;
  }
  HRESULT GetValueView(unsigned int iPosition, std::string_view& oValue) override
  {
    const XML_Char* const* ppPair = At(iPosition);
    if (!ppPair)
      return E_FAIL;
    oValue = ppPair[1];
    return S_OK;
  }
  HRESULT GetValueView(std::string_view iName, std::string_view& oValue) override
  {
    if (!_ppAttributes || iName.empty())
      return E_FAIL;
    // Handlers look up many names per element: most differ at the first
    // character, which is tested before the full comparison.
    for (const XML_Char** pp = _ppAttributes; *pp; pp += 2)
      if (pp[0][0] == iName[0] && std::string_view(pp[0]) == iName)
      {
        oValue = pp[1];
        return S_OK;
      }
    return E_FAIL;
  }

private:
  const XML_Char* const* At(unsigned int iPosition) const
  {
    return iPosition < _Count ? _ppAttributes + 2 * static_cast<std::size_t>(iPosition) : nullptr;
  }

  // The copy reuses the room the output string already has.
  static HRESULT Copy(HRESULT iFound, std::string_view iText, KelUnicodeString& oText)
  {
    if (FAILED(iFound))
      return iFound;
    oText.Clear();
    oText.AppendBytes(iText.data(), iText.size());
    return S_OK;
  }

  const XML_Char** _ppAttributes = nullptr;
  unsigned int _Count = 0;
};

// Position of the parser's current event. It does not hold the parser (the
// parser holds it); a locator kept after its parser is gone answers E_FAIL.
class KelExpatLocator : public virtual KelISAXLocator
{
public:
  explicit KelExpatLocator(const KelExpatParser& iParser) : _pParser(&iParser) {}
  void Detach() { _pParser = nullptr; }
  HRESULT GetLineNumber(int& oLine) override
  {
    if (!_pParser)
      return E_FAIL;
    oLine = _pParser->GetCurrentLine();
    return S_OK;
  }
  HRESULT GetColumnNumber(int& oColumn) override
  {
    if (!_pParser)
      return E_FAIL;
    oColumn = _pParser->GetCurrentColumn();
    return S_OK;
  }

private:
  const KelExpatParser* _pParser;
};

// Trampolines from expat's C callbacks. No exception leaves them.
struct KelExpatCallbacks
{
  template <class F>
  static void Deliver(KelExpatParser* ipParser, const char* iEvent, const char* iElement, F&& iCall)
  {
    ipParser->_Progressed = true;
    if (ipParser->_Stopped || !ipParser->_spHandler)
      return;
    try
    {
      // The handler may give the parser away during its own callback.
      const KelISAXDocumentHandler_var spHandler = ipParser->_spHandler;
      const HRESULT hr = iCall(*spHandler.Get());
      if (FAILED(hr))
        ipParser->Record(hr, iEvent, iElement);
    }
    catch (...)
    {
      ipParser->_Exception = std::current_exception();
      ipParser->Stop();
    }
  }

  static void XMLCALL OnStartElement(void* ipData, const XML_Char* iName, const XML_Char** ipAttributes)
  {
    KelExpatParser* pParser = static_cast<KelExpatParser*>(ipData);
    if (++pParser->_Depth > pParser->_Options._MaxDepth)
    {
      if (!pParser->_Stopped)
      {
        pParser->SetParseError("elements nested deeper than " + std::to_string(pParser->_Options._MaxDepth) +
                               " levels");
        pParser->Stop();
      }
      return;
    }
    pParser->_pAttributes->Set(ipAttributes);
    pParser->_EventName = iName;
    Deliver(pParser, "StartElement", iName, [&](KelISAXDocumentHandler& ioHandler) {
      return ioHandler.StartElement(pParser->_EventName, pParser->_spAttributes);
    });
    pParser->_pAttributes->Set(nullptr);
  }

  static void XMLCALL OnEndElement(void* ipData, const XML_Char* iName)
  {
    KelExpatParser* pParser = static_cast<KelExpatParser*>(ipData);
    if (pParser->_Depth > 0)
      --pParser->_Depth;
    pParser->_EventName = iName;
    Deliver(pParser, "EndElement", iName,
            [&](KelISAXDocumentHandler& ioHandler) { return ioHandler.EndElement(pParser->_EventName); });
  }

  static void XMLCALL OnCharacters(void* ipData, const XML_Char* iText, int iLength)
  {
    KelExpatParser* pParser = static_cast<KelExpatParser*>(ipData);
    pParser->_EventText.Clear();
    pParser->_EventText.AppendBytes(iText, static_cast<std::size_t>(iLength));
    Deliver(pParser, "Characters", "",
            [&](KelISAXDocumentHandler& ioHandler) { return ioHandler.Characters(pParser->_EventText); });
  }

  static void XMLCALL OnProcessingInstruction(void* ipData, const XML_Char* iTarget, const XML_Char* iData)
  {
    Deliver(static_cast<KelExpatParser*>(ipData), "ProcessingInstruction", "", [&](KelISAXDocumentHandler& ioHandler) {
      return ioHandler.ProcessingInstruction(KelUnicodeString(iTarget), KelUnicodeString(iData));
    });
  }

  // Markup that reaches no handler still shows that expat got past a token.
  static void XMLCALL OnComment(void* ipData, const XML_Char*)
  {
    static_cast<KelExpatParser*>(ipData)->_Progressed = true;
  }

  static void XMLCALL OnStartDoctype(void* ipData, const XML_Char*, const XML_Char*, const XML_Char*, int)
  {
    KelExpatParser* pParser = static_cast<KelExpatParser*>(ipData);
    pParser->_Progressed = true;
    if (pParser->_Options._AllowDoctype || pParser->_Stopped)
      return;
    pParser->SetParseError("document type declarations are not allowed in a server response");
    pParser->Stop();
  }

  // External entities are skipped, never loaded.
  static int XMLCALL OnExternalEntity(XML_Parser, const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*)
  {
    return XML_STATUS_OK;
  }
};

KelExpatParser::KelExpatParser() : KelExpatParser(Options()) {}

KelExpatParser::KelExpatParser(const Options& iOptions) : _Options(iOptions)
{
  if (_Options._ChunkSize == 0)
    _Options._ChunkSize = 64 * 1024;
  _pAttributes = new KelExpatAttributeList();
  _spAttributes = KelISAXAttributeList_var::Adopt(_pAttributes);
  _pLocator = new KelExpatLocator(*this);
  _spLocator = KelISAXLocator_var::Adopt(_pLocator);
}

KelExpatParser::~KelExpatParser()
{
  _pLocator->Detach();
  if (_pExpat)
    XML_ParserFree(_pExpat);
}

HRESULT KelExpatParser::SetDocumentHandler(const KelISAXDocumentHandler_var& iHandler)
{
  // Clearing the handler with no document in progress lets it go as the
  // end of a document would.
  if (!iHandler && !_Started && !!_spHandler)
  {
    const bool Over = _Over;
    EndParse();
    _Over = Over;
  }
  _spHandler = iHandler;
  if (_Observer)
    _Observer(_spHandler);
  return S_OK;
}

HRESULT KelExpatParser::GetDocumentHandler(KelISAXDocumentHandler_var& oHandler)
{
  oHandler = _spHandler;
  return S_OK;
}

void KelExpatParser::CreateExpat()
{
  if (_pExpat)
    XML_ParserFree(_pExpat);
  _pExpat = XML_ParserCreate(nullptr);
  if (!_pExpat)
    throw std::bad_alloc();
  XML_SetUserData(_pExpat, this);
  XML_SetElementHandler(_pExpat, &KelExpatCallbacks::OnStartElement, &KelExpatCallbacks::OnEndElement);
  XML_SetCharacterDataHandler(_pExpat, &KelExpatCallbacks::OnCharacters);
  XML_SetProcessingInstructionHandler(_pExpat, &KelExpatCallbacks::OnProcessingInstruction);
  XML_SetStartDoctypeDeclHandler(_pExpat, &KelExpatCallbacks::OnStartDoctype);
  XML_SetExternalEntityRefHandler(_pExpat, &KelExpatCallbacks::OnExternalEntity);
  XML_SetCommentHandler(_pExpat, &KelExpatCallbacks::OnComment);
  XML_SetParamEntityParsing(_pExpat, XML_PARAM_ENTITY_PARSING_NEVER);
#ifdef KEL_EXPAT_HAS_AMPLIFICATION_LIMIT
  // Entities of an allowed internal subset may not expand a document beyond
  // these bounds (billion laughs, quadratic blow-up).
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(_pExpat, _Options._MaxAmplification);
  XML_SetBillionLaughsAttackProtectionActivationThreshold(_pExpat, _Options._AmplificationThreshold);
#endif
#ifdef KEL_EXPAT_HAS_ALLOCATION_LIMIT
  XML_SetAllocTrackerMaximumAmplification(_pExpat, _Options._MaxAmplification);
#endif
#ifdef KEL_EXPAT_HAS_REPARSE_DEFERRAL
  XML_SetReparseDeferralEnabled(_pExpat, _Options._ExpatReparseDeferral ? XML_TRUE : XML_FALSE);
#endif
}

// A fresh document: new expat parser, nothing recorded.
void KelExpatParser::Reset()
{
  CreateExpat();
  _Failures.clear();
  _FailureCount = 0;
  _HasParseError = false;
  _ParseError = KelSAXParseError();
  _Exception = nullptr;
  _Stopped = false;
  _Depth = 0;
  _Over = false;
  _Started = true;
  ReleasePending();
  _Stalled = 0;
}

// The first two events go through the same guard as expat's: a failure is
// recorded, an exception is kept for the next Feed to rethrow.
void KelExpatParser::Begin()
{
  Reset();
  KelExpatCallbacks::Deliver(this, "SetDocumentLocator", "", [&](KelISAXDocumentHandler& ioHandler) {
    return ioHandler.SetDocumentLocator(_spLocator);
  });
  KelExpatCallbacks::Deliver(this, "StartDocument", "",
                             [](KelISAXDocumentHandler& ioHandler) { return ioHandler.StartDocument(); });
}

HRESULT KelExpatParser::Outcome() const { return _HasParseError ? E_FAIL : GetFirstFailedResult(); }

// A token that does not end within what expat was given is scanned again
// from its start at every later call; an expat without reparse deferral
// would take quadratic time on one huge token fed in small chunks. Once
// expat went a whole chunk without an event, input is gathered until it is
// as large as what has been waiting, so the pieces double and the rescans
// add up to linear time.
HRESULT KelExpatParser::Feed(const char* iData, std::size_t iSize, bool iFinal)
{
  if (!_Started)
  {
    if (_Over)
      return Outcome();
    Begin();
  }
  if (!iData)
    iSize = 0;
  if (_Stalled < _Options._ChunkSize && _Pending.empty())
    Push(iData, iSize, iFinal);
  else
  {
    _Pending.insert(_Pending.end(), iData, iData + iSize);
    if (iFinal || _Pending.size() >= _Stalled)
    {
      Push(_Pending.data(), _Pending.size(), iFinal);
      ReleasePending();
    }
  }
  if (iFinal || _Stopped || _HasParseError)
    Finish(iFinal);
  if (_Exception)
  {
    std::exception_ptr Exception = _Exception;
    _Exception = nullptr;
    std::rethrow_exception(Exception);
  }
  return Outcome();
}

void KelExpatParser::Push(const char* iData, std::size_t iSize, bool iFinal)
{
  // expat takes int lengths: feed a huge buffer in pieces.
  const std::size_t MaxPiece = 1u << 30;
  do
  {
    if (_Stopped || _HasParseError)
      break;
    const std::size_t Piece = iSize < MaxPiece ? iSize : MaxPiece;
    const bool Last = iFinal && Piece == iSize;
    _Progressed = false;
    if (XML_Parse(_pExpat, iData, static_cast<int>(Piece), Last ? 1 : 0) == XML_STATUS_ERROR)
    {
      const XML_Error Code = XML_GetErrorCode(_pExpat);
      if (Code != XML_ERROR_ABORTED && !_HasParseError)
      {
        SetParseError(XML_ErrorString(Code));
        if (Code == XML_ERROR_NO_MEMORY)
        {
          _ParseError._OutOfMemory = true;
          KelNoteAllocationFailure();
        }
      }
      _Stopped = true;
    }
    _Stalled = _Progressed ? 0 : _Stalled + Piece;
    iData += Piece;
    iSize -= Piece;
  } while (iSize > 0);
}

void KelExpatParser::ReleasePending()
{
  _Pending.clear();
  if (_Pending.capacity() > _Options._ChunkSize)
    std::vector<char>().swap(_Pending);
}

void KelExpatParser::Finish(bool iComplete)
{
  if (!_Started)
    return;
  if (iComplete && !_HasParseError && !_Stopped)
    KelExpatCallbacks::Deliver(this, "EndDocument", "",
                               [](KelISAXDocumentHandler& ioHandler) { return ioHandler.EndDocument(); });
  EndParse();
}

// Handlers hold the parser; the parser lets its handler go once the document
// is over, so the two never keep each other alive.
void KelExpatParser::EndParse()
{
  _Started = false;
  _Over = true;
  ReleasePending();
  const KelISAXDocumentHandler_var spHandler = std::move(_spHandler);
  _spHandler = nullptr;
  if (KelISAXParseEndListener* pListener = KelQueryInterface<KelISAXParseEndListener>(spHandler.Get()))
    pListener->OnParseEnd();
}

HRESULT KelExpatParser::Parse(const char* iData, std::size_t iSize)
{
  Begin();
  return Feed(iData ? iData : "", iData ? iSize : 0, true);
}

HRESULT KelExpatParser::ParseFile(const char* iPath)
{
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> File(std::fopen(iPath ? iPath : "", "rb"), &std::fclose);
  if (!File)
  {
    // No document to read: no event, the handler is let go as after one.
    const int Error = errno;
    Reset();
    SetParseError(std::string("cannot open ") + (iPath ? iPath : "") + ": " + std::strerror(Error));
    _ParseError._Line = 0;
    _ParseError._Column = 0;
    EndParse();
    return E_FAIL;
  }
  Begin();
  std::vector<char> Buffer(_Options._ChunkSize);
  while (true)
  {
    const std::size_t Read = std::fread(Buffer.data(), 1, Buffer.size(), File.get());
    if (std::ferror(File.get()))
    {
      SetParseError(std::string("cannot read ") + iPath);
      EndParse();
      return E_FAIL;
    }
    const bool Final = Read < Buffer.size() && std::feof(File.get());
    Feed(Buffer.data(), Read, Final);
    if (Final || _Stopped || _HasParseError)
      break;
  }
  Finish(true);
  return Outcome();
}

HRESULT KelExpatParser::ParseStream(std::istream& ioStream)
{
  Begin();
  std::vector<char> Buffer(_Options._ChunkSize);
  while (true)
  {
    ioStream.read(Buffer.data(), static_cast<std::streamsize>(Buffer.size()));
    const std::size_t Read = static_cast<std::size_t>(ioStream.gcount());
    if (ioStream.bad())
    {
      SetParseError("cannot read the stream");
      EndParse();
      return E_FAIL;
    }
    const bool Final = !ioStream;
    Feed(Buffer.data(), Read, Final);
    if (Final || _Stopped || _HasParseError)
      break;
  }
  Finish(true);
  return Outcome();
}

int KelExpatParser::GetCurrentLine() const { return _pExpat ? static_cast<int>(XML_GetCurrentLineNumber(_pExpat)) : 0; }

int KelExpatParser::GetCurrentColumn() const
{
  return _pExpat ? static_cast<int>(XML_GetCurrentColumnNumber(_pExpat)) + 1 : 0;
}

void KelExpatParser::Record(HRESULT iResult, const char* iEvent, const char* iElement)
{
  ++_FailureCount;
  if (_Failures.size() < _Options._MaxRecordedFailures)
  {
    KelSAXCallbackFailure Failure;
    Failure._Result = iResult;
    Failure._Event = iEvent;
    Failure._Element = iElement;
    Failure._Line = GetCurrentLine();
    Failure._Column = GetCurrentColumn();
    _Failures.push_back(std::move(Failure));
  }
  if (_Options._StopOnCallbackFailure)
    Stop();
}

void KelExpatParser::SetParseError(const std::string& iMessage)
{
  _HasParseError = true;
  _ParseError._Message = KelUnicodeString(iMessage);
  _ParseError._Line = GetCurrentLine();
  _ParseError._Column = GetCurrentColumn();
}

void KelExpatParser::Stop()
{
  if (_Stopped)
    return;
  _Stopped = true;
  if (_pExpat)
    XML_StopParser(_pExpat, XML_FALSE);
}
