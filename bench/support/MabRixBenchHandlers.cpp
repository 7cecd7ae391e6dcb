#include "MabRixBenchHandlers.h"

#include "KelVar.h"

#include "MabRixCADObjectContext.h"
#include "MabRixCustomQueryResultValue.h"
#include "MabRixHandlerCatalogue.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixWorkspaceListQueryResultValue.h"

namespace
{
// The catalogue's options of a benchmark session: rixsax's defaults, and
// contexts that live as long as the session.
class BenchOptions : public MabRixHandlerOptions
{
public:
  ~BenchOptions() override
  {
    _pTNRContext->Release();
    _pCADContext->Release();
  }
  KelUnicodeString ListSeparator() override { return KelUnicodeString(","); }
  KelUnicodeString FirstSeparator() override { return KelUnicodeString(";"); }
  KelUnicodeString SecondSeparator() override { return KelUnicodeString("="); }
  KelUnicodeString ItemElement() override { return KelUnicodeString("item"); }
  bool KeyValueElements() override { return false; }
  KelUnicodeString KeyElement() override { return KelUnicodeString(); }
  KelUnicodeString ValueElement() override { return KelUnicodeString(); }
  KelBaseUnknown_varKelUnicodeStringDico* FormatMap() override { return nullptr; }
  MabRixValueFormat& Format() override { return *_spFormat; }
  KelUnicodeString ElementKind() override { return KelUnicodeString(); }
  int RootLevel() override { return 0; }
  unsigned char LockSuccess() override { return TRUE; }
  MabRixTNRObjectContext*& TNRContext() override { return _pTNRContext; }
  MabRixCADObjectContext*& CADContext() override { return _pCADContext; }
  MabRixObjectDetailsResponse* ObjectDetailsResponse() override { return nullptr; }

private:
  KelVar<MabRixStringValueFormat> _spFormat = KelVar<MabRixStringValueFormat>::Adopt(new MabRixStringValueFormat());
  MabRixTNRObjectContext* _pTNRContext = new MabRixTNRObjectContext();
  MabRixCADObjectContext* _pCADContext = new MabRixCADObjectContext();
};

// A session of the catalogue's handler iName; the factory hands over a
// creation reference, as the root adopts it.
MabRixBenchSession CatalogueSession(const char* iName)
{
  std::shared_ptr<BenchOptions> spOptions = std::make_shared<BenchOptions>();
  const MabRixCatalogueFactory Make = MabRixFindCatalogueEntry(iName)->_Make;
  MabRixBenchSession Session;
  Session._Factory = [pOptions = spOptions.get(), Make](MabRixSAXHandlerBase& ioRoot) -> MabIRixSAXHandler* {
    const MabIRixSAXHandler_var spHandler = Make(ioRoot, *pOptions);
    spHandler->AddRef();
    return spHandler.Get();
  };
  Session._spKeep = spOptions;
  return Session;
}

BenchOptions& OptionsOf(const MabRixBenchSession& iSession)
{
  return *static_cast<BenchOptions*>(iSession._spKeep.get());
}

std::uint64_t MapEntries(const MabRixBenchRun& iRun)
{
  const MabRixStringMapValue* pMap = KelImplCast<MabRixStringMapValue>(iRun._spValue.Get());
  return pMap ? static_cast<std::uint64_t>(pMap->_Value.Size()) : 0;
}

// A session whose entries iEntries counts in the value.
MabRixBenchSession Counted(MabRixBenchSession iSession, std::function<std::uint64_t(const MabRixBenchRun&)> iEntries)
{
  iSession._Entries = std::move(iEntries);
  return iSession;
}

// What a run left in the context: the entities the handler makes.
enum class Entities
{
  MinorObjects,
  Relationships,
  Relations
};

// A handler that writes a context: the entries are what it left there.
MabRixBenchSession WithContext(const char* iName, Entities iCounted)
{
  MabRixBenchSession Session = CatalogueSession(iName);
  const bool CAD = MabRixFindCatalogueEntry(iName)->_Context == MabRixWrittenContext::CAD;
  Session._Entries = [pOptions = &OptionsOf(Session), CAD, iCounted](const MabRixBenchRun&) -> std::uint64_t {
    const MabRixObjectContext& Filled = CAD ? static_cast<const MabRixObjectContext&>(*pOptions->CADContext())
                                            : static_cast<const MabRixObjectContext&>(*pOptions->TNRContext());
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
  return Counted(CatalogueSession("overwrite-file-list"), &MapEntries);
}
MabRixBenchSession ObjectDetailsList(std::uint64_t) { return WithContext("object-details", Entities::MinorObjects); }
MabRixBenchSession ObjectList(std::uint64_t) { return WithContext("object-list", Entities::MinorObjects); }
MabRixBenchSession RelationshipList(std::uint64_t) { return WithContext("relationship-list", Entities::Relationships); }
MabRixBenchSession Structure(std::uint64_t iRecords)
{
  MabRixBenchSession Session = WithContext("structure", Entities::Relations);
  Prefill(*OptionsOf(Session).TNRContext(), iRecords);
  return Session;
}
MabRixBenchSession WorkspaceList(std::uint64_t)
{
  return Counted(CatalogueSession("workspace-list"), [](const MabRixBenchRun& iRun) -> std::uint64_t {
    const MabRixWorkspaceListQueryResultValue* pValue =
        KelImplCast<MabRixWorkspaceListQueryResultValue>(iRun._spValue.Get());
    return pValue ? static_cast<std::uint64_t>(pValue->_WorkspaceDetails.Size()) : 0;
  });
}
MabRixBenchSession CollectionList(std::uint64_t) { return Counted(CatalogueSession("collection-list"), &MapEntries); }
// The value brings its own TNR context: the rows are its minor objects.
MabRixBenchSession CustomQuery(std::uint64_t)
{
  return Counted(CatalogueSession("custom-query"), [](const MabRixBenchRun& iRun) -> std::uint64_t {
    const MabRixCustomQueryResultValue* pValue = KelImplCast<MabRixCustomQueryResultValue>(iRun._spValue.Get());
    const MabRixTNRObjectContext* pContext = pValue ? pValue->GetObjectContext() : nullptr;
    return pContext ? static_cast<std::uint64_t>(pContext->GetMinorObjects().size()) : 0;
  });
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
