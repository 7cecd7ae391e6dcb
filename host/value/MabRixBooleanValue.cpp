#include "MabRixBooleanValue.h"

KelImplementClass(MabRixBooleanValue, KelBaseUnknown, "KelSystem")
