#include "MabRixReadResult.h"

#include "MabRixFailureResponse.h"

bool MabRixReadResult::Succeeded() const
{
  return _Started && !_ParseError && !_HostError && !_AllocationFailed && SUCCEEDED(_Result);
}

const MabRixFailureResponse* MabRixReadResult::GetFailureResponse() const
{
  return KelImplCast<MabRixFailureResponse>(_spResponse.Get());
}
