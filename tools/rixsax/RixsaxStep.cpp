#include "RixsaxStep.h"

#include <iostream>

#include "MabRixResponseReader.h"
#include "RixsaxContextJson.h"
#include "RixsaxProgressInput.h"
#include "RixsaxRegistry.h"
#include "RixsaxSession.h"
#include "RixsaxValueJson.h"

namespace
{
// The contexts the handler borrowed, as they stand after the step, and those
// its values carry.
RixsaxContextCounts CountContexts(RixsaxSession& iSession, unsigned iContexts,
                                  const MabRixBoundedList<MabIRixValue_var>& iValues)
{
  RixsaxContextCounts Counts;
  const auto Add = [&Counts](const MabRixObjectContext* ipContext) {
    if (!ipContext)
      return;
    const RixsaxContextCounts Some = RixsaxCountContext(*ipContext);
    Counts._Objects += Some._Objects;
    Counts._MajorObjects += Some._MajorObjects;
    Counts._MinorObjects += Some._MinorObjects;
    Counts._Relationships += Some._Relationships;
    Counts._Relations += Some._Relations;
  };
  if (iContexts & RixsaxUsesTNRContext)
    Add(iSession.UsedTNRContext());
  if (iContexts & RixsaxUsesCADContext)
    Add(iSession.UsedCADContext());
  for (const MabIRixValue_var& Value : iValues)
    Add(RixsaxValueContext(Value));
  return Counts;
}

// The objects the run's contexts hold so far, for the progress line.
std::size_t ObjectsSoFar(const RixsaxSession& iSession)
{
  std::size_t Objects = 0;
  if (const MabRixObjectContext* pContext = iSession.UsedTNRContext())
    Objects += pContext->GetObjects().size();
  if (const MabRixObjectContext* pContext = iSession.UsedCADContext())
    Objects += pContext->GetObjects().size();
  return Objects;
}

// Traces name the root after rixsax's command layer, as they always have:
// scripts compare them.
void NameRoot(MabRixBoundedList<RixsaxTraceRecord>& ioTrace)
{
  for (RixsaxTraceRecord& Change : ioTrace)
    if (Change._Handler == MabRixSAXHandlerRoot::MetaObject()->_Name)
      Change._Handler = "RixsaxRootHandler";
}
}  // namespace

RixsaxStepRecord RixsaxRunStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile)
{
  const RixsaxOptions& Options = ioSession.Options();
  MabRixResponseReader::Options ReaderOptions;
  ReaderOptions._Parser._StopOnCallbackFailure = Options._StopOnFailure;
  ReaderOptions._StartAt = KelUnicodeString(Options._At);
  ReaderOptions._ContinueOnCheck = Options._ContinueOnCheck;
  ReaderOptions._Trace = Options._Trace;
  ReaderOptions._MaxRecords = Options._MaxRecords;
  const RixsaxHandlerEntry* pEntry = &iEntry;
  const MabRixResponseReader Reader(
      [pEntry, &ioSession](MabRixSAXHandlerBase& iRoot) { return pEntry->_Factory(iRoot, ioSession); }, ReaderOptions);

  RixsaxStepRecord Record;
  if (const auto spInput =
          RixsaxProgressInput::Open(iFile, Options._Progress, [&ioSession] { return ObjectsSoFar(ioSession); }))
    static_cast<MabRixReadResult&>(Record) = Reader.ReadStream(spInput->Stream());
  else
    static_cast<MabRixReadResult&>(Record) = iFile == "-" ? Reader.ReadStream(std::cin) : Reader.ReadFile(iFile);
  Record._pEntry = &iEntry;
  Record._File = iFile;
  NameRoot(Record._Trace);
  Record._ContextCounts = CountContexts(ioSession, iEntry._Contexts, Record._Values);
  return Record;
}
