// rixmem: reads one response streaming it from a file or stdin in 64 KiB
// chunks and reports what it cost in memory: peak resident memory, the heap
// and resident memory the result occupies, heap allocations made while
// reading, the sizes of the blocks the result holds, and the processor time
// of reading and of destroying the result.
//
//   rixmem [--no-count] KIND FILE|-      the handler of KIND (rixgen's kinds)
//   rixmem [--no-count] floor FILE|-     expat alone, do-nothing callbacks
//   rixmem [--no-count] libxml2 FILE|-   object list through a libxml2 tree
//   rixmem [--no-count] pugixml FILE|-   object list through a pugixml tree
//
// --no-count leaves the allocation counters off (instruction counts under
// callgrind, which counts MabRixRunHandlerOnStream, MabRixParseFloorStream
// and TearDown separately).
#include <malloc.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "MabRixBenchHandlers.h"
#include "MabRixBenchTrees.h"
#include "MabRixTNRObjectContext.h"

namespace
{
// The counting allocator: every operator new and delete of the process goes
// through it. While counting, it counts the allocations and frees and keeps
// the number of live blocks per usable size (16-byte classes up to 64 KiB).
constexpr std::size_t SizeClasses = 4096;
struct Counters
{
  bool _Counting = false;
  std::uint64_t _Allocations = 0, _Frees = 0;
  long long _Live[SizeClasses + 1] = {};
  long long _LiveLargeBytes = 0;
};
thread_local Counters Counted;

void Note(void* ipBlock, int iDelta)
{
  const std::size_t Size = malloc_usable_size(ipBlock);
  const std::size_t Class = Size / 16;
  if (Class < SizeClasses)
    Counted._Live[Class] += iDelta;
  else
    Counted._LiveLargeBytes += iDelta * static_cast<long long>(Size);
}

void* Allocate(std::size_t iSize, std::size_t iAlignment)
{
  void* pBlock = iAlignment > alignof(std::max_align_t)
                     ? std::aligned_alloc(iAlignment, (iSize + iAlignment - 1) / iAlignment * iAlignment)
                     : std::malloc(iSize ? iSize : 1);
  if (pBlock && Counted._Counting)
  {
    ++Counted._Allocations;
    Note(pBlock, 1);
  }
  return pBlock;
}

void Free(void* ipBlock)
{
  if (ipBlock && Counted._Counting)
  {
    ++Counted._Frees;
    Note(ipBlock, -1);
  }
  std::free(ipBlock);
}

void* AllocateOrThrow(std::size_t iSize, std::size_t iAlignment)
{
  if (void* pBlock = Allocate(iSize, iAlignment))
    return pBlock;
  throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t iSize) { return AllocateOrThrow(iSize, 0); }
void* operator new[](std::size_t iSize) { return AllocateOrThrow(iSize, 0); }
void* operator new(std::size_t iSize, std::align_val_t iAlignment)
{
  return AllocateOrThrow(iSize, static_cast<std::size_t>(iAlignment));
}
void* operator new[](std::size_t iSize, std::align_val_t iAlignment)
{
  return AllocateOrThrow(iSize, static_cast<std::size_t>(iAlignment));
}
void* operator new(std::size_t iSize, const std::nothrow_t&) noexcept { return Allocate(iSize, 0); }
void* operator new[](std::size_t iSize, const std::nothrow_t&) noexcept { return Allocate(iSize, 0); }
void* operator new(std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return Allocate(iSize, static_cast<std::size_t>(iAlignment));
}
void* operator new[](std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return Allocate(iSize, static_cast<std::size_t>(iAlignment));
}
void operator delete(void* ipBlock) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock) noexcept { Free(ipBlock); }
void operator delete(void* ipBlock, std::size_t) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock, std::size_t) noexcept { Free(ipBlock); }
void operator delete(void* ipBlock, std::align_val_t) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock, std::align_val_t) noexcept { Free(ipBlock); }
void operator delete(void* ipBlock, std::size_t, std::align_val_t) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock, std::size_t, std::align_val_t) noexcept { Free(ipBlock); }
void operator delete(void* ipBlock, const std::nothrow_t&) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock, const std::nothrow_t&) noexcept { Free(ipBlock); }
void operator delete(void* ipBlock, std::align_val_t, const std::nothrow_t&) noexcept { Free(ipBlock); }
void operator delete[](void* ipBlock, std::align_val_t, const std::nothrow_t&) noexcept { Free(ipBlock); }

