#include "MabRixTestAllocations.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local std::size_t tCount = 0;
thread_local bool tArmed = false;
thread_local std::size_t tSkipped = 0;

// Null when this allocation is the one to fail.
void* Allocate(std::size_t iSize, std::size_t iAlignment = 0) noexcept
{
  ++tCount;
  if (tArmed)
  {
    if (tSkipped == 0)
    {
      tArmed = false;
      return nullptr;
    }
    --tSkipped;
  }
  return iAlignment ? std::aligned_alloc(iAlignment, iSize) : std::malloc(iSize ? iSize : 1);
}

// aligned_alloc wants a size that is a multiple of the alignment.
void* AllocateAligned(std::size_t iSize, std::align_val_t iAlignment) noexcept
{
  const std::size_t Alignment = static_cast<std::size_t>(iAlignment);
  const std::size_t Size = iSize ? (iSize + Alignment - 1) / Alignment * Alignment : Alignment;
  return Allocate(Size, Alignment);
}

template <class... Arguments>
void* AllocateOrThrow(Arguments... iArguments)
{
  void* p = [&] {
    if constexpr (sizeof...(Arguments) == 1)
      return Allocate(iArguments...);
    else
      return AllocateAligned(iArguments...);
  }();
  if (!p)
    throw std::bad_alloc();
  return p;
}
}  // namespace

namespace MabRixTestAllocations
{
std::size_t Count() { return tCount; }

void FailOne(std::size_t iSkipped)
{
  tArmed = true;
  tSkipped = iSkipped;
}

void Disarm() { tArmed = false; }
}  // namespace MabRixTestAllocations

void* operator new(std::size_t iSize) { return AllocateOrThrow(iSize); }
void* operator new[](std::size_t iSize) { return AllocateOrThrow(iSize); }
void* operator new(std::size_t iSize, const std::nothrow_t&) noexcept { return Allocate(iSize); }
void* operator new[](std::size_t iSize, const std::nothrow_t&) noexcept { return Allocate(iSize); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }
void* operator new(std::size_t iSize, std::align_val_t iAlignment) { return AllocateOrThrow(iSize, iAlignment); }
void* operator new[](std::size_t iSize, std::align_val_t iAlignment) { return AllocateOrThrow(iSize, iAlignment); }
void* operator new(std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return AllocateAligned(iSize, iAlignment);
}
void* operator new[](std::size_t iSize, std::align_val_t iAlignment, const std::nothrow_t&) noexcept
{
  return AllocateAligned(iSize, iAlignment);
}
void operator delete(void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }
