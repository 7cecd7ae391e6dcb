/// Ordered list of document IDs. Positions count from 0; a position outside
/// the list reads as an empty document ID. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixDocumentIDList_h
#define MabRixDocumentIDList_h

#include <vector>

#include "MabRixDocumentID.h"

class MabRixDocumentIDList
{
public:
  typedef std::vector<MabRixDocumentID>::const_iterator const_iterator;

  void Append(const MabRixDocumentID& iID) { _Items.push_back(iID); }
  int Size() const { return static_cast<int>(_Items.size()); }
  void RemoveAll() { _Items.clear(); }
  const MabRixDocumentID& operator[](int iPosition) const;

  const_iterator begin() const { return _Items.begin(); }
  const_iterator end() const { return _Items.end(); }

private:
  std::vector<MabRixDocumentID> _Items;
};

#endif
