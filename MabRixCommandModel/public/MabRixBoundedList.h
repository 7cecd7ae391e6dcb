/// A list that keeps its first entries and only counts the rest. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixBoundedList_h
#define MabRixBoundedList_h

#include <cstddef>
#include <utility>
#include <vector>

/**
 * @brief A list that keeps the first entries added to it, up to a limit, and
 * counts the ones it leaves out.
 *
 * The reading API records what it observes of a document (values, check
 * reports, failed callbacks, changes of document handler) in these lists, so
 * that a document with millions of failures costs a bounded amount of memory
 * while the caller still learns how many there were.
 *
 * It reads like a `std::vector` that only Add can grow (`size`, `empty`,
 * `begin`, `end`, `operator[]`, `front`, `back`): `size()` is the number of
 * entries kept; Omitted() the number left out; Total() both.
 *
 * Thread safety: none of its own; a list belongs to one thread at a time,
 * like the result that holds it.
 *
 * @tparam T the entry type; copyable or movable.
 */
template <class T>
class MabRixBoundedList
{
public:
  /// The limit a list has unless its owner sets another.
  static constexpr std::size_t DefaultLimit = 1000;

  typedef T value_type;                                            ///< the entry type
  typedef typename std::vector<T>::iterator iterator;              ///< over the kept entries
  typedef typename std::vector<T>::const_iterator const_iterator;  ///< over the kept entries

  /// An empty list that keeps at most @p iLimit entries (0: keeps none, counts all).
  explicit MabRixBoundedList(std::size_t iLimit = DefaultLimit) : _Limit(iLimit) {}

  /// Keeps @p iEntry when there is room, else counts it. Returns true when kept.
  bool Add(T iEntry)
  {
    if (_Entries.size() >= _Limit)
    {
      ++_Omitted;
      return false;
    }
    _Entries.push_back(std::move(iEntry));
    return true;
  }

  /// Counts @p iCount more entries as left out (entries that another
  /// recorder already dropped, for example).
  void AddOmitted(std::size_t iCount) { _Omitted += iCount; }

  /// The number of entries the list keeps at most.
  std::size_t Limit() const { return _Limit; }
  /// Changes the limit; entries already kept stay, beyond it or not.
  void SetLimit(std::size_t iLimit) { _Limit = iLimit; }

  /// The number of entries kept.
  std::size_t size() const { return _Entries.size(); }
  /// True when no entry is kept (entries may still have been omitted).
  bool empty() const { return _Entries.empty(); }
  /// The number of entries added beyond the limit and not kept.
  std::size_t Omitted() const { return _Omitted; }
  /// Every entry added, kept or not.
  std::size_t Total() const { return _Entries.size() + _Omitted; }

  /// The first kept entry; kept entries can be changed in place, only Add adds them.
  iterator begin() { return _Entries.begin(); }
  /// Past the last kept entry.
  iterator end() { return _Entries.end(); }
  /// The first kept entry.
  const_iterator begin() const { return _Entries.begin(); }
  /// Past the last kept entry.
  const_iterator end() const { return _Entries.end(); }
  /// The kept entry at @p iIndex (from 0); @p iIndex must be below size().
  T& operator[](std::size_t iIndex) { return _Entries[iIndex]; }
  /// The kept entry at @p iIndex (from 0); @p iIndex must be below size().
  const T& operator[](std::size_t iIndex) const { return _Entries[iIndex]; }
  /// The first kept entry; the list must not be empty.
  T& front() { return _Entries.front(); }
  /// The first kept entry; the list must not be empty.
  const T& front() const { return _Entries.front(); }
  /// The last kept entry; the list must not be empty.
  T& back() { return _Entries.back(); }
  /// The last kept entry; the list must not be empty.
  const T& back() const { return _Entries.back(); }
  /// The kept entries, in the order they were added.
  const std::vector<T>& Entries() const { return _Entries; }

  /// Forgets every entry and the count of omitted ones; the limit stays.
  void Clear()
  {
    _Entries.clear();
    _Omitted = 0;
  }

private:
  std::vector<T> _Entries;
  std::size_t _Limit;
  std::size_t _Omitted = 0;
};

#endif
