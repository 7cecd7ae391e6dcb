#include "MabRixSavedQueryResultValue.h"

#include <new>

#include "MabRixSavedQueryRecord.h"

KelImplementClass(MabRixSavedQueryResultValue, KelBaseUnknown, "KelSystem")

MabRixSavedQueryResultValue::MabRixSavedQueryResultValue()
    : _spQueryRecord(MabIRixSavedQueryRecord_var::Adopt(new (std::nothrow) MabRixSavedQueryRecord()))
{
}
