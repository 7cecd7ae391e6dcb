// Probes of the delegation protocol: a root that starts a child per element
// of a given name and records what it receives, handlers that count their
// lives, and a handler that logs its depth bookkeeping.
#ifndef MabRixSpineProbes_h
#define MabRixSpineProbes_h

#include <functional>
#include <string>
#include <vector>

#include "KelExpatParser.h"
#include "MabRixSAXHandlerBase.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

struct MabRixLifeCount
{
  int _Built = 0;
  int _Destroyed = 0;
  int Alive() const { return _Built - _Destroyed; }
};

// Handler class H, counted in a MabRixLifeCount.
template <class H>
class MabRixCounted : public H
{
public:
  MabRixCounted(MabRixSAXHandlerBase& iParent, MabRixLifeCount& ioCount) : H(iParent), _Count(ioCount)
  {
    ++_Count._Built;
  }
  ~MabRixCounted() override { ++_Count._Destroyed; }

private:
  MabRixLifeCount& _Count;
};

template <class H>
MabRixHandlerFactory MabRixMakeCounted(MabRixLifeCount& ioCount)
{
  return [&ioCount](MabRixSAXHandlerBase& iParent) {
    return MabIRixSAXHandler_var::Adopt(new MabRixCounted<H>(iParent, ioCount));
  };
}

// Root handler built around the parser: for every element named _ChildName
// it makes a child with the factory and starts it on that element.
class MabRixProbeRoot : public MabRixSAXHandlerBase
{
public:
  MabRixProbeRoot(KelISAXParser_var& iParser, std::string iChildName, MabRixHandlerFactory iFactory,
                  MabRixLifeCount* ipCount = nullptr)
      : MabRixSAXHandlerBase(iParser), _ChildName(std::move(iChildName)), _Factory(std::move(iFactory)),
        _pCount(ipCount)
  {
    if (_pCount)
      ++_pCount->_Built;
  }
  ~MabRixProbeRoot() override
  {
    if (_pCount)
      ++_pCount->_Destroyed;
  }

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override
  {
    _Seen.push_back("<" + iName.ToUtf8() + ">");
    if (iName != _ChildName.c_str())
      return S_OK;
    _spChildHandler = _Factory(*this);
    return _spChildHandler->StartHandlingEvents(iName, iAttributes);
  }
  HRESULT EndElement(const KelUnicodeString& iName) override
  {
    _Seen.push_back("</" + iName.ToUtf8() + ">");
    return S_OK;
  }
  HRESULT Value(const MabIRixValue_var& iValue) override
  {
    _Values.push_back(iValue);
    KelISAXDocumentHandler_var spOwner;
    _spSAXParser->GetDocumentHandler(spOwner);
    _ParserBackAtValue.push_back(spOwner.Get() == static_cast<KelISAXDocumentHandler*>(this));
    return S_OK;
  }

  std::string _ChildName;
  MabRixHandlerFactory _Factory;
  MabRixLifeCount* _pCount;
  std::vector<std::string> _Seen;  // events the root itself received
  std::vector<MabIRixValue_var> _Values;
  std::vector<bool> _ParserBackAtValue;  // the root owned the parser when Value ran
};

struct MabRixProbeRun
{
  KelExpatParser_var _spParser;
  KelVar<MabRixProbeRoot> _spRoot;
  HRESULT _Result = S_OK;

  std::string Text(std::size_t iAt) const
  {
    const MabRixStringValue* pValue = MabRixValueAs<MabRixStringValue>(_spRoot->_Values.at(iAt));
    return pValue ? pValue->_Value.ToUtf8() : "<not a string>";
  }
};

// Parses iXml (in chunks of iChunk bytes when not 0) under a probe root.
inline MabRixProbeRun MabRixProbeParse(const std::string& iXml, const std::string& iChildName,
                                       MabRixHandlerFactory iFactory, KelExpatParser::Options iOptions = {},
                                       MabRixLifeCount* ipCount = nullptr, std::size_t iChunk = 0)
{
  MabRixProbeRun Run;
  Run._spParser = KelExpatParser_var::Adopt(new KelExpatParser(iOptions));
  KelISAXParser_var spParser(Run._spParser);
  Run._spRoot = KelVar<MabRixProbeRoot>::Adopt(new MabRixProbeRoot(spParser, iChildName, std::move(iFactory), ipCount));
  Run._spParser->SetDocumentHandler(KelISAXDocumentHandler_var(Run._spRoot.Get()));
  if (iChunk == 0)
  {
    Run._Result = Run._spParser->Parse(iXml);
    return Run;
  }
  Run._spParser->Begin();
  for (std::size_t At = 0; At < iXml.size(); At += iChunk)
  {
    const std::size_t Size = std::min(iChunk, iXml.size() - At);
    Run._Result = Run._spParser->Feed(iXml.data() + At, Size, At + Size >= iXml.size());
  }
  return Run;
}

// Handler that logs its depth bookkeeping; for each element named "v" inside
// its own it reads a String child; when its element ends it hands a string
// value "probe" up. An element named "boom" uses a null reference.
class MabRixDepthProbe : public MabRixSAXHandlerBase
{
public:
  explicit MabRixDepthProbe(MabRixSAXHandlerBase& iParent, MabRixLifeCount* ipChildCount = nullptr,
                            MabRixLifeCount* ipSelfCount = nullptr)
      : MabRixSAXHandlerBase(iParent), _pChildCount(ipChildCount), _pSelfCount(ipSelfCount)
  {
    if (_pSelfCount)
      ++_pSelfCount->_Built;
  }
  ~MabRixDepthProbe() override
  {
    if (_pSelfCount)
      ++_pSelfCount->_Destroyed;
  }

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override
  {
    const bool Stopped = StopIfNecessary(iName);
    _Log.push_back("</" + iName.ToUtf8() + "> " + std::to_string(_Depth) + (Stopped ? " stop" : ""));
    if (!Stopped)
      return S_OK;
    MabRixStringValue* pValue = new MabRixStringValue();
    pValue->_Value = "probe";
    return _spParentHandler->Value(MabIRixValue_var::Adopt(pValue));
  }
  HRESULT Value(const MabIRixValue_var& iValue) override
  {
    _Values.push_back(iValue);
    return S_OK;
  }

  std::vector<std::string> _Log;
  std::vector<MabIRixValue_var> _Values;

private:
  MabRixLifeCount* _pChildCount;
  MabRixLifeCount* _pSelfCount;
};

#endif
