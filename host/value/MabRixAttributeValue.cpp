#include "MabRixAttributeValue.h"

KelImplementClass(MabRixAttributeValue, KelBaseUnknown, "KelSystem")
