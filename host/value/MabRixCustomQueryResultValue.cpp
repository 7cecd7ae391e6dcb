#include "MabRixCustomQueryResultValue.h"

#include <new>

KelImplementClass(MabRixCustomQueryResultValue, KelBaseUnknown, "KelSystem")

MabRixCustomQueryResultValue::MabRixCustomQueryResultValue()
    : _spObjectContext(KelVar<MabRixTNRObjectContext>::Adopt(new (std::nothrow) MabRixTNRObjectContext()))
{
}
