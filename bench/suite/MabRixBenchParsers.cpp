// The two references every handler is measured against: expat alone with
// do-nothing callbacks (the floor), and the host parser class driving the
// host's do-nothing document handler (what the host layer itself costs).
#include "MabRixBenchCases.h"

namespace
{
void Floor(benchmark::State& ioState, const MabRixBenchDocument& iDocument)
{
  MabRixFloorPeakHeap();
  MabRixBenchUsage Usage;
  for (auto _ : ioState)
  {
    Usage.Start();
    if (!MabRixParseFloor(iDocument._Text.data(), iDocument._Text.size()))
      ioState.SkipWithError("not well-formed");
    Usage.Stop();
  }
  MabRixBenchCount(ioState, iDocument);
  Usage.Report(ioState);
  ioState.counters["heap_bytes"] = static_cast<double>(MabRixFloorPeakHeap());
}

void Host(benchmark::State& ioState, const MabRixBenchDocument& iDocument)
{
  for (auto _ : ioState)
    if (FAILED(MabRixParseHost(iDocument._Text.data(), iDocument._Text.size())))
      ioState.SkipWithError("the host parser failed");
  MabRixBenchCount(ioState, iDocument);
}

const bool Registered = [] {
  for (const MabRixResponseKind Kind : MabRixResponseGenerator::AllKinds())
  {
    MabRixBenchRegistrar("floor", Kind, &Floor);
    MabRixBenchRegistrar("host", Kind, &Host);
  }
  return true;
}();
}  // namespace
