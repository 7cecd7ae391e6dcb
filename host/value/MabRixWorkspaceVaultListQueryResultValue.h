/// Result of a workspace-vault list query: every vault by its OID, and the
/// vault OIDs in the order of the rows (repeats kept). Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixWorkspaceVaultListQueryResultValue_h
#define MabRixWorkspaceVaultListQueryResultValue_h

#include "KelClassMacros.h"
#include "KelUnicodeStringList.h"
#include "MabIRixValue.h"
#include "MabRixVaultDetails.h"

class MabRixWorkspaceVaultListQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixWorkspaceVaultListQueryResultValue() = default;
  MabRixVaultDetailsKelUnicodeStringDico _VaultDetails;  ///< OID to vault
  KelUnicodeStringList _VaultOIDs;                       ///< in row order
};

#endif
