#include "MabRixBenchSupport.h"

#include <expat.h>

#include <malloc.h>

#include <cstdlib>

#include <istream>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

#include "KelSAXHandlerBase.h"

namespace
{
// Benchmarks run on one thread; the cache only saves regenerating a
// document for each benchmark of the same size.
MabRixBenchDocument& Cache()
{
  static MabRixBenchDocument Document;
  return Document;
}

struct ExpatDeleter
{
  void operator()(XML_Parser ipParser) const { XML_ParserFree(ipParser); }
};

void XMLCALL NoStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL NoEnd(void*, const XML_Char*) {}
void XMLCALL NoText(void*, const XML_Char*, int) {}
void XMLCALL CountStart(void* ipCount, const XML_Char*, const XML_Char**) { ++*static_cast<std::uint64_t*>(ipCount); }

// expat's own heap, counted through its memory suite: what the floor holds.
thread_local std::size_t ExpatHeap = 0, ExpatPeak = 0;
void* CountedMalloc(std::size_t iSize)
{
  void* pBlock = std::malloc(iSize);
  if (pBlock && (ExpatHeap += malloc_usable_size(pBlock)) > ExpatPeak)
    ExpatPeak = ExpatHeap;
  return pBlock;
}
void CountedFree(void* ipBlock)
{
  if (ipBlock)
    ExpatHeap -= malloc_usable_size(ipBlock);
  std::free(ipBlock);
}
void* CountedRealloc(void* ipBlock, std::size_t iSize)
{
  const std::size_t Before = ipBlock ? malloc_usable_size(ipBlock) : 0;
  void* pBlock = std::realloc(ipBlock, iSize);
  if (!pBlock)
    return nullptr;
  if ((ExpatHeap += malloc_usable_size(pBlock) - Before) > ExpatPeak)
    ExpatPeak = ExpatHeap;
  return pBlock;
}
const XML_Memory_Handling_Suite CountedSuite = {&CountedMalloc, &CountedRealloc, &CountedFree};

XML_Parser NewParser(XML_StartElementHandler iStart, void* ipUserData)
{
  XML_Parser pParser = XML_ParserCreate_MM(nullptr, &CountedSuite, nullptr);
  if (!pParser)
    throw std::bad_alloc();
  XML_SetUserData(pParser, ipUserData);
  XML_SetElementHandler(pParser, iStart, &NoEnd);
  XML_SetCharacterDataHandler(pParser, &NoText);
  return pParser;
}

bool ParseWith(const char* iData, std::size_t iSize, XML_StartElementHandler iStart, void* ipUserData)
{
  std::unique_ptr<XML_ParserStruct, ExpatDeleter> Parser(NewParser(iStart, ipUserData));
  // expat takes int lengths: feed a huge buffer in pieces, as the host does.
  const std::size_t MaxPiece = 1u << 30;
  do
  {
    const std::size_t Piece = iSize < MaxPiece ? iSize : MaxPiece;
    if (XML_Parse(Parser.get(), iData, static_cast<int>(Piece), Piece == iSize) == XML_STATUS_ERROR)
      return false;
    iData += Piece;
    iSize -= Piece;
  } while (iSize > 0);
  return true;
}
}  // namespace

const MabRixBenchDocument& MabRixBenchDocumentFor(MabRixResponseKind iKind, std::uint64_t iCount)
{
  MabRixBenchDocument& Document = Cache();
  if (Document._Kind == iKind && Document._Count == iCount && !Document._Text.empty())
    return Document;
  MabRixBenchDropDocument();
  MabRixGeneratorOptions Options;
  Options._Kind = iKind;
  Options._Count = iCount;
  Options._DistinctKeys = MabRixBenchDistinctKeys(iKind);
  Document._Kind = iKind;
  Document._Count = iCount;
  Document._Stats = MabRixResponseGenerator::ToString(Options, Document._Text);
  // The generator's element count feeds the elements/s figures: make sure
  // the parser sees the same document (the generator writes every size the
  // same way, so the sizes up to 100,000 records are enough).
  if (iCount <= 100000 &&
      MabRixCountElements(Document._Text.data(), Document._Text.size()) != Document._Stats._Elements)
    throw std::logic_error(std::string("generated document is not what the parser reads: ") +
                           MabRixResponseGenerator::KindName(iKind));
  return Document;
}

