#include "MabRixUIElementQueryResultValue.h"

KelImplementClass(MabRixUIElementQueryResultValue, KelBaseUnknown, "KelSystem")