namespace
{
std::size_t HeapInUse()
{
  const struct mallinfo2 Info = mallinfo2();
  return Info.uordblks + Info.hblkhd;
}

// Anonymous resident memory after handing freed heap back to the kernel:
// what the process really holds, whichever way the memory was obtained.
std::size_t ResidentAnonymous()
{
  malloc_trim(0);
  std::ifstream Status("/proc/self/status");
  std::string Line;
  while (std::getline(Status, Line))
    if (Line.rfind("RssAnon:", 0) == 0)
      return std::strtoull(Line.c_str() + 8, nullptr, 10) * 1024;
  return 0;
}

long PeakResidentKiB()
{
  struct rusage Usage = {};
  getrusage(RUSAGE_SELF, &Usage);
  return Usage.ru_maxrss;
}

double ProcessSeconds()
{
  timespec Now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &Now);
  return static_cast<double>(Now.tv_sec) + static_cast<double>(Now.tv_nsec) * 1e-9;
}

// Counts the bytes read through it.
class CountingBuffer : public std::streambuf
{
public:
  explicit CountingBuffer(std::streambuf* ipSource) : _pSource(ipSource), _Buffer(64 * 1024) {}
  std::uint64_t GetCount() const { return _Count; }

protected:
  int_type underflow() override
  {
    const std::streamsize Read = _pSource->sgetn(_Buffer.data(), static_cast<std::streamsize>(_Buffer.size()));
    if (Read <= 0)
      return traits_type::eof();
    _Count += static_cast<std::uint64_t>(Read);
    setg(_Buffer.data(), _Buffer.data(), _Buffer.data() + Read);
    return traits_type::to_int_type(_Buffer[0]);
  }

private:
  std::streambuf* _pSource;
  std::vector<char> _Buffer;
  std::uint64_t _Count = 0;
};

// Destroys the result: the value handed up and the session with its context.
__attribute__((noinline)) void TearDown(MabRixBenchRun& ioRun, MabRixBenchSession& ioSession)
{
  ioRun = MabRixBenchRun();
  ioSession = MabRixBenchSession();
}

// The size classes holding most of the live bytes, "bytes:count" each.
std::string LiveSizes()
{
  std::vector<std::pair<long long, std::size_t>> Bytes;
  for (std::size_t Class = 0; Class < SizeClasses; ++Class)
    if (Counted._Live[Class] > 0)
      Bytes.push_back({Counted._Live[Class] * static_cast<long long>(Class * 16), Class});
  std::sort(Bytes.rbegin(), Bytes.rend());
  std::string Text;
  char Item[64];
  for (std::size_t i = 0; i < Bytes.size() && i < 8; ++i)
  {
    std::snprintf(Item, sizeof Item, "%s%zu:%lld", Text.empty() ? "" : ",", Bytes[i].second * 16,
                  Counted._Live[Bytes[i].second]);
    Text.append(Item);
  }
  if (Counted._LiveLargeBytes > 0)
  {
    std::snprintf(Item, sizeof Item, "%slarge:%lld", Text.empty() ? "" : ",", Counted._LiveLargeBytes);
    Text.append(Item);
  }
  return Text.empty() ? "-" : Text;
}
}  // namespace

