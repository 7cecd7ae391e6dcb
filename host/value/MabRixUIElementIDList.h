/// Ordered list of user-interface element identities. Positions count from
/// 0; a position outside the list reads as an empty identity. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixUIElementIDList_h
#define MabRixUIElementIDList_h

#include <vector>

#include "MabRixUIElementID.h"

class MabRixUIElementIDList
{
public:
  typedef std::vector<MabRixUIElementID>::const_iterator const_iterator;

  MabRixUIElementIDList() = default;
  MabRixUIElementIDList(std::initializer_list<MabRixUIElementID> iItems) : _Items(iItems) {}

  void Append(const MabRixUIElementID& iItem) { _Items.push_back(iItem); }
  int Size() const { return static_cast<int>(_Items.size()); }
  const MabRixUIElementID& operator[](int iPosition) const;

  const_iterator begin() const { return _Items.begin(); }
  const_iterator end() const { return _Items.end(); }

  bool operator==(const MabRixUIElementIDList& iOther) const { return _Items == iOther._Items; }
  bool operator!=(const MabRixUIElementIDList& iOther) const { return _Items != iOther._Items; }

private:
  std::vector<MabRixUIElementID> _Items;
};

#endif
