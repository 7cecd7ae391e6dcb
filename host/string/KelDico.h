/// Dictionary keyed by string. Entries are visited in insertion order, so
/// every result built from one is deterministic. Insert keeps an existing
/// entry: the first value given for a key wins. Entries never move once
/// inserted: a reference to a value stays valid until RemoveAll or the end of
/// the dictionary. One exception: a small dictionary made by copying or by
/// TakeCompact has just the room its entries need, and moves them once when
/// it grows past it.
///
/// Handlers make one or more dictionaries per element they read, most of
/// them holding a handful of entries, and a few very large ones (every file
/// of a list). So: an empty dictionary allocates nothing; up to SmallSize
/// entries are found by a plain scan; beyond that an open-addressing index of
/// hash tags and positions finds them without touching other keys.
///
/// The entries of a dictionary built with a memory resource (a minor object's
/// dictionaries, in its context's memory) take their room from it; copies and
/// dictionaries moved out of it use the heap, so they may outlive it. Ownership, threads, errors: @ref conventions.
/// @file
#ifndef KelDico_h
#define KelDico_h

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <memory_resource>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "KelUnicodeString.h"

template <class V>
class KelDico
{
  typedef std::pair<KelUnicodeString, V> Entry;

public:
  class const_iterator
  {
  public:
    const_iterator(const KelDico* ipDico, std::size_t iPosition) : _pDico(ipDico), _Position(iPosition) {}
    const V& operator*() const { return _pDico->At(_Position).second; }
    const V* operator->() const { return &_pDico->At(_Position).second; }
    const KelUnicodeString& GetKey() const { return _pDico->At(_Position).first; }
    const_iterator& operator++()
    {
      ++_Position;
      return *this;
    }
    bool operator!=(const const_iterator& iOther) const { return _Position != iOther._Position; }
    bool operator==(const const_iterator& iOther) const { return _Position == iOther._Position; }

  private:
    const KelDico* _pDico;
    std::size_t _Position;
  };

  KelDico() = default;
  /// A dictionary whose entries take their room from ipMemory (the heap when
  /// null), which must outlive it.
  explicit KelDico(std::pmr::memory_resource* ipMemory) : _pMemory(ipMemory) {}
  KelDico(const KelDico& iOther) { CopyFrom(iOther); }
  /// Takes the entries of ioOther: its room when it is on the heap, a move of
  /// each entry into heap room otherwise.
  KelDico(KelDico&& ioOther) { TakeFrom(ioOther); }
  KelDico& operator=(const KelDico& iOther)
  {
    if (this != &iOther)
    {
      RemoveAll();
      CopyFrom(iOther);
    }
    return *this;
  }
  KelDico& operator=(KelDico&& ioOther)
  {
    if (this != &ioOther)
    {
      if (_pMemory == ioOther._pMemory)
        Free();
      else
        RemoveAll();
      TakeFrom(ioOther);
    }
    return *this;
  }
  ~KelDico() { Free(); }

  /// Adds the entry unless the key is present. True when it was added.
  bool Insert(const KelUnicodeString& iKey, const V& iValue)
  {
    std::size_t Hash = 0;
    if (Locate(iKey.View(), Hash) != NotFound)
      return false;
    Append(iKey, iValue, Hash);
    return true;
  }
  bool HasKey(const KelUnicodeString& iKey) const { return Locate(iKey.View()) != NotFound; }

  /// The value of iKey; an absent key is added with an empty value.
  V& operator[](const KelUnicodeString& iKey)
  {
    std::size_t Hash = 0;
    const std::size_t Position = Locate(iKey.View(), Hash);
    if (Position != NotFound)
      return At(Position).second;
    Append(iKey, V(), Hash);
    return At(_Size - 1).second;
  }
  /// The value of iKey; an absent key reads as an empty value.
  const V& operator[](const KelUnicodeString& iKey) const
  {
    static const V Empty{};
    const V* pValue = Find(iKey);
    return pValue ? *pValue : Empty;
  }
  const V* Find(const KelUnicodeString& iKey) const
  {
    const std::size_t Position = Locate(iKey.View());
    return Position != NotFound ? &At(Position).second : nullptr;
  }

