// Dictionary keyed by string. Entries are visited in insertion order, so
// every result built from one is deterministic. Insert keeps an existing
// entry: the first value given for a key wins.
#ifndef KelDico_h
#define KelDico_h

#include <deque>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "KelUnicodeString.h"

template <class V>
class KelDico
{
  typedef std::pair<KelUnicodeString, V> Entry;

public:
  class const_iterator
  {
  public:
    explicit const_iterator(typename std::deque<Entry>::const_iterator iAt) : _At(iAt) {}
    const V& operator*() const { return _At->second; }
    const V* operator->() const { return &_At->second; }
    const KelUnicodeString& GetKey() const { return _At->first; }
    const_iterator& operator++()
    {
      ++_At;
      return *this;
    }
    bool operator!=(const const_iterator& iOther) const { return _At != iOther._At; }
    bool operator==(const const_iterator& iOther) const { return _At == iOther._At; }

  private:
    typename std::deque<Entry>::const_iterator _At;
  };

  KelDico() = default;
  KelDico(const KelDico& iOther) : _Entries(iOther._Entries) { Reindex(); }
  KelDico(KelDico&& ioOther) noexcept = default;
  KelDico& operator=(const KelDico& iOther)
  {
    if (this != &iOther)
    {
      _Entries = iOther._Entries;
      Reindex();
    }
    return *this;
  }
  KelDico& operator=(KelDico&& ioOther) noexcept = default;

  // Adds the entry unless the key is present. True when it was added.
  bool Insert(const KelUnicodeString& iKey, const V& iValue)
  {
    if (HasKey(iKey))
      return false;
    _Entries.emplace_back(iKey, iValue);
    _Index.emplace(_Entries.back().first.View(), _Entries.size() - 1);
    return true;
  }
  bool HasKey(const KelUnicodeString& iKey) const { return _Index.find(iKey.View()) != _Index.end(); }

  // The value of iKey; an absent key is added with an empty value.
  V& operator[](const KelUnicodeString& iKey)
  {
    const auto Found = _Index.find(iKey.View());
    if (Found != _Index.end())
      return _Entries[Found->second].second;
    Insert(iKey, V());
    return _Entries.back().second;
  }
  // The value of iKey; an absent key reads as an empty value.
  const V& operator[](const KelUnicodeString& iKey) const
  {
    static const V Empty{};
    const auto Found = _Index.find(iKey.View());
    return Found != _Index.end() ? _Entries[Found->second].second : Empty;
  }
  const V* Find(const KelUnicodeString& iKey) const
  {
    const auto Found = _Index.find(iKey.View());
    return Found != _Index.end() ? &_Entries[Found->second].second : nullptr;
  }

  void RemoveAll()
  {
    _Index.clear();
    _Entries.clear();
  }
  int Size() const { return static_cast<int>(_Entries.size()); }

  const_iterator begin() const { return const_iterator(_Entries.begin()); }
  const_iterator end() const { return const_iterator(_Entries.end()); }

  bool operator==(const KelDico& iOther) const { return _Entries == iOther._Entries; }
  bool operator!=(const KelDico& iOther) const { return !(*this == iOther); }

private:
  void Reindex()
  {
    _Index.clear();
    _Index.reserve(_Entries.size());
    for (std::size_t i = 0; i < _Entries.size(); ++i)
      _Index.emplace(_Entries[i].first.View(), i);
  }

  // A deque never moves its elements when it grows, so the index may point
  // into the keys it holds.
  std::deque<Entry> _Entries;
  std::unordered_map<std::string_view, std::size_t> _Index;
};

#endif
