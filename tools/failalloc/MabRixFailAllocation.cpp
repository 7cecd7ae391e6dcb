// Preloaded allocator that fails exactly one allocation of a program: the
// Nth one made once main has started (MABRIX_FAIL_ALLOCATION=N; counting
// starts at 1). malloc, calloc, realloc, the aligned forms and every form of
// operator new are counted and passed on to the next allocator (the C
// library's, or the sanitizer's when the program is instrumented). When the
// failure is made, a line with N and the size is appended to the file named
// by MABRIX_FAIL_ALLOCATION_LOG, so a driver can tell a run that met its
// failure from one that ended before its Nth allocation.
//
//   LD_PRELOAD=libmabrix_failalloc.so MABRIX_FAIL_ALLOCATION=12 rixsax ...
//
// Under AddressSanitizer the runtime must not insist on coming first:
// ASAN_OPTIONS=verify_asan_link_order=0.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace
{
using MallocFn = void* (*)(std::size_t);
using CallocFn = void* (*)(std::size_t, std::size_t);
using ReallocFn = void* (*)(void*, std::size_t);
using FreeFn = void (*)(void*);
using MemalignFn = int (*)(void**, std::size_t, std::size_t);
using AlignedAllocFn = void* (*)(std::size_t, std::size_t);
using MainFn = int (*)(int, char**, char**);
using StartMainFn = int (*)(MainFn, int, char**, void (*)(), void (*)(), void (*)(), void*);

MallocFn pNextMalloc = nullptr;
CallocFn pNextCalloc = nullptr;
ReallocFn pNextRealloc = nullptr;
FreeFn pNextFree = nullptr;
MemalignFn pNextMemalign = nullptr;
AlignedAllocFn pNextAlignedAlloc = nullptr;
MainFn pRealMain = nullptr;

std::atomic<bool> sArmed{false};
std::atomic<unsigned long long> sCount{0};
unsigned long long sFailAt = 0;  // 0: never

// dlsym may allocate while the next allocator is being looked up: those
// requests are served from here and never freed.
alignas(std::max_align_t) char sBootstrap[64 * 1024];
std::size_t sBootstrapUsed = 0;
thread_local bool tResolving = false;

bool FromBootstrap(const void* ipBlock)
{
  return ipBlock >= static_cast<const void*>(sBootstrap) &&
         ipBlock < static_cast<const void*>(sBootstrap + sizeof(sBootstrap));
}

void* BootstrapAllocate(std::size_t iSize)
{
  const std::size_t Size = (iSize + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
  if (sBootstrapUsed + Size > sizeof(sBootstrap))
    return nullptr;
  void* pBlock = sBootstrap + sBootstrapUsed;
  sBootstrapUsed += Size;
  return pBlock;
}

void Resolve()
{
  if (pNextMalloc || tResolving)
    return;
  tResolving = true;
  pNextCalloc = reinterpret_cast<CallocFn>(dlsym(RTLD_NEXT, "calloc"));
  pNextRealloc = reinterpret_cast<ReallocFn>(dlsym(RTLD_NEXT, "realloc"));
  pNextFree = reinterpret_cast<FreeFn>(dlsym(RTLD_NEXT, "free"));
  pNextMemalign = reinterpret_cast<MemalignFn>(dlsym(RTLD_NEXT, "posix_memalign"));
  pNextAlignedAlloc = reinterpret_cast<AlignedAllocFn>(dlsym(RTLD_NEXT, "aligned_alloc"));
  if (const char* pText = std::getenv("MABRIX_FAIL_ALLOCATION"))
    sFailAt = std::strtoull(pText, nullptr, 10);
  pNextMalloc = reinterpret_cast<MallocFn>(dlsym(RTLD_NEXT, "malloc"));
  tResolving = false;
}

void Log(unsigned long long iNumber, std::size_t iSize)
{
  const char* pPath = std::getenv("MABRIX_FAIL_ALLOCATION_LOG");
  if (!pPath)
    return;
  const int Fd = open(pPath, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  if (Fd < 0)
    return;
  char Line[96];
  const int Length = std::snprintf(Line, sizeof(Line), "failed allocation %llu of %zu bytes\n", iNumber, iSize);
  if (Length > 0 && write(Fd, Line, static_cast<std::size_t>(Length)) < 0)
    errno = 0;
  close(Fd);
}

// True when this allocation is the one to fail.
bool FailThisOne(std::size_t iSize)
{
  if (!sArmed.load(std::memory_order_relaxed) || sFailAt == 0)
    return false;
  const unsigned long long Number = sCount.fetch_add(1, std::memory_order_relaxed) + 1;
  if (Number != sFailAt)
    return false;
  Log(Number, iSize);
  errno = ENOMEM;
  return true;
}

int ArmedMain(int iArgc, char** iArgv, char** iEnv)
{
  Resolve();
  sArmed = true;
  return pRealMain(iArgc, iArgv, iEnv);
}

// As the standard operator new does: while allocation fails, the installed
// new handler runs and the allocation is tried again; without one, the
// failure is std::bad_alloc (or null for the nothrow forms).
template <class Allocate>
void* NewOrThrow(Allocate iAllocate, bool iThrow)
{
  for (;;)
  {
    if (void* pBlock = iAllocate())
      return pBlock;
    std::new_handler pHandler = std::get_new_handler();
    if (!pHandler)
    {
      if (iThrow)
        throw std::bad_alloc();
      return nullptr;
    }
    if (iThrow)
      pHandler();
    else
      try
      {
        pHandler();
      }
      catch (const std::bad_alloc&)
      {
        return nullptr;
      }
  }
}

void* NewOrThrow(std::size_t iSize, bool iThrow)
{
  return NewOrThrow([iSize] { return std::malloc(iSize ? iSize : 1); }, iThrow);
}

void* AlignedNewOrThrow(std::size_t iSize, std::size_t iAlignment, bool iThrow)
{
  return NewOrThrow(
      [iSize, iAlignment] {
        void* pBlock = nullptr;
        if (posix_memalign(&pBlock, iAlignment < sizeof(void*) ? sizeof(void*) : iAlignment, iSize ? iSize : 1) != 0)
          pBlock = nullptr;
        return pBlock;
      },
      iThrow);
}
}  // namespace

extern "C" {
// Counting starts when main is entered: the C and C++ runtimes set up
// before that, and a failure there is not the program's to handle.
int __libc_start_main(MainFn iMain, int iArgc, char** iArgv, void (*iInit)(), void (*iFini)(), void (*iRtldFini)(),
                      void* iStackEnd)
{
  pRealMain = iMain;
  auto pNext = reinterpret_cast<StartMainFn>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return pNext(&ArmedMain, iArgc, iArgv, iInit, iFini, iRtldFini, iStackEnd);
}

void* malloc(std::size_t iSize)
{
  Resolve();
  if (!pNextMalloc)
    return BootstrapAllocate(iSize);
  return FailThisOne(iSize) ? nullptr : pNextMalloc(iSize);
}

void* calloc(std::size_t iCount, std::size_t iSize)
{
  Resolve();
  if (!pNextCalloc)
  {
    void* pBlock = iSize && iCount > sizeof(sBootstrap) / iSize ? nullptr : BootstrapAllocate(iCount * iSize);
    if (pBlock)
      std::memset(pBlock, 0, iCount * iSize);
    return pBlock;
  }
  return FailThisOne(iCount * iSize) ? nullptr : pNextCalloc(iCount, iSize);
}

void* realloc(void* ipBlock, std::size_t iSize)
{
  Resolve();
  if (FromBootstrap(ipBlock))
  {
    void* pBlock = malloc(iSize);
    if (pBlock)
      std::memcpy(pBlock, ipBlock, iSize);  // the bootstrap area is larger than any block of it
    return pBlock;
  }
  if (!pNextRealloc)
    return nullptr;
  return FailThisOne(iSize) ? nullptr : pNextRealloc(ipBlock, iSize);
}

void free(void* ipBlock)
{
  if (!ipBlock || FromBootstrap(ipBlock))
    return;
  Resolve();
  if (pNextFree)
    pNextFree(ipBlock);
}

int posix_memalign(void** opBlock, std::size_t iAlignment, std::size_t iSize)
{
  Resolve();
  if (!pNextMemalign)
    return ENOMEM;
  return FailThisOne(iSize) ? ENOMEM : pNextMemalign(opBlock, iAlignment, iSize);
}

void* aligned_alloc(std::size_t iAlignment, std::size_t iSize)
{
  Resolve();
  if (!pNextAlignedAlloc)
    return nullptr;
  return FailThisOne(iSize) ? nullptr : pNextAlignedAlloc(iAlignment, iSize);
}
}

// operator new goes through malloc above: the sanitizer's own operator new
// would not pass through it.
void* operator new(std::size_t iSize) { return NewOrThrow(iSize, true); }
void* operator new[](std::size_t iSize) { return NewOrThrow(iSize, true); }
void* operator new(std::size_t iSize, const std::nothrow_t&) noexcept { return NewOrThrow(iSize, false); }
void* operator new[](std::size_t iSize, const std::nothrow_t&) noexcept { return NewOrThrow(iSize, false); }
void* operator new(std::size_t iSize, std::align_val_t iAlignment)
{
  return AlignedNewOrThrow(iSize, static_cast<std::size_t>(iAlignment), true);
}
void* operator new[](std::size_t iSize, std::align_val_t iAlignment)
{
  return AlignedNewOrThrow(iSize, static_cast<std::size_t>(iAlignment), true);
}
void* operator new(std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return AlignedNewOrThrow(iSize, static_cast<std::size_t>(iAlignment), false);
}
void* operator new[](std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return AlignedNewOrThrow(iSize, static_cast<std::size_t>(iAlignment), false);
}
void operator delete(void* ipBlock) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock) noexcept { std::free(ipBlock); }
void operator delete(void* ipBlock, std::size_t) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock, std::size_t) noexcept { std::free(ipBlock); }
void operator delete(void* ipBlock, const std::nothrow_t&) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock, const std::nothrow_t&) noexcept { std::free(ipBlock); }
void operator delete(void* ipBlock, std::align_val_t) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock, std::align_val_t) noexcept { std::free(ipBlock); }
void operator delete(void* ipBlock, std::size_t, std::align_val_t) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock, std::size_t, std::align_val_t) noexcept { std::free(ipBlock); }
void operator delete(void* ipBlock, std::align_val_t, const std::nothrow_t&) noexcept { std::free(ipBlock); }
void operator delete[](void* ipBlock, std::align_val_t, const std::nothrow_t&) noexcept { std::free(ipBlock); }