int main(int argc, char** argv)
{
  bool Count = true;
  if (argc > 1 && std::strcmp(argv[1], "--no-count") == 0)
  {
    Count = false;
    --argc;
    ++argv;
  }
  MabRixResponseKind Kind = MabRixResponseKind::ObjectList;
  const std::string Mode = argc == 3 ? argv[1] : "";
  const bool Reference = Mode == "floor" || Mode == "libxml2" || Mode == "pugixml";
  if (argc != 3 || (!Reference && !MabRixResponseGenerator::KindFromName(argv[1], Kind)))
  {
    std::fprintf(stderr, "usage: rixmem [--no-count] KIND|floor|libxml2|pugixml FILE|-\n");
    return 2;
  }
  MabRixBenchTarget Target;
  if (!Reference && !MabRixBenchTargetFor(Kind, Target))
  {
    std::fprintf(stderr, "rixmem: no handler reads %s yet\n", argv[1]);
    return 2;
  }
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
  CountingBuffer Counting(pInput->rdbuf());
  std::istream Input(&Counting);

  MabRixBenchSession Session;
  if (!Reference)
    Session = Target(0);
  const std::size_t HeapBefore = HeapInUse(), ResidentBefore = ResidentAnonymous();
  const double ReadStart = ProcessSeconds();
  Counted._Counting = Count;
  MabRixBenchRun Run;
  std::uint64_t Entries = 0;
  if (Mode == "floor")
  {
    Run._Started = true;
    Run._Result = MabRixParseFloorStream(Input) ? S_OK : E_FAIL;
  }
  else if (Mode == "libxml2" || Mode == "pugixml")
  {
    // The tree is freed inside; the context stays, as the handler's does.
    MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
    Run._Started = true;
    Run._Result =
        (Mode == "libxml2" ? MabRixTreeLibxml2File(argv[2], *pContext) : MabRixTreePugixmlStream(Input, *pContext))
            ? S_OK
            : E_FAIL;
    Entries = pContext->GetMinorObjects().size();
    Session._spKeep = std::shared_ptr<void>(
        pContext, [](void* ipContext) { static_cast<MabRixTNRObjectContext*>(ipContext)->Release(); });
  }
  else
    Run = MabRixRunHandlerOnStream(Input, MabRixResponseGenerator::ListElement(Kind), Session._Factory);
  Counted._Counting = false;
  const double ReadSeconds = ProcessSeconds() - ReadStart;
  const std::size_t HeapAfter = HeapInUse(), ResidentAfter = ResidentAnonymous();
  if (Session._Entries)
    Entries = Session._Entries(Run);
  const std::string Sizes = LiveSizes();
  const long PeakKiB = PeakResidentKiB();
  const HRESULT Result = Run._Result;
  const bool Started = Run._Started;
  const double TeardownStart = ProcessSeconds();
  TearDown(Run, Session);
  const double TeardownSeconds = ProcessSeconds() - TeardownStart;
  // libxml2 reads its file itself: the bytes are the file's.
  std::uint64_t Bytes = Counting.GetCount();
  if (Mode == "libxml2" && File.is_open())
  {
    File.clear();
    File.seekg(0, std::ios::end);
    Bytes = static_cast<std::uint64_t>(File.tellg());
  }
  std::printf(
      "kind %s result 0x%08x started %d entries %llu bytes %llu result_heap_bytes %lld result_rss_bytes %lld "
      "peak_rss_kib %ld allocations %llu frees %llu read_cpu_s %.6f teardown_cpu_s %.6f live_sizes %s\n",
      argv[1], static_cast<unsigned>(Result), Started ? 1 : 0, static_cast<unsigned long long>(Entries),
      static_cast<unsigned long long>(Bytes), static_cast<long long>(HeapAfter) - static_cast<long long>(HeapBefore),
      static_cast<long long>(ResidentAfter) - static_cast<long long>(ResidentBefore), PeakKiB,
      static_cast<unsigned long long>(Counted._Allocations), static_cast<unsigned long long>(Counted._Frees),
      ReadSeconds, TeardownSeconds, Sizes.c_str());
  return FAILED(Result) || !Started ? 1 : 0;
}
