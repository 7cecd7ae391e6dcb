#include "MabRixBenchHandlers.h"

#include "KelVar.h"

#include "MabRixCADObjectContext.h"
#include "MabRixCustomQueryResultValue.h"
#include "MabRixSAXHandlerCollectionListQueryResult.h"
#include "MabRixSAXHandlerCustomQueryResult.h"
#include "MabRixSAXHandlerObjectDetailsList.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixSAXHandlerOverwriteFileList.h"
#include "MabRixSAXHandlerRelationshipList.h"
#include "MabRixSAXHandlerStructure.h"
#include "MabRixSAXHandlerWorkspaceListQueryResult.h"
#include "MabRixStringMapValue.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixWorkspaceListQueryResultValue.h"

namespace
{
template <class Handler>
MabRixBenchFactory FactoryOf()
{
  return [](MabRixSAXHandlerBase& ioRoot) -> MabIRixSAXHandler* { return new Handler(ioRoot); };
}

std::uint64_t MapEntries(const MabRixBenchRun& iRun)
{
  const MabRixStringMapValue* pMap = KelImplCast<MabRixStringMapValue>(iRun._spValue.Get());
  return pMap ? static_cast<std::uint64_t>(pMap->_Value.Size()) : 0;
}

// A context of the session, handed to the handler by a reference to a
// pointer that lives as long as the session.
template <class Context>
struct ContextHolder
{
  Context* _pContext = new Context();
  ~ContextHolder() { _pContext->Release(); }
};

// What a run left in the context: the entities the handler makes.
enum class Entities
{
  MinorObjects,
  Relationships,
  Relations
};

template <class Context, class Handler, class... Arguments>
MabRixBenchSession WithContext(Entities iCounted, Arguments... iArguments)
{
  std::shared_ptr<ContextHolder<Context>> spHolder = std::make_shared<ContextHolder<Context>>();
  MabRixBenchSession Session;
  Session._Factory = [pHolder = spHolder.get(), iArguments...](MabRixSAXHandlerBase& ioRoot) -> MabIRixSAXHandler* {
    return new Handler(ioRoot, pHolder->_pContext, iArguments...);
  };
  Session._Entries = [pHolder = spHolder.get(), iCounted](const MabRixBenchRun&) -> std::uint64_t {
    const Context& Filled = *pHolder->_pContext;
    switch (iCounted)
    {
      case Entities::Relationships:
        return Filled.GetRelationships().size();
      case Entities::Relations:
        return Filled.GetRelations().size();
      default:
        return Filled.GetMinorObjects().size();
    }
  };
  Session._spKeep = spHolder;
  return Session;
}

// A structure links objects already in the context: the session creates the
// minor objects of the first iRecords CAD ids (untimed) before the run.
void Prefill(MabRixTNRObjectContext& ioContext, std::uint64_t iRecords)
{
  const KelUnicodeString Type("Component"), Revision("A"), Version("1");
  for (std::uint64_t i = 0; i < iRecords; ++i)
  {
    const KelUnicodeString Id(MabRixResponseGenerator::CadId(i));
    if (MabERixMinorObject* pMinor = ioContext.CreateMinorObject(MabRixObjectID(Id), Type, Id, Revision, Version, TRUE))
      pMinor->Release();
  }
}

MabRixBenchSession OverwriteFileList(std::uint64_t)
{
  return {FactoryOf<MabRixSAXHandlerOverwriteFileList>(), &MapEntries, nullptr};
}
MabRixBenchSession ObjectDetailsList(std::uint64_t)
{
  return WithContext<MabRixCADObjectContext, MabRixSAXHandlerObjectDetailsList>(Entities::MinorObjects);
}
MabRixBenchSession ObjectList(std::uint64_t)
{
  return WithContext<MabRixTNRObjectContext, MabRixSAXHandlerObjectList>(Entities::MinorObjects);
}
MabRixBenchSession RelationshipList(std::uint64_t)
{
  return WithContext<MabRixTNRObjectContext, MabRixSAXHandlerRelationshipList>(Entities::Relationships);
}
MabRixBenchSession Structure(std::uint64_t iRecords)
{
  MabRixBenchSession Session = WithContext<MabRixTNRObjectContext, MabRixSAXHandlerStructure>(Entities::Relations, 0);
  Prefill(*static_cast<ContextHolder<MabRixTNRObjectContext>*>(Session._spKeep.get())->_pContext, iRecords);
  return Session;
}
MabRixBenchSession WorkspaceList(std::uint64_t)
{
  return {FactoryOf<MabRixSAXHandlerWorkspaceListQueryResult>(),
          [](const MabRixBenchRun& iRun) -> std::uint64_t {
            const MabRixWorkspaceListQueryResultValue* pValue =
                KelImplCast<MabRixWorkspaceListQueryResultValue>(iRun._spValue.Get());
            return pValue ? static_cast<std::uint64_t>(pValue->_WorkspaceDetails.Size()) : 0;
          },
          nullptr};
}
MabRixBenchSession CollectionList(std::uint64_t)
{
  return {FactoryOf<MabRixSAXHandlerCollectionListQueryResult>(), &MapEntries, nullptr};
}
// The value brings its own TNR context: the rows are its minor objects.
MabRixBenchSession CustomQuery(std::uint64_t)
{
  return {FactoryOf<MabRixSAXHandlerCustomQueryResult>(),
          [](const MabRixBenchRun& iRun) -> std::uint64_t {
            const MabRixCustomQueryResultValue* pValue = KelImplCast<MabRixCustomQueryResultValue>(iRun._spValue.Get());
            const MabRixTNRObjectContext* pContext = pValue ? pValue->GetObjectContext() : nullptr;
            return pContext ? static_cast<std::uint64_t>(pContext->GetMinorObjects().size()) : 0;
          },
          nullptr};
}
}  // namespace

bool MabRixBenchTargetFor(MabRixResponseKind iKind, MabRixBenchTarget& oTarget)
{
  switch (iKind)
  {
    case MabRixResponseKind::OverwriteFileList:
      oTarget = &OverwriteFileList;
      return true;
    case MabRixResponseKind::ObjectDetails:
      oTarget = &ObjectDetailsList;
      return true;
    case MabRixResponseKind::ObjectList:
      oTarget = &ObjectList;
      return true;
    case MabRixResponseKind::RelationshipList:
      oTarget = &RelationshipList;
      return true;
    case MabRixResponseKind::StructureDeep:
    case MabRixResponseKind::StructureWide:
      oTarget = &Structure;
      return true;
    case MabRixResponseKind::WorkspaceList:
      oTarget = &WorkspaceList;
      return true;
    case MabRixResponseKind::CollectionList:
      oTarget = &CollectionList;
      return true;
    case MabRixResponseKind::CustomQuery:
      oTarget = &CustomQuery;
      return true;
    default:
      return false;
  }
}
