#include "MabRixTestSupport.h"

MabRixTestReporter::MabRixTestReporter(int iDefaultAnswer) : _DefaultAnswer(iDefaultAnswer), _Scope(*this) {}

int MabRixTestReporter::OnCheckFailure(const char* iText, const char* iFile, int iLine)
{
  const auto Found = _Answers.find(iText);
  const int Given = Found != _Answers.end() ? Found->second : _DefaultAnswer;
  _Reports.push_back({iText, iFile, iLine, Given});
  return Given;
}

std::vector<std::string> MabRixTestReporter::Texts() const
{
  std::vector<std::string> Texts;
  for (const MabRixCheckReport& Report : _Reports)
    Texts.push_back(Report._Text);
  return Texts;
}

int MabRixTestReporter::Count(const std::string& iText) const
{
  int Count = 0;
  for (const MabRixCheckReport& Report : _Reports)
    Count += Report._Text == iText ? 1 : 0;
  return Count;
}

void MabRixThrowingFatalHandler::OnFatalError(const char* iText, const char* iFile, int iLine)
{
  throw MabRixFatalErrorRaised(iText, iFile, iLine);
}

MabRixLastError MabRixGetLastError()
{
  MabRixLastError Result;
  KelError* pError = KelError::KelGetLastError(E_FAIL);
  if (!pError)
    return Result;
  Result._Present = true;
  Result._Key = pError->GetMessageKey().ToUtf8();
  Result._Catalog = pError->GetMessageCatalog().ToUtf8();
  Result._Message = pError->GetNLSMessage().ToUtf8();
  Result._File = pError->GetSourceFile().ToUtf8();
  Result._Line = pError->GetSourceLine();
  Result._Code = pError->GetReturnCode();
  pError->Release();
  return Result;
}

MabRixTestRootHandler::MabRixTestRootHandler(KelISAXParser_var& iParser, MabRixHandlerFactory iFactory,
                                             std::string iStartAt)
    : MabRixSAXHandlerBase(iParser), _Factory(std::move(iFactory)), _StartAt(std::move(iStartAt))
{
}

HRESULT MabRixTestRootHandler::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  if (_Started)
  {
    ++_EventsAfterStart;
    return S_OK;
  }
  if (!_StartAt.empty() && iName != _StartAt.c_str())
    return S_OK;
  _Started = true;
  _spChildHandler = _Factory(*this);
  if (!_spChildHandler)
    return _StartResult = E_FAIL;
  return _StartResult = _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

HRESULT MabRixTestRootHandler::EndElement(const KelUnicodeString&)
{
  if (_Started)
    ++_EventsAfterStart;
  return S_OK;
}

HRESULT MabRixTestRootHandler::Characters(const KelUnicodeString&)
{
  if (_Started)
    ++_EventsAfterStart;
  return S_OK;
}

HRESULT MabRixTestRootHandler::Value(const MabIRixValue_var& iValue)
{
  _Values.push_back(iValue);
  return S_OK;
}

MabRixTestReading MabRixRead(const std::string& iXml, MabRixHandlerFactory iFactory, const std::string& iStartAt,
                             std::size_t iChunk, KelExpatParser::Options iOptions)
{
  MabRixTestReading Reading;
  Reading._spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser(iOptions));
  KelISAXParser_var spParser(Reading._spParser);
  Reading._spRoot =
      KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(spParser, std::move(iFactory), iStartAt));
  Reading._spParser->SetDocumentHandler(KelISAXDocumentHandler_var(Reading._spRoot.Get()));
  if (iChunk == 0)
  {
    Reading._Result = Reading._spParser->Parse(iXml);
    return Reading;
  }
  Reading._spParser->Begin();
  for (std::size_t At = 0; At < iXml.size(); At += iChunk)
  {
    const std::size_t Size = std::min(iChunk, iXml.size() - At);
    Reading._Result = Reading._spParser->Feed(iXml.data() + At, Size, At + Size >= iXml.size());
  }
  if (iXml.empty())
    Reading._Result = Reading._spParser->Feed("", 0, true);
  return Reading;
}
