// The benchmark suite. Besides Google Benchmark's own flags it takes
//   --mabrix_sizes=1000,10000,100000,1000000   record counts to measure
//   --mabrix_smoke                              every case once at 1000 records
#include <malloc.h>
#include <sys/resource.h>
#include <time.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "MabRixBenchCases.h"

std::vector<MabRixBenchCase>& MabRixBenchCases()
{
  static std::vector<MabRixBenchCase> Cases;
  return Cases;
}

const std::vector<const char*>& MabRixBenchFamilies()
{
  static const std::vector<const char*> Families = {"floor",   "host",    "handler-cold",
                                                    "libxml2", "pugixml", "handler-warm"};
  return Families;
}

void MabRixBenchCount(benchmark::State& ioState, const MabRixBenchDocument& iDocument)
{
  const MabRixGeneratorStats& Stats = iDocument._Stats;
  ioState.SetBytesProcessed(static_cast<std::int64_t>(Stats._Bytes * ioState.iterations()));
  ioState.SetItemsProcessed(static_cast<std::int64_t>(Stats._Records * ioState.iterations()));
  ioState.counters["records"] = static_cast<double>(Stats._Records);
  ioState.counters["elements"] = static_cast<double>(Stats._Elements);
  ioState.counters["doc_bytes"] = static_cast<double>(Stats._Bytes);
  ioState.counters["elements/s"] =
      benchmark::Counter(static_cast<double>(Stats._Elements), benchmark::Counter::kIsIterationInvariantRate);
}

std::size_t MabRixBenchHeapInUse()
{
  const struct mallinfo2 Info = mallinfo2();
  return Info.uordblks + Info.hblkhd;
}

void MabRixBenchUsage::Start()
{
  struct rusage Usage = {};
  getrusage(RUSAGE_SELF, &Usage);
  _StartSystem = static_cast<double>(Usage.ru_stime.tv_sec) + static_cast<double>(Usage.ru_stime.tv_usec) * 1e-6;
  _StartFaults = Usage.ru_minflt + Usage.ru_majflt;
}

void MabRixBenchUsage::Stop()
{
  struct rusage Usage = {};
  getrusage(RUSAGE_SELF, &Usage);
  _System +=
      static_cast<double>(Usage.ru_stime.tv_sec) + static_cast<double>(Usage.ru_stime.tv_usec) * 1e-6 - _StartSystem;
  _Faults += Usage.ru_minflt + Usage.ru_majflt - _StartFaults;
}

void MabRixBenchUsage::Report(benchmark::State& ioState) const
{
  const double Iterations = ioState.iterations() ? static_cast<double>(ioState.iterations()) : 1;
  ioState.counters["system_s"] = _System / Iterations;
  ioState.counters["page_faults"] = static_cast<double>(_Faults) / Iterations;
}

void MabRixBenchPrepareHeap(MabRixBenchHeap iHeap)
{
  if (iHeap == MabRixBenchHeap::Cold)
  {
    malloc_trim(0);
    return;
  }
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_MMAP_MAX, 0);
}

namespace
{
double ProcessSeconds()
{
  timespec Now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &Now);
  return static_cast<double>(Now.tv_sec) + static_cast<double>(Now.tv_nsec) * 1e-9;
}

// The last document a warm case ran on: its untimed first run is done once.
thread_local std::pair<MabRixResponseKind, std::uint64_t> LastWarmed = {MabRixResponseKind::ObjectList, 0};
}  // namespace

