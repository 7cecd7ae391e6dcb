/// Result of a workspace list query: every workspace by its OID, and the OID
/// of each workspace name. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixWorkspaceListQueryResultValue_h
#define MabRixWorkspaceListQueryResultValue_h

#include "KelClassMacros.h"
#include "KelDicos.h"
#include "MabIRixValue.h"
#include "MabRixWorkspaceDetails.h"

class MabRixWorkspaceListQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixWorkspaceListQueryResultValue() = default;
  MabRixWorkspaceDetailsKelUnicodeStringDico _WorkspaceDetails;  ///< OID to workspace
  KelUnicodeStringKelUnicodeStringDico _WorkspaceOIDs;           ///< name to OID
};

#endif
