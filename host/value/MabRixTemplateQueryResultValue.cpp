#include "MabRixTemplateQueryResultValue.h"

KelImplementClass(MabRixTemplateQueryResultValue, KelBaseUnknown, "KelSystem")
