#include "MabRixObjectDetailsResponse.h"

KelImplementClass(MabRixObjectDetailsResponse, KelBaseUnknown, "KelSystem")
