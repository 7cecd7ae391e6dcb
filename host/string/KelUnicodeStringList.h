/// Ordered list of strings. Positions count from 0; a position outside the
/// list reads as the empty string. Ownership, threads, errors: @ref conventions. @file
#ifndef KelUnicodeStringList_h
#define KelUnicodeStringList_h

#include <vector>

#include "KelUnicodeString.h"

class KelUnicodeStringList
{
public:
  typedef std::vector<KelUnicodeString>::const_iterator const_iterator;

  KelUnicodeStringList() = default;
  KelUnicodeStringList(std::initializer_list<KelUnicodeString> iItems) : _Items(iItems) {}

  void Append(const KelUnicodeString& iItem) { _Items.push_back(iItem); }
  void Push(const KelUnicodeString& iItem) { _Items.push_back(iItem); }
  /// Removes and returns the last item; the empty string when there is none.
  KelUnicodeString Pop();
  int Size() const { return static_cast<int>(_Items.size()); }
  void RemoveAll() { _Items.clear(); }
  /// Room for iCount items, so that appending up to there moves none.
  void Reserve(std::size_t iCount) { _Items.reserve(iCount); }

  const KelUnicodeString& operator[](int iPosition) const;

  const_iterator begin() const { return _Items.begin(); }
  const_iterator end() const { return _Items.end(); }

  bool operator==(const KelUnicodeStringList& iOther) const { return _Items == iOther._Items; }
  bool operator!=(const KelUnicodeStringList& iOther) const { return _Items != iOther._Items; }

private:
  std::vector<KelUnicodeString> _Items;
};

#endif
