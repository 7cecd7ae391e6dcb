// The full pipeline: host parser, root handler and the handler that reads
// each kind of response, filling its value or its object context.
#include "MabRixBenchCases.h"
#include "MabRixBenchHandlers.h"

namespace
{
const bool Registered = [] {
  for (const MabRixResponseKind Kind : MabRixResponseGenerator::AllKinds())
  {
    MabRixBenchTarget Target;
    if (!MabRixBenchTargetFor(Kind, Target))
      continue;
    MabRixBenchRegistrar("handler", Kind, [Target](benchmark::State& ioState, const MabRixBenchDocument& iDocument) {
      std::shared_ptr<MabRixBenchSession> spSession;
      std::uint64_t Entries = 0;
      MabRixBenchHandler(
          ioState, iDocument,
          [&] {
            spSession = std::make_shared<MabRixBenchSession>(Target(iDocument._Stats._Records));
            return spSession->_Factory;
          },
          [&](const MabRixBenchRun& iRun) {
            Entries = spSession->_Entries(iRun);
            spSession.reset();
          });
      ioState.counters["entries"] = static_cast<double>(Entries);
    });
  }
  return true;
}();
}  // namespace
