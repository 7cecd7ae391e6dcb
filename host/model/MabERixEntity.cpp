#include "MabERixEntity.h"

KelImplementClass(MabERixEntity, KelBaseUnknown, "KelSystem")
