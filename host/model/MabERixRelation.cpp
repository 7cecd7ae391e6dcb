#include "MabERixRelation.h"

KelImplementClass(MabERixRelation, KelBaseUnknown, "KelSystem")
