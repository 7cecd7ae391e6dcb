/// One workspace of the user, as a workspace list row describes it. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixWorkspaceDetails_h
#define MabRixWorkspaceDetails_h

#include "KelDico.h"
#include "KelUnicodeString.h"

class MabRixWorkspaceDetails
{
public:
  KelUnicodeString _RowID;
  KelUnicodeString _Name;
  KelUnicodeString _OID;
  KelUnicodeString _Type;
  KelUnicodeString _Revision;

  void Clear();
  bool operator==(const MabRixWorkspaceDetails& iOther) const;
  bool operator!=(const MabRixWorkspaceDetails& iOther) const { return !(*this == iOther); }
};

typedef KelDico<MabRixWorkspaceDetails> MabRixWorkspaceDetailsKelUnicodeStringDico;

#endif
