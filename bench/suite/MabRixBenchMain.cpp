// The benchmark suite. Besides Google Benchmark's own flags it takes
//   --mabrix_sizes=1000,10000,100000,1000000   record counts to measure
//   --mabrix_smoke                              every case once at 1000 records
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "MabRixBenchCases.h"

std::vector<MabRixBenchCase>& MabRixBenchCases()
{
  static std::vector<MabRixBenchCase> Cases;
  return Cases;
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

void MabRixBenchHandler(benchmark::State& ioState, const MabRixBenchDocument& iDocument,
                        const std::function<MabRixBenchFactory()>& iPrepare,
                        const std::function<void(const MabRixBenchRun&)>& iCheck)
{
  const char* List = MabRixResponseGenerator::ListElement(iDocument._Kind);
  for (auto _ : ioState)
  {
    ioState.PauseTiming();
    const MabRixBenchFactory Factory = iPrepare();
    ioState.ResumeTiming();
    MabRixBenchRun Run = MabRixRunHandler(iDocument._Text.data(), iDocument._Text.size(), List, Factory);
    ioState.PauseTiming();
    if (!Run._Started || FAILED(Run._Result))
      ioState.SkipWithError("the handler did not read the document");
    iCheck(Run);
    // The result is freed untimed, like the context.
    Run = MabRixBenchRun();
    ioState.ResumeTiming();
  }
  MabRixBenchCount(ioState, iDocument);
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
      for (const char* Family : {"floor", "host", "handler", "dom"})
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