  /// Takes the entries of ioOther, which is left empty with its room kept for
  /// reuse. A small dictionary's entries move into room of exactly their
  /// number: a dictionary kept for long (in a model object) costs its entries
  /// only, while ioOther (a handler's, filled again for the next element)
  /// allocates nothing more.
  void TakeCompact(KelDico& ioOther)
  {
    if (this == &ioOther)
      return;
    if (ioOther._Size == 0 || ioOther._Size >= SmallSize)
    {
      *this = std::move(ioOther);
      return;
    }
    Free();
    _pFirst = Allocate(ioOther._Size);
    _FirstRoom = static_cast<std::uint16_t>(ioOther._Size);
    for (; _Size < ioOther._Size; ++_Size)
      new (_pFirst + _Size) Entry(std::move(ioOther.At(_Size)));
    ioOther.RemoveAll();
  }

  /// Gives a small dictionary room for its entries only (a later insert moves
  /// them again); a large one is left as it is.
  void ShrinkToFit()
  {
    if (_Size >= SmallSize || _Size == _FirstRoom)
      return;
    KelDico Compact(_pMemory);
    Compact.TakeCompact(*this);
    *this = std::move(Compact);
  }

  /// Empties the dictionary; the room of the first entries is kept for reuse.
  void RemoveAll()
  {
    for (std::size_t i = _Size + _Spare; i-- > 0;)
      At(i).~Entry();
    _Size = 0;
    _Spare = 0;
    if (_pLarge)
    {
      for (std::size_t c = 0; c < _pLarge->_More.size(); ++c)
        Release(_pLarge->_More[c], ChunkCapacity(c + 1));
      delete _pLarge;
      _pLarge = nullptr;
    }
  }
  /// Empties a dictionary of texts and keeps its first entries built: the
  /// next entries take their places and the room of their texts, so that a
  /// dictionary filled again for every record allocates nothing once grown.
  /// (A dictionary of counted references uses RemoveAll, which releases
  /// them.)
  void Recycle() requires std::is_same_v<V, KelUnicodeString>
  {
    const std::size_t Kept = std::min<std::size_t>(_Size, _FirstRoom);
    for (std::size_t i = _Size; i-- > Kept;)
      At(i).~Entry();
    if (_pLarge)
    {
      for (std::size_t c = 0; c < _pLarge->_More.size(); ++c)
        Release(_pLarge->_More[c], ChunkCapacity(c + 1));
      delete _pLarge;
      _pLarge = nullptr;
    }
    _Spare = static_cast<std::uint16_t>(Kept + _Spare);
    _Size = 0;
  }
  int Size() const { return static_cast<int>(_Size); }

  const_iterator begin() const { return const_iterator(this, 0); }
  const_iterator end() const { return const_iterator(this, _Size); }

  bool operator==(const KelDico& iOther) const
  {
    if (_Size != iOther._Size)
      return false;
    for (std::size_t i = 0; i < _Size; ++i)
      if (!(At(i) == iOther.At(i)))
        return false;
    return true;
  }
  bool operator!=(const KelDico& iOther) const { return !(*this == iOther); }

private:
  static constexpr std::size_t SmallSize = 8;  ///< entries found by a scan; also the first chunk's room
  static constexpr std::size_t NotFound = static_cast<std::size_t>(-1);

  /// What only a dictionary of more than SmallSize entries needs.
  struct Large
  {
    std::vector<Entry*> _More;          ///< chunks after the first, each twice the previous
    std::vector<std::uint64_t> _Slots;  ///< the index
  };

  static std::size_t HashOf(std::string_view iKey) { return std::hash<std::string_view>()(iKey); }
  /// A slot holds the upper half of the key's hash and the entry's position
  /// plus one; 0 is an empty slot.
  static std::uint64_t Tag(std::size_t iHash) { return static_cast<std::uint64_t>(iHash) & 0xFFFFFFFF00000000ull; }

  /// Chunk 0 (_pFirst) holds entries 0 to 7, chunk c > 0 (_More[c - 1]) the
  /// entries from 2^(c+2) to 2^(c+3) - 1: chunks double, entries never move.
  static std::size_t ChunkCapacity(std::size_t iChunk) { return iChunk == 0 ? SmallSize : SmallSize << (iChunk - 1); }
  static std::size_t ChunkOf(std::size_t iPosition)
  {
    return iPosition < SmallSize ? 0 : static_cast<std::size_t>(std::bit_width(iPosition)) - 3;
  }
  static std::size_t ChunkStart(std::size_t iChunk) { return iChunk == 0 ? 0 : SmallSize << (iChunk - 1); }

