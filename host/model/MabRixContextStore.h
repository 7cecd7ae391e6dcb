/// The memory of an object context: an arena that holds its entities and their
/// property values, and one copy of each key text (type, name, revision,
/// version) however many entities carry it. The store lives as long as its
/// context or any of its entities, whichever lasts longest: entities a caller
/// still holds when the context is destroyed stay whole, and the rest of the
/// memory goes at once with the last of them.
///
/// The count of references is not atomic: like the entities, a store serves one
/// thread at a time. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixContextStore_h
#define MabRixContextStore_h

#include <cstddef>
#include <string_view>
#include <vector>

#include "KelUnicodeString.h"
#include "MabRixArena.h"

class MabRixContextStore
{
public:
  MabRixContextStore() = default;
  MabRixContextStore(const MabRixContextStore&) = delete;
  MabRixContextStore& operator=(const MabRixContextStore&) = delete;

  void AddRef() { ++_References; }
  void Release()
  {
    if (--_References == 0)
      delete this;
  }

  MabRixArena& GetArena() { return _Arena; }

  /// The store's one copy of iText, made on first use; it lives as long as
  /// the store.
  const KelUnicodeString& Intern(std::string_view iText);

private:
  ~MabRixContextStore();

  void Grow();

  std::vector<KelUnicodeString*> _Slots;  ///< open addressing, at most half full
  std::size_t _Count = 0;
  unsigned long _References = 1;  ///< the creator's
  MabRixArena _Arena;
};

/// Base of the classes a context allocates in its store. A plain new puts the
/// object on the heap; new (store) puts it in the store's arena and counts a
/// reference to the store until the object is deleted. The word before the
/// object tells which.
class MabRixContextAllocated
{
public:
  static void* operator new(std::size_t iBytes);
  static void* operator new(std::size_t iBytes, MabRixContextStore& ioStore);
  static void operator delete(void* ipObject);
  static void operator delete(void* ipObject, MabRixContextStore& ioStore);
};

#endif