std::uint64_t MabRixBenchDistinctKeys(MabRixResponseKind iKind)
{
  return iKind == MabRixResponseKind::OverwriteFileList ? 1000 : 0;
}

void MabRixBenchDropDocument()
{
  MabRixBenchDocument& Document = Cache();
  std::string().swap(Document._Text);
  Document._Count = 0;
}

bool MabRixParseFloor(const char* iData, std::size_t iSize) { return ParseWith(iData, iSize, &NoStart, nullptr); }

bool MabRixParseFloorStream(std::istream& ioStream)
{
  std::unique_ptr<XML_ParserStruct, ExpatDeleter> Parser(NewParser(&NoStart, nullptr));
  std::vector<char> Buffer(64 * 1024);
  while (true)
  {
    ioStream.read(Buffer.data(), static_cast<std::streamsize>(Buffer.size()));
    const std::streamsize Read = ioStream.gcount();
    if (ioStream.bad())
      return false;
    const bool Final = !ioStream;
    if (XML_Parse(Parser.get(), Buffer.data(), static_cast<int>(Read), Final) == XML_STATUS_ERROR)
      return false;
    if (Final)
      return true;
  }
}

std::size_t MabRixFloorPeakHeap()
{
  const std::size_t Peak = ExpatPeak;
  ExpatPeak = ExpatHeap;
  return Peak;
}

std::uint64_t MabRixCountElements(const char* iData, std::size_t iSize)
{
  std::uint64_t Count = 0;
  return ParseWith(iData, iSize, &CountStart, &Count) ? Count : 0;
}

HRESULT MabRixParseHost(const char* iData, std::size_t iSize)
{
  KelExpatParser_var spParser = KelExpatParser_var::Adopt(new KelExpatParser());
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var::Adopt(new KelSAXHandlerBase()));
  return spParser->Parse(iData, iSize);
}

MabRixBenchRoot::MabRixBenchRoot(KelISAXParser_var& iParser, const char* iListElement, MabRixBenchFactory iFactory)
    : MabRixSAXHandlerBase(iParser), _ListElement(iListElement), _Factory(std::move(iFactory))
{
}

HRESULT MabRixBenchRoot::StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes)
{
  if (_Started || iName != _ListElement)
    return S_OK;
  _Started = true;
  _spChildHandler = MabIRixSAXHandler_var::Adopt(_Factory(*this));
  return _spChildHandler->StartHandlingEvents(iName, iAttributes);
}

HRESULT MabRixBenchRoot::Value(const MabIRixValue_var& iValue)
{
  _spValue = iValue;
  return S_OK;
}

namespace
{
template <class F>
MabRixBenchRun Run(const char* iListElement, const MabRixBenchFactory& iFactory, F&& iParse)
{
  KelExpatParser* pParser = new KelExpatParser();
  KelISAXParser_var spParser = KelISAXParser_var::Adopt(pParser);
  MabRixBenchRoot* pRoot = new MabRixBenchRoot(spParser, iListElement, iFactory);
  KelISAXDocumentHandler_var spRoot = KelISAXDocumentHandler_var::Adopt(pRoot);
  pParser->SetDocumentHandler(spRoot);
  MabRixBenchRun Result;
  Result._Result = iParse(*pParser);
  Result._Started = pRoot->HasStarted();
  Result._spValue = pRoot->GetValue();
  return Result;
}
}  // namespace

MabRixBenchRun MabRixRunHandler(const char* iData, std::size_t iSize, const char* iListElement,
                                const MabRixBenchFactory& iFactory)
{
  return Run(iListElement, iFactory, [&](KelExpatParser& ioParser) { return ioParser.Parse(iData, iSize); });
}

MabRixBenchRun MabRixRunHandlerOnStream(std::istream& ioStream, const char* iListElement,
                                        const MabRixBenchFactory& iFactory)
{
  return Run(iListElement, iFactory, [&](KelExpatParser& ioParser) { return ioParser.ParseStream(ioStream); });
}