  Entry* Slot(std::size_t iPosition) const
  {
    if (iPosition < SmallSize)
      return _pFirst + iPosition;
    const std::size_t Chunk = ChunkOf(iPosition);
    return _pLarge->_More[Chunk - 1] + (iPosition - ChunkStart(Chunk));
  }
  Entry& At(std::size_t iPosition) { return *Slot(iPosition); }
  const Entry& At(std::size_t iPosition) const { return *Slot(iPosition); }

  /// Room for the entry at position _Size.
  Entry* Room()
  {
    if (_Size < SmallSize && _Size == _FirstRoom)
      GrowFirst();
    else if (_Size >= SmallSize)
    {
      if (!_pLarge)
        _pLarge = new Large();
      std::vector<Entry*>& More = _pLarge->_More;
      if (ChunkOf(_Size) > More.size())
      {
        More.reserve(More.size() + 1);
        More.push_back(Allocate(ChunkCapacity(More.size() + 1)));
      }
    }
    return Slot(_Size);
  }

  /// Gives the first chunk its full room, moving the entries of a compact
  /// one.
  void GrowFirst()
  {
    Entry* pRoom = Allocate(SmallSize);
    for (std::size_t i = 0; i < _Size; ++i)
    {
      new (pRoom + i) Entry(std::move(_pFirst[i]));
      _pFirst[i].~Entry();
    }
    if (_pFirst)
      Release(_pFirst, _FirstRoom);
    _pFirst = pRoom;
    _FirstRoom = SmallSize;
  }

  Entry* Allocate(std::size_t iCount) const
  {
    if (_pMemory)
      return static_cast<Entry*>(_pMemory->allocate(iCount * sizeof(Entry), alignof(Entry)));
    return static_cast<Entry*>(::operator new(iCount * sizeof(Entry), std::align_val_t(alignof(Entry))));
  }
  void Release(Entry* ipChunk, std::size_t iCount) const
  {
    if (_pMemory)
      _pMemory->deallocate(ipChunk, iCount * sizeof(Entry), alignof(Entry));
    else
      ::operator delete(ipChunk, iCount * sizeof(Entry), std::align_val_t(alignof(Entry)));
  }

  bool IsIndexed() const { return _pLarge && !_pLarge->_Slots.empty(); }
  std::size_t Locate(std::string_view iKey) const { return IsIndexed() ? Probe(iKey, HashOf(iKey)) : Scan(iKey); }
  /// Sets oHash to the key's hash when an entry added now would need it
  /// (a small dictionary has no use for it).
  std::size_t Locate(std::string_view iKey, std::size_t& oHash) const
  {
    if (IsIndexed() || _Size + 1 > SmallSize)
      oHash = HashOf(iKey);
    return IsIndexed() ? Probe(iKey, oHash) : Scan(iKey);
  }
  std::size_t Scan(std::string_view iKey) const
  {
    for (std::size_t i = 0; i < _Size; ++i)
      if (At(i).first.View() == iKey)
        return i;
    return NotFound;
  }
  std::size_t Probe(std::string_view iKey, std::size_t iHash) const
  {
    const std::vector<std::uint64_t>& Slots = _pLarge->_Slots;
    const std::size_t Mask = Slots.size() - 1;
    const std::uint64_t KeyTag = Tag(iHash);
    for (std::size_t Slot = iHash & Mask;; Slot = (Slot + 1) & Mask)
    {
      const std::uint64_t Content = Slots[Slot];
      if (Content == 0)
        return NotFound;
      if ((Content & 0xFFFFFFFF00000000ull) == KeyTag)
      {
        const std::size_t Position = static_cast<std::size_t>(Content & 0xFFFFFFFFull) - 1;
        if (At(Position).first.View() == iKey)
          return Position;
      }
    }
  }

