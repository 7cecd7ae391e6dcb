#include "MabRixObjectAttributeValue.h"

KelImplementClass(MabRixObjectAttributeValue, KelBaseUnknown, "KelSystem")
