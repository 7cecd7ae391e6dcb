/// Memory of one object context: a monotonic arena that hands out pieces of
/// large chunks and frees them all at once when it is destroyed. Chunks grow
/// from a few kilobytes for a small response up to several megabytes for a
/// large one; those are offered to the kernel for huge pages, which spares
/// the page faults of touching millions of small pages. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixArena_h
#define MabRixArena_h

#include <cstddef>

class MabRixArena
{
public:
  MabRixArena() = default;
  MabRixArena(const MabRixArena&) = delete;
  MabRixArena& operator=(const MabRixArena&) = delete;
  ~MabRixArena();

  /// iBytes of room aligned on iAlignment (a power of two at most 16). Throws
  /// std::bad_alloc like operator new when the memory is not there.
  void* Allocate(std::size_t iBytes, std::size_t iAlignment = alignof(std::max_align_t))
  {
    char* pStart = Align(_pTop, iAlignment);
    if (!_pTop || pStart > _pLimit || static_cast<std::size_t>(_pLimit - pStart) < iBytes)
      return AllocateInNewChunk(iBytes, iAlignment);
    _pTop = pStart + iBytes;
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
    return true;
  }

  /// Bytes of every chunk taken so far.
  std::size_t GetReservedBytes() const { return _Reserved; }

private:
  struct Chunk
  {
    Chunk* _pPrevious;
    std::size_t _Bytes;
  };

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
};

#endif
