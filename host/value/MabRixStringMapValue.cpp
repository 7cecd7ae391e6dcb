#include "MabRixStringMapValue.h"

KelImplementClass(MabRixStringMapValue, KelBaseUnknown, "KelSystem")
