#include "MabRixStringListMapValue.h"

KelImplementClass(MabRixStringListMapValue, KelBaseUnknown, "KelSystem")
