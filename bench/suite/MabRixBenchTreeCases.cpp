// Baselines: read an object list the tree way, with libxml2 and with
// pugixml. The library parses the whole document into a tree, a walk fills a
// TNR context with the same entities and properties the object list handler
// gives it, and the tree is freed (timed); the context is created and
// destroyed untimed. Cold heap, like the pipeline's cold case.
#include "MabRixBenchCases.h"
#include "MabRixBenchTrees.h"
#include "MabRixTNRObjectContext.h"

namespace
{
typedef bool (*TreeReader)(const char*, std::size_t, MabRixTNRObjectContext&, const std::function<void()>&);

void Tree(benchmark::State& ioState, const MabRixBenchDocument& iDocument, TreeReader iRead)
{
  std::uint64_t Objects = 0;
  double Heap = 0;
  MabRixBenchUsage Usage;
  for (auto _ : ioState)
  {
    ioState.PauseTiming();
    MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
    MabRixBenchPrepareHeap(MabRixBenchHeap::Cold);
    const std::size_t HeapBefore = MabRixBenchHeapInUse();
    Usage.Start();
    ioState.ResumeTiming();
    // The heap at its peak: tree and context both built.
    if (!iRead(iDocument._Text.data(), iDocument._Text.size(), *pContext,
               [&] { Heap = static_cast<double>(MabRixBenchHeapInUse()) - static_cast<double>(HeapBefore); }))
      ioState.SkipWithError("the tree library could not read the document");
    ioState.PauseTiming();
    Usage.Stop();
    Objects = pContext->GetMinorObjects().size();
    pContext->Release();
    ioState.ResumeTiming();
  }
  MabRixBenchCount(ioState, iDocument);
  Usage.Report(ioState);
  ioState.counters["entries"] = static_cast<double>(Objects);
  ioState.counters["heap_bytes"] = Heap;
}

const MabRixBenchRegistrar Libxml2("libxml2", MabRixResponseKind::ObjectList,
                                   [](benchmark::State& ioState, const MabRixBenchDocument& iDocument) {
                                     Tree(ioState, iDocument, &MabRixTreeLibxml2);
                                   });
const MabRixBenchRegistrar Pugixml("pugixml", MabRixResponseKind::ObjectList,
                                   [](benchmark::State& ioState, const MabRixBenchDocument& iDocument) {
                                     Tree(ioState, iDocument, &MabRixTreePugixml);
                                   });
}  // namespace
