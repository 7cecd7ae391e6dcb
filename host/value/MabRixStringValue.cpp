#include "MabRixStringValue.h"

KelImplementClass(MabRixStringValue, KelBaseUnknown, "KelSystem")
