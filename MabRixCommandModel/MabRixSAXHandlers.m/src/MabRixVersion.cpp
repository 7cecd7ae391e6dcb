// The library's version, compiled in from the version header it was built with.
#include "MabRixVersion.h"

const char* MabRixGetVersion() noexcept { return MABRIX_VERSION_STRING; }
