#include "MabRixValueFormat.h"

MabRixImplementClass(MabRixValueFormat, KelBaseUnknown)

MabRixValueFormat::~MabRixValueFormat() = default;
