// Every handler of the library's handler catalogue, with a way to build it
// from a few bytes of options (separators, formats, the objects it borrows).
// The fuzz target, the thread test and the replays of sample responses share
// it; a handler added to the catalogue is in it without more.
#ifndef MabRixHandlerTable_h
#define MabRixHandlerTable_h

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "KelExpatParser.h"
#include "MabRixSAXHandlerBase.h"

// Options drawn from bytes; past the end every draw gives 0.
class MabRixOptionBytes
{
public:
  MabRixOptionBytes(const std::uint8_t* iData, std::size_t iSize) : _pData(iData), _Size(iSize) {}
  std::uint8_t Byte() { return _At < _Size ? _pData[_At++] : 0; }
  bool Flag() { return (Byte() & 1) != 0; }
  // One of a few separators, the empty one and multi-byte ones included.
  KelUnicodeString Separator();

private:
  const std::uint8_t* _pData;
  std::size_t _Size;
  std::size_t _At = 0;
};

// What a handler borrows for the reading (formats, format maps, contexts),
// released after it.
class MabRixBorrowed
{
public:
  // Takes over the creation reference of a counted object.
  template <class T>
  T& Adopt(T* ipObject)
  {
    _Counted.push_back(KelBaseUnknown_var::Adopt(ipObject));
    return *ipObject;
  }
  // Owns a plain object.
  template <class T>
  T& Own(T* ipObject)
  {
    _Plain.push_back(std::shared_ptr<void>(ipObject, [](void* ip) { delete static_cast<T*>(ip); }));
    return *ipObject;
  }
  // What the reading left in the borrowed objects, for comparisons.
  std::function<std::string()> _Describe;

private:
  std::vector<KelBaseUnknown_var> _Counted;
  std::vector<std::shared_ptr<void>> _Plain;
};

struct MabRixHandlerEntry
{
  std::string _Name;
  std::function<MabIRixSAXHandler_var(MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions,
                                      MabRixBorrowed& ioBorrowed)>
      _Make;
};

const std::vector<MabRixHandlerEntry>& MabRixHandlerTable();
const MabRixHandlerEntry* MabRixFindHandler(const std::string& iName);

// A value as text: rixsax's JSON of it on one line.
std::string MabRixDescribeValue(const MabIRixValue_var& iValue);

// Reads iXml with the entry's handler started on the document element,
// fed in pieces of iChunk bytes (whole when 0); sums up everything the
// reading produced as text: results, errors, values, borrowed objects.
std::string MabRixReadAndDescribe(const MabRixHandlerEntry& iEntry, const std::string& iXml,
                                  const std::vector<std::uint8_t>& iOptions = {}, std::size_t iChunk = 0,
                                  KelExpatParser::Options iParserOptions = {});

#endif