  /// Each step either succeeds or leaves the dictionary as it was: room for
  /// the entry, room in the index for it, the entry, its place in the index.
  void Append(const KelUnicodeString& iKey, const V& iValue, std::size_t iHash)
  {
    if (_Size >= 0xFFFFFFFEu)
      throw std::bad_alloc();
    if (_Spare > 0)
    {
      // A place Recycle kept: its texts take the new ones in their room.
      Entry& Place = At(_Size);
      Place.first = iKey;
      Place.second = iValue;
      ++_Size;
      --_Spare;
      return;
    }
    Entry* pRoom = Room();
    if (_Size + 1 > SmallSize)
      ReserveIndex(_Size + 1);
    new (pRoom) Entry(iKey, iValue);
    ++_Size;
    if (_Size > SmallSize)
      Place(_Size - 1, iHash);
  }

  /// An index for iCount entries, at most half full, holding every entry
  /// there is (built when the dictionary outgrows a scan).
  void ReserveIndex(std::size_t iCount)
  {
    if (_pLarge->_Slots.size() < 2 * iCount)
      Rebuild(std::bit_ceil(4 * iCount));
  }
  void Place(std::size_t iPosition, std::size_t iHash)
  {
    std::vector<std::uint64_t>& Slots = _pLarge->_Slots;
    const std::size_t Mask = Slots.size() - 1;
    std::size_t Slot = iHash & Mask;
    while (Slots[Slot] != 0)
      Slot = (Slot + 1) & Mask;
    Slots[Slot] = Tag(iHash) | static_cast<std::uint64_t>(iPosition + 1);
  }
  void Rebuild(std::size_t iSlots)
  {
    std::vector<std::uint64_t> Slots(iSlots, 0);  // may throw: the old index stays
    _pLarge->_Slots.swap(Slots);
    for (std::size_t i = 0; i < _Size; ++i)
      Place(i, HashOf(At(i).first.View()));
  }

  void CopyFrom(const KelDico& iOther)
  {
    // A fresh small copy takes room for its entries only.
    if (!_pFirst && iOther._Size > 0 && iOther._Size < SmallSize)
    {
      _pFirst = Allocate(iOther._Size);
      _FirstRoom = static_cast<std::uint16_t>(iOther._Size);
    }
    for (std::size_t i = 0; i < iOther._Size; ++i)
    {
      new (Room()) Entry(iOther.At(i));
      ++_Size;
    }
    if (iOther._pLarge)
      _pLarge->_Slots = iOther._pLarge->_Slots;  // same keys at the same positions
  }
  /// Takes ioOther's room when both use the same memory (this one holds
  /// none), else moves its entries one by one into this one's.
  void TakeFrom(KelDico& ioOther)
  {
    if (_pMemory == ioOther._pMemory)
    {
      _pFirst = std::exchange(ioOther._pFirst, nullptr);
      _FirstRoom = std::exchange(ioOther._FirstRoom, 0);
      _pLarge = std::exchange(ioOther._pLarge, nullptr);
      _Size = std::exchange(ioOther._Size, 0);
      _Spare = std::exchange(ioOther._Spare, 0);
      return;
    }
    if (!_pFirst && ioOther._Size > 0 && ioOther._Size < SmallSize)
    {
      _pFirst = Allocate(ioOther._Size);
      _FirstRoom = static_cast<std::uint16_t>(ioOther._Size);
    }
    for (std::size_t i = 0; i < ioOther._Size; ++i)
    {
      new (Room()) Entry(std::move(ioOther.At(i)));
      ++_Size;
    }
    if (ioOther._pLarge)
      _pLarge->_Slots = std::move(ioOther._pLarge->_Slots);
    ioOther.RemoveAll();
  }
  void Free()
  {
    RemoveAll();
    if (_pFirst)
      Release(_pFirst, _FirstRoom);
    _pFirst = nullptr;
    _FirstRoom = 0;
  }

  Entry* _pFirst = nullptr;                       ///< the first SmallSize entries
  std::uint32_t _Size = 0;                        ///< entries
  std::uint16_t _FirstRoom = 0;                   ///< entries _pFirst has room for: SmallSize, or fewer when compact
  std::uint16_t _Spare = 0;                       ///< entries built after the last one, kept by Recycle
  Large* _pLarge = nullptr;                       ///< null while the dictionary is small
  std::pmr::memory_resource* _pMemory = nullptr;  ///< where entries take room; null: the heap
};

#endif
