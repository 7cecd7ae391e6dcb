/// Index of a context's entities by key. Every entity holds its own key parts
/// (type, name, revision, ID...), so the index keeps no key text: it is a flat
/// table of (hash, entity) pairs with linear probing. A lookup hashes the key
/// parts once, with no allocation, and compares the parts only with the
/// entities whose hash matches. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixEntityIndex_h
#define MabRixEntityIndex_h

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "KelUnicodeString.h"

/// Hash of a key made of parts, in order ("a","bc" and "ab","c" differ).
inline std::size_t MabRixKeyHash(std::initializer_list<const KelUnicodeString*> iParts)
{
  std::uint64_t Hash = 0x9E3779B97F4A7C15u;
  for (const KelUnicodeString* pPart : iParts)
  {
    Hash ^= std::hash<std::string_view>()(pPart->View());
    Hash *= 0xBF58476D1CE4E5B9u;
    Hash ^= Hash >> 31;
  }
  return static_cast<std::size_t>(Hash);
}

template <class T>
class MabRixEntityIndex
{
public:
  /// The entity of hash iHash for which iMatches(entity) holds; null when none.
  template <class Matches>
  T* Find(std::size_t iHash, Matches&& iMatches) const
  {
    if (_Slots.empty())
      return nullptr;
    for (std::size_t i = iHash & _Mask;; i = (i + 1) & _Mask)
    {
      const Slot& Candidate = _Slots[i];
      if (!Candidate._pEntity)
        return nullptr;
      if (Candidate._Hash == iHash && iMatches(*Candidate._pEntity))
        return Candidate._pEntity;
    }
  }

  /// The entity of hash iHash for which iMatches(entity) holds; when there is
  /// none, the one iMake() returns, entered in its place: one probe sequence
  /// both finds and inserts. iMake must not change this index.
  template <class Matches, class Make>
  T* FindOrAdd(std::size_t iHash, Matches&& iMatches, Make&& iMake)
  {
    if (2 * (_Count + 1) > _Slots.size())
      Grow();
    for (std::size_t i = iHash & _Mask;; i = (i + 1) & _Mask)
    {
      Slot& Candidate = _Slots[i];
      if (!Candidate._pEntity)
      {
        T* pEntity = iMake();
        Candidate = Slot{iHash, pEntity};
        ++_Count;
        return pEntity;
      }
      if (Candidate._Hash == iHash && iMatches(*Candidate._pEntity))
        return Candidate._pEntity;
    }
  }

  /// Enters an entity whose key is not in the index yet (borrowed pointer).
  void Add(std::size_t iHash, T* ipEntity)
  {
    if (2 * (_Count + 1) > _Slots.size())
      Grow();
    Place(iHash, ipEntity);
    ++_Count;
  }

private:
  struct Slot
  {
    std::size_t _Hash;
    T* _pEntity;
  };

  void Place(std::size_t iHash, T* ipEntity)
  {
    std::size_t i = iHash & _Mask;
    while (_Slots[i]._pEntity)
      i = (i + 1) & _Mask;
    _Slots[i] = Slot{iHash, ipEntity};
  }

  /// At most half full: probes stay short.
  void Grow()
  {
    std::vector<Slot> Old(_Slots.empty() ? 16 : 2 * _Slots.size(), Slot{0, nullptr});
    Old.swap(_Slots);
    _Mask = _Slots.size() - 1;
    for (const Slot& Entry : Old)
      if (Entry._pEntity)
        Place(Entry._Hash, Entry._pEntity);
  }

  std::vector<Slot> _Slots;
  std::size_t _Mask = 0;
  std::size_t _Count = 0;
};

#endif
