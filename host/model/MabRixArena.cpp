#include "MabRixArena.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <new>

namespace
{
constexpr std::size_t MaxChunkBytes = std::size_t(8) << 20;
constexpr std::size_t HugePageBytes = std::size_t(2) << 20;

// Asks for huge pages on the 2 MiB pages lying wholly inside the chunk; the
// kernel may refuse, which only costs the advice.
void AdviseHugePages(char* ipStart, std::size_t iBytes)
{
  const std::uintptr_t Start = (reinterpret_cast<std::uintptr_t>(ipStart) + HugePageBytes - 1) & ~(HugePageBytes - 1);
  const std::uintptr_t End = (reinterpret_cast<std::uintptr_t>(ipStart) + iBytes) & ~(HugePageBytes - 1);
  if (End > Start)
    madvise(reinterpret_cast<void*>(Start), End - Start, MADV_HUGEPAGE);
}
}  // namespace

MabRixArena::~MabRixArena()
{
  for (Chunk* pChunk = _pLast; pChunk;)
  {
    Chunk* pPrevious = pChunk->_pPrevious;
    ::operator delete(pChunk, pChunk->_Bytes);
    pChunk = pPrevious;
  }
}

void MabRixArena::RecycleBlock(void* ipBlock, std::size_t iBytes)
{
  if (!ipBlock || iBytes > MaxRecycledBytes || BlockBytes(iBytes) != iBytes)
    return;
  if (!_pFreeBlocks)
  {
    _pFreeBlocks = static_cast<FreeBlock**>(Allocate(BlockClasses * sizeof(FreeBlock*), alignof(FreeBlock*)));
    std::fill_n(_pFreeBlocks, BlockClasses, nullptr);
  }
  FreeBlock*& pHead = _pFreeBlocks[ClassOf(iBytes)];
  pHead = new (ipBlock) FreeBlock{pHead};
}

void* MabRixArena::do_allocate(std::size_t iBytes, std::size_t iAlignment)
{
  if (iAlignment <= alignof(FreeBlock*) && BlockBytes(iBytes) <= MaxRecycledBytes)
    return AllocateBlock(BlockBytes(iBytes));
  return Allocate(iBytes, iAlignment);
}

void MabRixArena::do_deallocate(void* ipPiece, std::size_t iBytes, std::size_t iAlignment)
{
  if (iAlignment <= alignof(FreeBlock*) && BlockBytes(iBytes) <= MaxRecycledBytes)
    RecycleBlock(ipPiece, BlockBytes(iBytes));
}

void* MabRixArena::AllocateInNewChunk(std::size_t iBytes, std::size_t iAlignment)
{
  const std::size_t Header = (sizeof(Chunk) + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
  const std::size_t Bytes = std::max(_NextChunkBytes, Header + iBytes + iAlignment);
  Chunk* pChunk = static_cast<Chunk*>(::operator new(Bytes));
  pChunk->_pPrevious = _pLast;
  pChunk->_Bytes = Bytes;
  _pLast = pChunk;
  _Reserved += Bytes;
  char* pStart = reinterpret_cast<char*>(pChunk);
  if (Bytes >= 2 * HugePageBytes)
    AdviseHugePages(pStart, Bytes);
  _pTop = pStart + Header;
  _pLimit = pStart + Bytes;
  _NextChunkBytes = std::min(2 * _NextChunkBytes, MaxChunkBytes);
  return Allocate(iBytes, iAlignment);
}
