#include "MabRixBenchHandlers.h"

#include "KelVar.h"

#ifdef MABRIX_BENCH_HAS_OverwriteFileList
#include "MabRixSAXHandlerOverwriteFileList.h"
#include "MabRixStringMapValue.h"
#endif

namespace
{
template <class Handler>
MabRixBenchFactory FactoryOf()
{
  return [](MabRixSAXHandlerBase& ioRoot) -> MabIRixSAXHandler* { return new Handler(ioRoot); };
}

#ifdef MABRIX_BENCH_HAS_OverwriteFileList
MabRixBenchSession OverwriteFileList(std::uint64_t)
{
  MabRixBenchSession Session;
  Session._Factory = FactoryOf<MabRixSAXHandlerOverwriteFileList>();
  Session._Entries = [](const MabRixBenchRun& iRun) -> std::uint64_t {
    const MabRixStringMapValue* pMap = KelImplCast<MabRixStringMapValue>(iRun._spValue.Get());
    return pMap ? static_cast<std::uint64_t>(pMap->_Value.Size()) : 0;
  };
  return Session;
}
#endif
}  // namespace

bool MabRixBenchTargetFor(MabRixResponseKind iKind, MabRixBenchTarget& oTarget)
{
  switch (iKind)
  {
#ifdef MABRIX_BENCH_HAS_OverwriteFileList
    case MabRixResponseKind::OverwriteFileList: oTarget = &OverwriteFileList; return true;
#endif
    default: return false;
  }
}