void MabRixBenchHandler(benchmark::State& ioState, const MabRixBenchDocument& iDocument, MabRixBenchHeap iHeap,
                        const std::function<MabRixBenchFactory()>& iPrepare,
                        const std::function<void(const MabRixBenchRun&)>& iCheck,
                        const std::function<void()>& iTeardown)
{
  const char* List = MabRixResponseGenerator::ListElement(iDocument._Kind);
  MabRixBenchPrepareHeap(iHeap);
  if (iHeap == MabRixBenchHeap::Warm && LastWarmed != std::make_pair(iDocument._Kind, iDocument._Count))
  {
    LastWarmed = {iDocument._Kind, iDocument._Count};
    MabRixBenchRun Run = MabRixRunHandler(iDocument._Text.data(), iDocument._Text.size(), List, iPrepare());
    iCheck(Run);
    Run = MabRixBenchRun();
    iTeardown();
  }
  double Teardown = 0;
  double Heap = 0;
  MabRixBenchUsage Usage;
  for (auto _ : ioState)
  {
    ioState.PauseTiming();
    const MabRixBenchFactory Factory = iPrepare();
    MabRixBenchPrepareHeap(iHeap);
    const std::size_t HeapBefore = MabRixBenchHeapInUse();
    Usage.Start();
    ioState.ResumeTiming();
    MabRixBenchRun Run = MabRixRunHandler(iDocument._Text.data(), iDocument._Text.size(), List, Factory);
    ioState.PauseTiming();
    Usage.Stop();
    Heap = static_cast<double>(MabRixBenchHeapInUse()) - static_cast<double>(HeapBefore);
    if (!Run._Started || FAILED(Run._Result))
      ioState.SkipWithError("the handler did not read the document");
    iCheck(Run);
    const double TeardownStart = ProcessSeconds();
    Run = MabRixBenchRun();
    iTeardown();
    Teardown += ProcessSeconds() - TeardownStart;
    ioState.ResumeTiming();
  }
  MabRixBenchCount(ioState, iDocument);
  Usage.Report(ioState);
  // Freeing the result: the value handed up and the context.
  ioState.counters["teardown_s"] = ioState.iterations() ? Teardown / static_cast<double>(ioState.iterations()) : 0;
  ioState.counters["heap_bytes"] = Heap;
}

namespace
{
std::vector<std::uint64_t> ParseSizes(const char* iText)
{
  std::vector<std::uint64_t> Sizes;
  while (*iText)
  {
    char* pEnd = nullptr;
    Sizes.push_back(std::strtoull(iText, &pEnd, 10));
    iText = *pEnd == ',' ? pEnd + 1 : pEnd;
    if (pEnd == iText && *iText)
      break;
  }
  return Sizes;
}
}  // namespace

int main(int argc, char** argv)
{
  std::vector<std::uint64_t> Sizes = {1000, 10000, 100000, 1000000};
  std::vector<char*> Arguments;
  bool Smoke = false;
  for (int i = 0; i < argc; ++i)
  {
    const std::string Argument = argv[i];
    if (Argument.rfind("--mabrix_sizes=", 0) == 0)
      Sizes = ParseSizes(argv[i] + std::strlen("--mabrix_sizes="));
    else if (Argument == "--mabrix_smoke")
      Smoke = true;
    else
      Arguments.push_back(argv[i]);
  }
  if (Smoke)
    Sizes = {1000};
  for (const std::uint64_t Size : Sizes)
    for (const MabRixResponseKind Kind : MabRixResponseGenerator::AllKinds())
      for (const char* Family : MabRixBenchFamilies())
        for (const MabRixBenchCase& Case : MabRixBenchCases())
        {
          if (Case._Kind != Kind || std::strcmp(Case._Family, Family) != 0)
            continue;
          const std::string Name =
              std::string(Family) + "/" + MabRixResponseGenerator::KindName(Kind) + "/" + std::to_string(Size);
          benchmark::internal::Benchmark* pBenchmark =
              benchmark::RegisterBenchmark(Name.c_str(), [&Case, Kind, Size](benchmark::State& ioState) {
                Case._Run(ioState, MabRixBenchDocumentFor(Kind, Size));
              });
          pBenchmark->Unit(benchmark::kMillisecond);
          if (Smoke)
            pBenchmark->Iterations(1);
        }
  int Count = static_cast<int>(Arguments.size());
  benchmark::Initialize(&Count, Arguments.data());
  if (benchmark::ReportUnrecognizedArguments(Count, Arguments.data()))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  MabRixBenchDropDocument();
  return 0;
}
