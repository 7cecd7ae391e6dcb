// The full pipeline: host parser, root handler and the handler that reads
// each kind of response, filling its value or its object context; with a
// cold heap and with a warm one.
#include "MabRixBenchCases.h"
#include "MabRixBenchHandlers.h"

namespace
{
void RegisterHandler(const char* iFamily, MabRixBenchHeap iHeap, MabRixResponseKind iKind, MabRixBenchTarget iTarget)
{
  MabRixBenchRegistrar(
      iFamily, iKind, [iHeap, iTarget](benchmark::State& ioState, const MabRixBenchDocument& iDocument) {
        std::shared_ptr<MabRixBenchSession> spSession;
        std::uint64_t Entries = 0;
        MabRixBenchHandler(
            ioState, iDocument, iHeap,
            [&] {
              spSession = std::make_shared<MabRixBenchSession>(iTarget(iDocument._Stats._Records));
              return spSession->_Factory;
            },
            [&](const MabRixBenchRun& iRun) { Entries = spSession->_Entries(iRun); }, [&] { spSession.reset(); });
        ioState.counters["entries"] = static_cast<double>(Entries);
      });
}

const bool Registered = [] {
  for (const MabRixResponseKind Kind : MabRixResponseGenerator::AllKinds())
  {
    MabRixBenchTarget Target;
    if (!MabRixBenchTargetFor(Kind, Target))
      continue;
    RegisterHandler("handler-cold", MabRixBenchHeap::Cold, Kind, Target);
    RegisterHandler("handler-warm", MabRixBenchHeap::Warm, Kind, Target);
  }
  return true;
}();
}  // namespace
