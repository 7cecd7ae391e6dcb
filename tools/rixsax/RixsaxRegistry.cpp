#include "RixsaxRegistry.h"

#include "MabRixHandlerCatalogue.h"
#include "RixsaxSession.h"

namespace
{
// The catalogue's options, answered from the command line of the run.
class SessionOptions : public MabRixHandlerOptions
{
public:
  explicit SessionOptions(RixsaxSession& ioSession) : _Session(ioSession) {}

  KelUnicodeString ListSeparator() override { return _Session._ListSeparator; }
  KelUnicodeString FirstSeparator() override { return _Session._FirstSeparator; }
  KelUnicodeString SecondSeparator() override { return _Session._SecondSeparator; }
  KelUnicodeString ItemElement() override { return _Session._Item; }
  // Key/value mode when the command line named both elements.
  bool KeyValueElements() override { return _Session.Options()._KeyValue.has_value(); }
  KelUnicodeString KeyElement() override { return _Session._Key; }
  KelUnicodeString ValueElement() override { return _Session._Value; }
  KelBaseUnknown_varKelUnicodeStringDico* FormatMap() override
  {
    return _Session.HasFormatMap() ? &_Session.FormatMap() : nullptr;
  }
  MabRixValueFormat& Format() override { return _Session.Format(); }
  KelUnicodeString ElementKind() override { return _Session._ElementKind; }
  int RootLevel() override { return _Session.Options()._RootLevel; }
  unsigned char LockSuccess() override { return _Session.Options()._LockSuccess ? TRUE : FALSE; }
  MabRixTNRObjectContext*& TNRContext() override { return _Session.TNRContext(); }
  MabRixCADObjectContext*& CADContext() override { return _Session.CADContext(); }
  // Lent only when the command line gave one.
  MabRixObjectDetailsResponse* ObjectDetailsResponse() override { return _Session.ObjectDetailsResponse(); }

private:
  RixsaxSession& _Session;
};

unsigned ContextUse(MabRixWrittenContext iContext)
{
  switch (iContext)
  {
    case MabRixWrittenContext::TNR:
      return RixsaxUsesTNRContext;
    case MabRixWrittenContext::CAD:
      return RixsaxUsesCADContext;
    case MabRixWrittenContext::None:
      break;
  }
  return RixsaxNoContext;
}

std::vector<RixsaxHandlerEntry> BuildEntries()
{
  std::vector<RixsaxHandlerEntry> Entries;
  for (const MabRixCatalogueEntry& Entry : MabRixHandlerCatalogue())
  {
    const MabRixCatalogueFactory Make = Entry._Make;
    Entries.push_back({Entry._Name, Entry._ClassName, Entry._Description, ContextUse(Entry._Context),
                       [Make](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
                         SessionOptions Options(ioSession);
                         return Make(iParent, Options);
                       }});
  }
  return Entries;
}
}  // namespace

const std::vector<RixsaxHandlerEntry>& RixsaxHandlers()
{
  static const std::vector<RixsaxHandlerEntry> Entries = BuildEntries();
  return Entries;
}

const RixsaxHandlerEntry* RixsaxFindHandler(const std::string& iName)
{
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    if (iName == Entry._Name)
      return &Entry;
  return nullptr;
}
