#include <gtest/gtest.h>

#include <set>
#include <string>

#include "KelClassRegistry.h"
#include "MabRixCADObjectContext.h"
#include "MabRixHandlerCatalogue.h"
#include "MabRixHandlerTable.h"
#include "MabRixStringValueFormat.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"

namespace
{
// Answers every option and records which ones a factory asked for. iPresent
// says whether the optional ones (a format map, key/value elements) are
// given.
class RecordingOptions : public MabRixHandlerOptions
{
public:
  explicit RecordingOptions(bool iPresent) : _Present(iPresent)
  {
    _FormatMap.Insert(KelUnicodeString("name"), KelBaseUnknown_var(_spFormat.Get()));
  }
  ~RecordingOptions() override
  {
    _pTNRContext->Release();
    _pCADContext->Release();
  }

  KelUnicodeString ListSeparator() override { return Ask(MabRixListSeparatorOption, ","); }
  KelUnicodeString FirstSeparator() override { return Ask(MabRixFirstSeparatorOption, ";"); }
  KelUnicodeString SecondSeparator() override { return Ask(MabRixSecondSeparatorOption, "="); }
  KelUnicodeString ItemElement() override { return Ask(MabRixItemElementOption, "item"); }
  bool KeyValueElements() override { return Ask(MabRixKeyValueElementsOption, _Present); }
  KelUnicodeString KeyElement() override { return Ask(MabRixKeyValueElementsOption, "key"); }
  KelUnicodeString ValueElement() override { return Ask(MabRixKeyValueElementsOption, "value"); }
  KelBaseUnknown_varKelUnicodeStringDico* FormatMap() override
  {
    return Ask(MabRixFormatMapOption, _Present ? &_FormatMap : nullptr);
  }
  MabRixValueFormat& Format() override { return *Ask(MabRixValueFormatOption, _spFormat.Get()); }
  KelUnicodeString ElementKind() override { return Ask(MabRixElementKindOption, "part"); }
  int RootLevel() override { return Ask(MabRixRootLevelOption, 0); }
  unsigned char LockSuccess() override { return Ask(MabRixLockSuccessOption, TRUE); }
  MabRixTNRObjectContext*& TNRContext() override
  {
    _Contexts.insert(MabRixWrittenContext::TNR);
    return _pTNRContext;
  }
  MabRixCADObjectContext*& CADContext() override
  {
    _Contexts.insert(MabRixWrittenContext::CAD);
    return _pCADContext;
  }
  MabRixObjectDetailsResponse* ObjectDetailsResponse() override
  {
    return Ask(MabRixObjectDetailsResponseOption, static_cast<MabRixObjectDetailsResponse*>(nullptr));
  }

  unsigned _Asked = 0;
  std::set<MabRixWrittenContext> _Contexts;

private:
  template <class T>
  T Ask(MabRixHandlerOption iOption, T iAnswer)
  {
    _Asked |= iOption;
    return iAnswer;
  }
  KelUnicodeString Ask(MabRixHandlerOption iOption, const char* iAnswer)
  {
    _Asked |= iOption;
    return KelUnicodeString(iAnswer);
  }

  bool _Present;
  KelVar<MabRixStringValueFormat> _spFormat = KelVar<MabRixStringValueFormat>::Adopt(new MabRixStringValueFormat());
  KelBaseUnknown_varKelUnicodeStringDico _FormatMap;
  MabRixTNRObjectContext* _pTNRContext = new MabRixTNRObjectContext();
  MabRixCADObjectContext* _pCADContext = new MabRixCADObjectContext();
};

// The class of the handler an entry builds, reading an empty element.
std::string BuiltClass(const MabRixCatalogueEntry& iEntry, RecordingOptions& ioOptions)
{
  const MabRixTestReading Reading =
      MabRixRead("<a/>", [&](MabRixSAXHandlerBase& iParent) { return iEntry._Make(iParent, ioOptions); });
  const MabIRixSAXHandler_var spHandler = Reading.Handler();
  return spHandler ? spHandler->GetImpl()->IsA() : "no handler";
}
}  // namespace

// A handler class the library defines and the catalogue lacks would be
// missing from rixsax, the tests, the benchmarks and the fuzz targets.
TEST(MabRixHandlerCatalogue, HasEveryHandlerClassTheLibraryRegisters)
{
  int HandlerClasses = 0;
  for (const KelMetaObject* pRecord : KelClassRegistration::RegisteredClasses())
  {
    // The base and the reader's root handler read no response of their own.
    const std::string Name = pRecord->_Name;
    if (std::string(pRecord->_Framework) != "MabRixCommandModel" || !pRecord->IsAKindOf("MabRixSAXHandlerBase") ||
        Name == "MabRixSAXHandlerBase" || Name == "MabRixSAXHandlerRoot")
      continue;
    ++HandlerClasses;
    EXPECT_NE(MabRixFindCatalogueClass(pRecord->_Name), nullptr) << pRecord->_Name << " has no catalogue entry";
  }
  EXPECT_EQ(HandlerClasses, static_cast<int>(MabRixHandlerCatalogue().size()));
}

TEST(MabRixHandlerCatalogue, NamesAndClassesAreUnique)
{
  std::set<std::string> Names, Classes;
  for (const MabRixCatalogueEntry& Entry : MabRixHandlerCatalogue())
  {
    EXPECT_TRUE(Names.insert(Entry._Name).second) << Entry._Name;
    EXPECT_TRUE(Classes.insert(Entry._ClassName).second) << Entry._ClassName;
    EXPECT_EQ(MabRixFindCatalogueEntry(Entry._Name), &Entry);
  }
}

// Each factory builds the entry's class, asks for exactly the options the
// entry lists (the optional ones given or not) and borrows the context the
// entry says it writes.
TEST(MabRixHandlerCatalogue, FactoriesBuildTheirClassFromTheOptionsTheyList)
{
  for (const MabRixCatalogueEntry& Entry : MabRixHandlerCatalogue())
  {
    RecordingOptions Given(true), NotGiven(false);
    EXPECT_EQ(BuiltClass(Entry, Given), Entry._ClassName);
    EXPECT_EQ(BuiltClass(Entry, NotGiven), Entry._ClassName);
    EXPECT_EQ(Given._Asked | NotGiven._Asked, Entry._Options) << Entry._Name;
    std::set<MabRixWrittenContext> Expected;
    if (Entry._Context != MabRixWrittenContext::None)
      Expected.insert(Entry._Context);
    EXPECT_EQ(Given._Contexts, Expected) << Entry._Name;
  }
}

TEST(MabRixHandlerCatalogue, TheTestTableHasEveryEntry)
{
  ASSERT_EQ(MabRixHandlerTable().size(), MabRixHandlerCatalogue().size());
  for (const MabRixCatalogueEntry& Entry : MabRixHandlerCatalogue())
    EXPECT_NE(MabRixFindHandler(Entry._Name), nullptr) << Entry._Name;
}
