// One step of a run: one file read through one handler, and everything the
// command layer can observe of it.
#ifndef RixsaxStep_h
#define RixsaxStep_h

#include <string>

#include "MabRixReadResult.h"

class RixsaxSession;
struct RixsaxHandlerEntry;

typedef MabRixReadResult::CheckReport RixsaxCheckRecord;
typedef MabRixReadResult::ErrorRecord RixsaxErrorRecord;
typedef MabRixReadResult::HandlerChange RixsaxTraceRecord;
typedef MabRixReadResult::HostError RixsaxHostError;

// Sizes of the contexts a step used, as they stand after it.
struct RixsaxContextCounts
{
  std::size_t _Objects = 0;
  std::size_t _MajorObjects = 0;
  std::size_t _MinorObjects = 0;
  std::size_t _Relationships = 0;
  std::size_t _Relations = 0;
};

// What the library's reader returned for the file, and what rixsax adds.
struct RixsaxStepRecord : MabRixReadResult
{
  const RixsaxHandlerEntry* _pEntry = nullptr;
  std::string _File;
  RixsaxContextCounts _ContextCounts;
};

// Reads iFile ("-": the standard input) through the handler of iEntry.
RixsaxStepRecord RixsaxRunStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile);

#endif
