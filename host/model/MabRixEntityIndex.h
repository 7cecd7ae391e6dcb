/// Index of a context's entities by key. Every entity holds its own key parts
/// (type, name, revision, ID...), so the index keeps no key text: it is a flat
/// table of 8-byte slots with linear probing, each the upper half of the
/// key's hash and the entity's position in the context's list of that kind.
/// A lookup hashes the key parts once, with no allocation, and compares the
/// parts only with the entities whose half hash matches. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixEntityIndex_h
#define MabRixEntityIndex_h

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <new>
#include <string_view>
#include <vector>

#include "KelUnicodeString.h"
#include "KelVar.h"

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
  /// An index of entities of iEntities (which outlives it), entered by
  /// their positions there.
  explicit MabRixEntityIndex(const std::vector<KelVar<T>>& iEntities) : _Entities(iEntities) {}
  MabRixEntityIndex(const MabRixEntityIndex&) = delete;
  MabRixEntityIndex& operator=(const MabRixEntityIndex&) = delete;

  /// The entity of hash iHash for which iMatches(entity) holds; null when none.
  template <class Matches>
  T* Find(std::size_t iHash, Matches&& iMatches) const
  {
    if (_Slots.empty())
      return nullptr;
    const std::uint32_t Tag = TagOf(iHash);
    for (std::size_t i = Home(Tag);; i = (i + 1) & _Mask)
    {
      const std::uint64_t Slot = _Slots[i];
      if (Slot == 0)
        return nullptr;
      if (static_cast<std::uint32_t>(Slot >> 32) == Tag)
        if (T* pEntity = At(Slot); iMatches(*pEntity))
          return pEntity;
    }
  }

  /// The entity of hash iHash for which iMatches(entity) holds; when there is
  /// none, the one iMake() returns, entered in its place: one probe sequence
  /// both finds and inserts. iMake appends the entity to the list of
  /// entities and must not change this index.
  template <class Matches, class Make>
  T* FindOrAdd(std::size_t iHash, Matches&& iMatches, Make&& iMake)
  {
    if (2 * (_Count + 1) > _Slots.size())
      Grow();
    const std::uint32_t Tag = TagOf(iHash);
    for (std::size_t i = Home(Tag);; i = (i + 1) & _Mask)
    {
      std::uint64_t& Slot = _Slots[i];
      if (Slot == 0)
      {
        T* pEntity = iMake();
        Slot = SlotOf(Tag, _Entities.size() - 1);
        ++_Count;
        return pEntity;
      }
      if (static_cast<std::uint32_t>(Slot >> 32) == Tag)
        if (T* pEntity = At(Slot); iMatches(*pEntity))
          return pEntity;
    }
  }

  /// Enters the entity at iPosition of the list, whose key is not in the
  /// index yet.
  void Add(std::size_t iHash, std::size_t iPosition)
  {
    if (2 * (_Count + 1) > _Slots.size())
      Grow();
    Place(SlotOf(TagOf(iHash), iPosition));
    ++_Count;
  }

private:
  static std::uint32_t TagOf(std::size_t iHash) { return static_cast<std::uint32_t>(iHash >> 32); }
  static std::uint64_t SlotOf(std::uint32_t iTag, std::size_t iPosition)
  {
    if (iPosition >= 0xFFFFFFFFu)
      throw std::bad_alloc();
    return static_cast<std::uint64_t>(iTag) << 32 | static_cast<std::uint64_t>(iPosition + 1);
  }
  /// The first slot to look at: from every bit of the tag, so that entities
  /// probed together seldom share their tags.
  std::size_t Home(std::uint32_t iTag) const { return static_cast<std::uint32_t>(iTag * 0x9E3779B1u) >> _Shift; }
  T* At(std::uint64_t iSlot) const { return _Entities[(iSlot & 0xFFFFFFFFu) - 1].Get(); }

  void Place(std::uint64_t iSlot)
  {
    std::size_t i = Home(static_cast<std::uint32_t>(iSlot >> 32));
    while (_Slots[i] != 0)
      i = (i + 1) & _Mask;
    _Slots[i] = iSlot;
  }

  /// At most half full: probes stay short.
  void Grow()
  {
    std::vector<std::uint64_t> Old(_Slots.empty() ? 16 : 2 * _Slots.size(), 0);
    Old.swap(_Slots);
    _Mask = _Slots.size() - 1;
    _Shift = 32 - std::countr_zero(_Slots.size());
    for (const std::uint64_t Slot : Old)
      if (Slot != 0)
        Place(Slot);
  }

  const std::vector<KelVar<T>>& _Entities;
  std::vector<std::uint64_t> _Slots;
  std::size_t _Mask = 0;
  int _Shift = 32;
  std::size_t _Count = 0;
};

#endif
