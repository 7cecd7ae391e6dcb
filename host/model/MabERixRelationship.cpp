#include "MabERixRelationship.h"

KelImplementClass(MabERixRelationship, KelBaseUnknown, "KelSystem")
