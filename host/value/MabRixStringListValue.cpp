#include "MabRixStringListValue.h"

KelImplementClass(MabRixStringListValue, KelBaseUnknown, "KelSystem")
