/// Memory of one object context: a monotonic arena that hands out pieces of
/// large chunks and frees them all at once when it is destroyed. Chunks grow
/// from a few kilobytes for a small response up to several megabytes for a
/// large one; those are offered to the kernel for huge pages, which spares
/// the page faults of touching millions of small pages.
///
/// Blocks that move when they grow (an entity's properties, set a few at a
/// time while other entities are made) are taken with AllocateBlock in the
/// sizes of BlockBytes and given back with RecycleBlock: the next block of
/// the same size reuses the room instead of leaving it behind. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixArena_h
#define MabRixArena_h

#include <bit>
#include <cstddef>
#include <memory_resource>

class MabRixArena : public std::pmr::memory_resource
{
public:
  MabRixArena() = default;
  MabRixArena(const MabRixArena&) = delete;
  MabRixArena& operator=(const MabRixArena&) = delete;
  ~MabRixArena() override;

  /// iBytes of room aligned on iAlignment (a power of two at most 16). Throws
  /// std::bad_alloc like operator new when the memory is not there.
  void* Allocate(std::size_t iBytes, std::size_t iAlignment = alignof(std::max_align_t))
  {
    char* pStart = Align(_pTop, iAlignment);
    if (!_pTop || pStart > _pLimit || static_cast<std::size_t>(_pLimit - pStart) < iBytes)
      return AllocateInNewChunk(iBytes, iAlignment);
    _pTop = pStart + iBytes;
    _Taken += iBytes;
    return pStart;
  }

  /// Grows the latest allocation, ipPiece of iOldBytes, to iNewBytes in place
  /// when the chunk has the room; false (nothing changed) otherwise.
  bool Extend(void* ipPiece, std::size_t iOldBytes, std::size_t iNewBytes)
  {
    char* pPiece = static_cast<char*>(ipPiece);
    if (pPiece + iOldBytes != _pTop || static_cast<std::size_t>(_pLimit - pPiece) < iNewBytes)
      return false;
    _pTop = pPiece + iNewBytes;
    _Taken += iNewBytes - iOldBytes;
    return true;
  }

  /// Room of a block for iBytes: sizes go 16, 32, 48, 64, then 1.5 and 2
  /// times each power of two (96, 128, 192, 256...), so that a block has room
  /// to grow a little where it lies and a block given back fits the next one
  /// of about its size.
  static std::size_t BlockBytes(std::size_t iBytes)
  {
    if (iBytes <= 64)
      return iBytes <= 16 ? 16 : (iBytes + 15) & ~std::size_t(15);
    const std::size_t Half = std::size_t(1) << (std::bit_width(iBytes - 1) - 1);
    return iBytes <= Half + Half / 2 ? Half + Half / 2 : 2 * Half;
  }

  /// A block of iBytes (a value of BlockBytes), aligned for a pointer: one
  /// given back with RecycleBlock when there is one of that size.
  void* AllocateBlock(std::size_t iBytes)
  {
    if (iBytes <= MaxRecycledBytes && _pFreeBlocks)
      if (FreeBlock*& pHead = _pFreeBlocks[ClassOf(iBytes)])
      {
        FreeBlock* pBlock = pHead;
        pHead = pBlock->_pNext;
        return pBlock;
      }
    return Allocate(iBytes, alignof(FreeBlock*));
  }
  /// Gives back a block of AllocateBlock, of iBytes (a value of BlockBytes),
  /// that nothing uses any more. Blocks over MaxRecycledBytes stay where they
  /// are until the end.
  void RecycleBlock(void* ipBlock, std::size_t iBytes);

  /// Bytes of every chunk taken so far.
  std::size_t GetReservedBytes() const { return _Reserved; }
  /// Bytes handed out of the chunks so far (blocks given back and taken
  /// again count once).
  std::size_t GetTakenBytes() const { return _Taken; }

private:
  // As a memory resource (for containers of the context's entities), pieces
  // of up to MaxRecycledBytes are blocks that are given back.
  void* do_allocate(std::size_t iBytes, std::size_t iAlignment) override;
  void do_deallocate(void* ipPiece, std::size_t iBytes, std::size_t iAlignment) override;
  bool do_is_equal(const std::pmr::memory_resource& iOther) const noexcept override { return this == &iOther; }

  struct Chunk
  {
    Chunk* _pPrevious;
    std::size_t _Bytes;
  };
  struct FreeBlock
  {
    FreeBlock* _pNext;
  };
  static constexpr std::size_t MaxRecycledBytes = 1024;
  static constexpr std::size_t BlockClasses = 12;  ///< the sizes of BlockBytes up to MaxRecycledBytes

  /// Position of a size of BlockBytes among them.
  static std::size_t ClassOf(std::size_t iBytes)
  {
    if (iBytes <= 64)
      return iBytes / 16 - 1;
    const int Width = std::bit_width(iBytes - 1);  // 7 for 65 to 128
    const std::size_t Half = std::size_t(1) << (Width - 1);
    return 4 + 2 * static_cast<std::size_t>(Width - 7) + (iBytes > Half + Half / 2 ? 1 : 0);
  }

  static char* Align(char* ipTop, std::size_t iAlignment)
  {
    const std::size_t Mask = iAlignment - 1;
    return reinterpret_cast<char*>((reinterpret_cast<std::size_t>(ipTop) + Mask) & ~Mask);
  }
  void* AllocateInNewChunk(std::size_t iBytes, std::size_t iAlignment);

  Chunk* _pLast = nullptr;
  char* _pTop = nullptr;
  char* _pLimit = nullptr;
  std::size_t _NextChunkBytes = 1024;
  std::size_t _Reserved = 0;
  std::size_t _Taken = 0;
  FreeBlock** _pFreeBlocks = nullptr;  ///< a list per size, in the arena; made at the first recycled block
};

#endif
