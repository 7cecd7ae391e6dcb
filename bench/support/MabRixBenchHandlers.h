// The handler that reads each kind of response, ready to run: a session
// owns what the handler needs (an object context, a prefilled one for a
// structure) and counts what the run produced. Handlers not built yet have
// no target.
#ifndef MabRixBenchHandlers_h
#define MabRixBenchHandlers_h

#include <cstdint>
#include <functional>
#include <memory>

#include "MabRixBenchSupport.h"

struct MabRixBenchSession
{
  MabRixBenchFactory _Factory;
  // Entries of the result: map entries, objects in the context, rows.
  std::function<std::uint64_t(const MabRixBenchRun&)> _Entries;
  std::shared_ptr<void> _spKeep;  // the context and whatever else lives as long as the session
};

// Opens a session for a document of iRecords records.
typedef std::function<MabRixBenchSession(std::uint64_t iRecords)> MabRixBenchTarget;

// False when no handler of this library reads iKind yet.
bool MabRixBenchTargetFor(MabRixResponseKind iKind, MabRixBenchTarget& oTarget);

#endif
