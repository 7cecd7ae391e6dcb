#include "MabRixWorkspaceListQueryResultValue.h"

KelImplementClass(MabRixWorkspaceListQueryResultValue, KelBaseUnknown, "KelSystem")
