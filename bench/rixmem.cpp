// rixmem: reads one response through its handler, streaming it from a file
// or stdin in 64 KiB chunks, and reports peak resident memory and the heap
// the result occupies. Usage: rixmem KIND FILE|-
#include <malloc.h>
#include <sys/resource.h>

#include <cstdio>
#include <fstream>
#include <iostream>

#include "MabRixBenchHandlers.h"

namespace
{
std::size_t HeapInUse()
{
  const struct mallinfo2 Info = mallinfo2();
  return Info.uordblks + Info.hblkhd;
}

long PeakResidentKiB()
{
  struct rusage Usage = {};
  getrusage(RUSAGE_SELF, &Usage);
  return Usage.ru_maxrss;
}
}  // namespace

int main(int argc, char** argv)
{
  MabRixResponseKind Kind = MabRixResponseKind::ObjectList;
  if (argc != 3 || !MabRixResponseGenerator::KindFromName(argv[1], Kind))
  {
    std::fprintf(stderr, "usage: rixmem KIND FILE|-\n");
    return 2;
  }
  MabRixBenchTarget Target;
  if (!MabRixBenchTargetFor(Kind, Target))
  {
    std::fprintf(stderr, "rixmem: no handler reads %s yet\n", argv[1]);
    return 2;
  }
  const std::size_t HeapBefore = HeapInUse();
  std::ifstream File;
  std::istream* pInput = &std::cin;
  if (std::string(argv[2]) != "-")
  {
    File.open(argv[2], std::ios::binary);
    if (!File)
    {
      std::perror(argv[2]);
      return 1;
    }
    pInput = &File;
  }
  MabRixBenchSession Session = Target(0);
  const MabRixBenchRun Run =
      MabRixRunHandlerOnStream(*pInput, MabRixResponseGenerator::ListElement(Kind), Session._Factory);
  const std::size_t HeapAfter = HeapInUse();
  std::printf("kind %s result 0x%08x started %d entries %llu result_heap_bytes %zu peak_rss_kib %ld\n", argv[1],
              static_cast<unsigned>(Run._Result), Run._Started ? 1 : 0,
              static_cast<unsigned long long>(Session._Entries(Run)), HeapAfter - HeapBefore, PeakResidentKiB());
  return FAILED(Run._Result) || !Run._Started ? 1 : 0;
}
