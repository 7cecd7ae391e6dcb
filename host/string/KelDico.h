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
/// hash tags and positions finds them without touching other keys. Ownership, threads, errors: @ref conventions. @file
#ifndef KelDico_h
#define KelDico_h

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <string_view>
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
  KelDico(const KelDico& iOther) { CopyFrom(iOther); }
  KelDico(KelDico&& ioOther) noexcept { Steal(ioOther); }
  KelDico& operator=(const KelDico& iOther)
  {
    if (this != &iOther)
    {
      RemoveAll();
      CopyFrom(iOther);
    }
    return *this;
  }
  KelDico& operator=(KelDico&& ioOther) noexcept
  {
    if (this != &ioOther)
    {
      Free();
      Steal(ioOther);
    }
    return *this;
  }
  ~KelDico() { Free(); }

  /// Adds the entry unless the key is present. True when it was added.
  bool Insert(const KelUnicodeString& iKey, const V& iValue)
  {
    const std::size_t Hash = HashOf(iKey.View());
    if (Locate(iKey.View(), Hash) != NotFound)
      return false;
    Append(iKey, iValue, Hash);
    return true;
  }
  bool HasKey(const KelUnicodeString& iKey) const { return Locate(iKey.View()) != NotFound; }

  /// The value of iKey; an absent key is added with an empty value.
  V& operator[](const KelUnicodeString& iKey)
  {
    const std::size_t Hash = HashOf(iKey.View());
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
    _FirstRoom = ioOther._Size;
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
    KelDico Compact;
    Compact.TakeCompact(*this);
    *this = std::move(Compact);
  }

  /// Empties the dictionary; the room of the first entries is kept for reuse.
  void RemoveAll()
  {
    for (std::size_t i = _Size; i-- > 0;)
      At(i).~Entry();
    _Size = 0;
    for (std::size_t c = 0; c < _More.size(); ++c)
      Release(_More[c], ChunkCapacity(c + 1));
    std::vector<Entry*>().swap(_More);
    std::vector<std::uint64_t>().swap(_Slots);
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
    return _More[Chunk - 1] + (iPosition - ChunkStart(Chunk));
  }
  Entry& At(std::size_t iPosition) { return *Slot(iPosition); }
  const Entry& At(std::size_t iPosition) const { return *Slot(iPosition); }

  /// Room for the entry at position _Size.
  Entry* Room()
  {
    if (_Size < SmallSize && _Size == _FirstRoom)
      GrowFirst();
    else if (_Size >= SmallSize && ChunkOf(_Size) > _More.size())
    {
      _More.reserve(_More.size() + 1);
      _More.push_back(Allocate(ChunkCapacity(_More.size() + 1)));
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

  static Entry* Allocate(std::size_t iCount)
  {
    return static_cast<Entry*>(::operator new(iCount * sizeof(Entry), std::align_val_t(alignof(Entry))));
  }
  static void Release(Entry* ipChunk, std::size_t iCount)
  {
    ::operator delete(ipChunk, iCount * sizeof(Entry), std::align_val_t(alignof(Entry)));
  }

  std::size_t Locate(std::string_view iKey) const
  {
    if (_Slots.empty())
      return Scan(iKey);
    return Probe(iKey, HashOf(iKey));
  }
  std::size_t Locate(std::string_view iKey, std::size_t iHash) const
  {
    return _Slots.empty() ? Scan(iKey) : Probe(iKey, iHash);
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
    const std::size_t Mask = _Slots.size() - 1;
    const std::uint64_t KeyTag = Tag(iHash);
    for (std::size_t Slot = iHash & Mask;; Slot = (Slot + 1) & Mask)
    {
      const std::uint64_t Content = _Slots[Slot];
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

  void Append(const KelUnicodeString& iKey, const V& iValue, std::size_t iHash)
  {
    new (Room()) Entry(iKey, iValue);
    ++_Size;
    if (_Size > SmallSize)
      Index(_Size - 1, iHash);
  }

  /// Enters the entry at iPosition in the index, which is kept at most half
  /// full (and built when the dictionary outgrows a scan).
  void Index(std::size_t iPosition, std::size_t iHash)
  {
    if (_Slots.size() < 2 * _Size)
    {
      Rebuild(std::bit_ceil(4 * _Size));
      return;
    }
    Place(iPosition, iHash);
  }
  void Place(std::size_t iPosition, std::size_t iHash)
  {
    const std::size_t Mask = _Slots.size() - 1;
    std::size_t Slot = iHash & Mask;
    while (_Slots[Slot] != 0)
      Slot = (Slot + 1) & Mask;
    _Slots[Slot] = Tag(iHash) | static_cast<std::uint64_t>(iPosition + 1);
  }
  void Rebuild(std::size_t iSlots)
  {
    _Slots.assign(iSlots, 0);
    for (std::size_t i = 0; i < _Size; ++i)
      Place(i, HashOf(At(i).first.View()));
  }

  void CopyFrom(const KelDico& iOther)
  {
    // A fresh small copy takes room for its entries only.
    if (!_pFirst && iOther._Size > 0 && iOther._Size < SmallSize)
    {
      _pFirst = Allocate(iOther._Size);
      _FirstRoom = iOther._Size;
    }
    for (std::size_t i = 0; i < iOther._Size; ++i)
    {
      new (Room()) Entry(iOther.At(i));
      ++_Size;
    }
    _Slots = iOther._Slots;  // same keys at the same positions
  }
  void Steal(KelDico& ioOther) noexcept
  {
    _pFirst = std::exchange(ioOther._pFirst, nullptr);
    _FirstRoom = std::exchange(ioOther._FirstRoom, 0);
    _More = std::move(ioOther._More);
    _Slots = std::move(ioOther._Slots);
    _Size = std::exchange(ioOther._Size, 0);
    ioOther._More.clear();
    ioOther._Slots.clear();
  }
  void Free()
  {
    RemoveAll();
    if (_pFirst)
      Release(_pFirst, _FirstRoom);
    _pFirst = nullptr;
    _FirstRoom = 0;
  }

  Entry* _pFirst = nullptr;           ///< the first SmallSize entries
  std::size_t _FirstRoom = 0;         ///< entries _pFirst has room for: SmallSize, or fewer when compact
  std::vector<Entry*> _More;          ///< further chunks, each twice the previous
  std::vector<std::uint64_t> _Slots;  ///< empty while the dictionary is small
  std::size_t _Size = 0;
};

#endif
