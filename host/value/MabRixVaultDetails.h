/// One vault of a workspace, as a workspace-vault list row describes it. See @ref conventions. @file
#ifndef MabRixVaultDetails_h
#define MabRixVaultDetails_h

#include "KelDico.h"
#include "KelUnicodeString.h"

class MabRixVaultDetails
{
public:
  KelUnicodeString _RowID;
  KelUnicodeString _Name;
  KelUnicodeString _OID;
  KelUnicodeString _ParentID;
  KelUnicodeString _Type;
  KelUnicodeString _Revision;

  void Clear();
  bool operator==(const MabRixVaultDetails& iOther) const;
  bool operator!=(const MabRixVaultDetails& iOther) const { return !(*this == iOther); }
};

typedef KelDico<MabRixVaultDetails> MabRixVaultDetailsKelUnicodeStringDico;

#endif
