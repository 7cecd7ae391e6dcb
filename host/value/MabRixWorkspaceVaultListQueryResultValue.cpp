#include "MabRixWorkspaceVaultListQueryResultValue.h"

KelImplementClass(MabRixWorkspaceVaultListQueryResultValue, KelBaseUnknown, "KelSystem")
