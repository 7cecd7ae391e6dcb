#include "MabRixHandlerTable.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "MabRixBooleanValueFormat.h"
#include "MabRixCADObjectContext.h"
#include "MabRixHandlerCatalogue.h"
#include "MabRixStringListMapValueFormat.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringMapValueFormat.h"
#include "MabRixStringValueFormat.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"
#include "RixsaxJsonText.h"

KelUnicodeString MabRixOptionBytes::Separator()
{
  static const char* const Separators[] = {",", ";", "|", "", " ", "::", "=", "\n", "ab", "\xC3\xA9"};
  return KelUnicodeString(Separators[Byte() % (sizeof Separators / sizeof Separators[0])]);
}

namespace
{
// One of the value formats, chosen by the options.
MabRixValueFormat& ChooseFormat(MabRixOptionBytes& ioOptions, MabRixBorrowed& ioBorrowed)
{
  switch (ioOptions.Byte() % 7)
  {
    case 0:
      return ioBorrowed.Adopt(new MabRixStringValueFormat());
    case 1:
      return ioBorrowed.Adopt(new MabRixBooleanValueFormat());
    case 2:
      return ioBorrowed.Adopt(new MabRixStringListValueFormat(ioOptions.Separator()));
    case 3:
      return ioBorrowed.Adopt(new MabRixStringMapValueFormat());
    case 4: {
      const KelUnicodeString First = ioOptions.Separator();
      return ioBorrowed.Adopt(new MabRixStringMapValueFormat(First, ioOptions.Separator()));
    }
    case 5:
      return ioBorrowed.Adopt(new MabRixStringListMapValueFormat(ioOptions.Separator()));
    default: {
      const KelUnicodeString First = ioOptions.Separator();
      const KelUnicodeString Second = ioOptions.Separator();
      return ioBorrowed.Adopt(new MabRixStringListMapValueFormat(First, Second, ioOptions.Separator()));
    }
  }
}

// A format map over a few attribute names of the response vocabulary.
KelBaseUnknown_varKelUnicodeStringDico& ChooseFormatMap(MabRixOptionBytes& ioOptions, MabRixBorrowed& ioBorrowed)
{
  static const char* const Names[] = {"name", "value", "type", "a", "description", ""};
  KelBaseUnknown_varKelUnicodeStringDico& Map = ioBorrowed.Own(new KelBaseUnknown_varKelUnicodeStringDico());
  const int Count = ioOptions.Byte() % 4;
  for (int i = 0; i < Count; ++i)
  {
    const KelUnicodeString Name(Names[ioOptions.Byte() % (sizeof Names / sizeof Names[0])]);
    Map.Insert(Name, KelBaseUnknown_var(&ChooseFormat(ioOptions, ioBorrowed)));
  }
  return Map;
}

// An element name of the response vocabulary, or an odd one.
KelUnicodeString ElementName(MabRixOptionBytes& ioOptions)
{
  static const char* const Names[] = {"item", "value", "name", "row", "key", "entry", "", "a"};
  return KelUnicodeString(Names[ioOptions.Byte() % (sizeof Names / sizeof Names[0])]);
}

// A CAD object context lent to the handler, through the pointer it takes by
// reference.
MabRixCADObjectContext*& CADContext(MabRixBorrowed& ioBorrowed)
{
  MabRixCADObjectContext& Context = ioBorrowed.Adopt(new MabRixCADObjectContext());
  ioBorrowed._Describe = [&Context] { return "context " + RixsaxCADContextJsonText(Context); };
  return ioBorrowed.Own(new MabRixCADObjectContext*(&Context));
}

// A type/name/revision object context lent the same way.
MabRixTNRObjectContext*& TNRContext(MabRixBorrowed& ioBorrowed)
{
  MabRixTNRObjectContext& Context = ioBorrowed.Adopt(new MabRixTNRObjectContext());
  ioBorrowed._Describe = [&Context] { return "context " + RixsaxTNRContextJsonText(Context); };
  return ioBorrowed.Own(new MabRixTNRObjectContext*(&Context));
}

// The catalogue's options drawn from bytes, in the order the factory asks.
class BytesOptions : public MabRixHandlerOptions
{
public:
  BytesOptions(MabRixOptionBytes& ioBytes, MabRixBorrowed& ioBorrowed) : _Bytes(ioBytes), _Borrowed(ioBorrowed) {}

