/// Identity of a saved query: its name and description. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSavedQueryID_h
#define MabRixSavedQueryID_h

#include "KelUnicodeString.h"

class MabRixSavedQueryID
{
public:
  MabRixSavedQueryID() = default;
  MabRixSavedQueryID(const KelUnicodeString& iName, const KelUnicodeString& iDescription);

  bool operator==(const MabRixSavedQueryID& iOther) const;
  bool operator!=(const MabRixSavedQueryID& iOther) const { return !(*this == iOther); }

  KelUnicodeString _Name;
  KelUnicodeString _Description;
};

#endif
