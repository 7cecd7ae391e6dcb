/// Identity of a user-interface element the server defines: its kind, its
/// name and whether it is a system element. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixUIElementID_h
#define MabRixUIElementID_h

#include "KelDico.h"
#include "KelUnicodeString.h"

class MabRixUIElementID
{
public:
  MabRixUIElementID() = default;
  MabRixUIElementID(const KelUnicodeString& iKind, const KelUnicodeString& iName, const unsigned char& iIsSystem);

  bool operator==(const MabRixUIElementID& iOther) const;
  bool operator!=(const MabRixUIElementID& iOther) const { return !(*this == iOther); }

  KelUnicodeString _Kind;
  KelUnicodeString _Name;
  unsigned char _IsSystem = 0;
};

typedef KelDico<MabRixUIElementID> MabRixUIElementIDKelUnicodeStringDico;

#endif
