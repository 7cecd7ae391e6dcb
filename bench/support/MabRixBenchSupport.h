// What the benchmarks and the memory driver share: generated documents, the
// raw expat floor, the host parser with a do-nothing handler, and a root
// handler that starts one handler on a response's list element.
#ifndef MabRixBenchSupport_h
#define MabRixBenchSupport_h

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <string>

#include "KelExpatParser.h"
#include "MabRixResponseGenerator.h"
#include "MabRixSAXHandlerBase.h"

struct MabRixBenchDocument
{
  MabRixResponseKind _Kind = MabRixResponseKind::ObjectList;
  std::uint64_t _Count = 0;
  std::string _Text;
  MabRixGeneratorStats _Stats;
};

// The document of iCount records of iKind. Only the last one asked for is
// kept: benchmarks of one document run one after the other, and the largest
// documents are hundreds of megabytes.
const MabRixBenchDocument& MabRixBenchDocumentFor(MabRixResponseKind iKind, std::uint64_t iCount);
void MabRixBenchDropDocument();
// Keys of the benchmark documents repeat for the overwrite file list (1,000
// distinct busid values: a command's files, many versions each), as in the
// memory measurement; every other kind has a distinct key per record.
std::uint64_t MabRixBenchDistinctKeys(MabRixResponseKind iKind);

// expat alone, with callbacks that do nothing: the floor. False when the
// document is not well-formed.
bool MabRixParseFloor(const char* iData, std::size_t iSize);
// The same on a stream read in 64 KiB pieces.
bool MabRixParseFloorStream(std::istream& ioStream);
// Largest heap expat held in the floor parses since the last call (bytes).
std::size_t MabRixFloorPeakHeap();
// Number of start tags, counted by expat (checks the generator's count).
std::uint64_t MabRixCountElements(const char* iData, std::size_t iSize);

// The host parser driving the host's do-nothing document handler.
HRESULT MabRixParseHost(const char* iData, std::size_t iSize);

// Makes the handler under test, with the root as its parent.
typedef std::function<MabIRixSAXHandler*(MabRixSAXHandlerBase& iRoot)> MabRixBenchFactory;

// Root of a benchmark run: starts the handler from the factory on the first
// element named iListElement and keeps the value it hands up.
class MabRixBenchRoot : public MabRixSAXHandlerBase
{
public:
  MabRixBenchRoot(KelISAXParser_var& iParser, const char* iListElement, MabRixBenchFactory iFactory);

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  const MabIRixValue_var& GetValue() const { return _spValue; }
  bool HasStarted() const { return _Started; }

private:
  KelUnicodeString _ListElement;
  MabRixBenchFactory _Factory;
  MabIRixValue_var _spValue;
  bool _Started = false;
};

struct MabRixBenchRun
{
  HRESULT _Result = S_OK;
  bool _Started = false;      // the handler was started on the list element
  MabIRixValue_var _spValue;  // what the handler handed up, if anything
};

// Parses a buffer, or a stream in chunks, through the handler.
MabRixBenchRun MabRixRunHandler(const char* iData, std::size_t iSize, const char* iListElement,
                                const MabRixBenchFactory& iFactory);
MabRixBenchRun MabRixRunHandlerOnStream(std::istream& ioStream, const char* iListElement,
                                        const MabRixBenchFactory& iFactory);

#endif