  KelUnicodeString ListSeparator() override { return _Bytes.Separator(); }
  KelUnicodeString FirstSeparator() override { return _Bytes.Separator(); }
  KelUnicodeString SecondSeparator() override { return _Bytes.Separator(); }
  KelUnicodeString ItemElement() override { return ElementName(_Bytes); }
  bool KeyValueElements() override { return !_Bytes.Flag(); }
  KelUnicodeString KeyElement() override { return ElementName(_Bytes); }
  KelUnicodeString ValueElement() override { return ElementName(_Bytes); }
  KelBaseUnknown_varKelUnicodeStringDico* FormatMap() override
  {
    return _Bytes.Flag() ? &ChooseFormatMap(_Bytes, _Borrowed) : nullptr;
  }
  MabRixValueFormat& Format() override { return ChooseFormat(_Bytes, _Borrowed); }
  KelUnicodeString ElementKind() override { return ElementName(_Bytes); }
  int RootLevel() override { return _Bytes.Byte() % 4 - 1; }
  // TRUE unless the options say otherwise, as the command layer's default.
  unsigned char LockSuccess() override { return _Bytes.Flag() ? FALSE : TRUE; }
  MabRixTNRObjectContext*& TNRContext() override { return ::TNRContext(_Borrowed); }
  MabRixCADObjectContext*& CADContext() override { return ::CADContext(_Borrowed); }
  MabRixObjectDetailsResponse* ObjectDetailsResponse() override { return nullptr; }

private:
  MabRixOptionBytes& _Bytes;
  MabRixBorrowed& _Borrowed;
};

// The fuzz corpus names handlers by their position in this order; handlers
// the catalogue gained since follow in catalogue order.
const char* const CorpusOrder[] = {"string",
                                   "boolean",
                                   "string-list",
                                   "string-map",
                                   "string-list-map",
                                   "attribute",
                                   "collection-list",
                                   "overwrite-file-list",
                                   "template-list",
                                   "workspace-list",
                                   "vault-list",
                                   "xml-string-list",
                                   "xml-string-map",
                                   "xml-string-list-map",
                                   "failure",
                                   "saved-query",
                                   "ui-element",
                                   "object-details",
                                   "object-attribute",
                                   "object-list",
                                   "relationship-list",
                                   "structure",
                                   "lock-unlock",
                                   "custom-query"};

MabRixHandlerEntry TableEntry(const MabRixCatalogueEntry& iEntry)
{
  const MabRixCatalogueFactory Make = iEntry._Make;
  return {iEntry._Name, [Make](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioBytes, MabRixBorrowed& ioBorrowed) {
            BytesOptions Options(ioBytes, ioBorrowed);
            return Make(iParent, Options);
          }};
}

std::vector<MabRixHandlerEntry> BuildTable()
{
  std::vector<MabRixHandlerEntry> Table;
  for (const char* Name : CorpusOrder)
    if (const MabRixCatalogueEntry* pEntry = MabRixFindCatalogueEntry(Name))
      Table.push_back(TableEntry(*pEntry));
  for (const MabRixCatalogueEntry& Entry : MabRixHandlerCatalogue())
    if (std::find(std::begin(CorpusOrder), std::end(CorpusOrder), std::string_view(Entry._Name)) ==
        std::end(CorpusOrder))
      Table.push_back(TableEntry(Entry));
  return Table;
}

std::string Quote(const KelUnicodeString& iText) { return "\"" + iText.ToUtf8() + "\""; }
}  // namespace

const std::vector<MabRixHandlerEntry>& MabRixHandlerTable()
{
  static const std::vector<MabRixHandlerEntry> Table = BuildTable();
  return Table;
}

const MabRixHandlerEntry* MabRixFindHandler(const std::string& iName)
{
  for (const MabRixHandlerEntry& Entry : MabRixHandlerTable())
    if (Entry._Name == iName)
      return &Entry;
  return nullptr;
}

std::string MabRixDescribeValue(const MabIRixValue_var& iValue) { return RixsaxValueJsonText(iValue); }

std::string MabRixReadAndDescribe(const MabRixHandlerEntry& iEntry, const std::string& iXml,
                                  const std::vector<std::uint8_t>& iOptions, std::size_t iChunk,
                                  KelExpatParser::Options iParserOptions)
{
  MabRixBorrowed Borrowed;  // outlives the reading below
  MabRixOptionBytes Options(iOptions.data(), iOptions.size());
  const MabRixHandlerFactory Factory = [&](MabRixSAXHandlerBase& iParent) {
    return iEntry._Make(iParent, Options, Borrowed);
  };
  const MabRixTestReading Reading = MabRixRead(iXml, Factory, "", iChunk, iParserOptions);
  const KelExpatParser& Parser = *Reading._spParser;
  std::string Text = "result " + std::to_string(Reading._Result);
  if (Parser.HasParseError())
    Text += "\nparse error " + Quote(Parser.GetParseError()._Message) + " at " +
            std::to_string(Parser.GetParseError()._Line) + ":" + std::to_string(Parser.GetParseError()._Column);
  for (const KelSAXCallbackFailure& Failure : Parser.GetCallbackFailures())
    Text += "\nfailure " + std::to_string(Failure._Result) + " " + Failure._Event + " " + Quote(Failure._Element) +
            " at " + std::to_string(Failure._Line) + ":" + std::to_string(Failure._Column);
  for (const MabIRixValue_var& spValue : Reading.Values())
    Text += "\nvalue " + MabRixDescribeValue(spValue);
  if (const MabIRixSAXHandler_var spHandler = Reading.Handler())
  {
    MabIRixResponse_var spResponse;
    if (SUCCEEDED(spHandler->GetResponse(spResponse)) && spResponse)
      Text += std::string("\nresponse ") + (spResponse->GetImpl() ? spResponse->GetImpl()->IsA() : "?");
  }
  if (Borrowed._Describe)
    Text += "\n" + Borrowed._Describe();
  return Text;
}
