#include "MabRixHandlerTable.h"

#include <utility>

#include "MabERixMajorObject.h"
#include "MabERixObject.h"
#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixBooleanValueFormat.h"
#include "MabRixCADObjectContext.h"
#include "MabRixCustomQueryResultValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerCollectionListQueryResult.h"
#include "MabRixSAXHandlerCustomQueryResult.h"
#include "MabRixSAXHandlerFailure.h"
#include "MabRixSAXHandlerLockUnlockExObjectDetailsList.h"
#include "MabRixSAXHandlerObjectAttribute.h"
#include "MabRixSAXHandlerObjectDetailsList.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixSAXHandlerOverwriteFileList.h"
#include "MabRixSAXHandlerRelationshipList.h"
#include "MabRixSAXHandlerSavedQueryResult.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixSAXHandlerStringList.h"
#include "MabRixSAXHandlerStringListMap.h"
#include "MabRixSAXHandlerStringMap.h"
#include "MabRixSAXHandlerStructure.h"
#include "MabRixSAXHandlerTemplateListQueryResult.h"
#include "MabRixSAXHandlerUIElementQueryResult.h"
#include "MabRixSAXHandlerWorkspaceListQueryResult.h"
#include "MabRixSAXHandlerWorkspaceVaultListQueryResult.h"
#include "MabRixSAXHandlerXMLStringList.h"
#include "MabRixSAXHandlerXMLStringListMap.h"
#include "MabRixSAXHandlerXMLStringMap.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListMapValueFormat.h"
#include "MabRixStringListValue.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringMapValueFormat.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"

KelUnicodeString MabRixOptionBytes::Separator()
{
  static const char* const Separators[] = {",", ";", "|", "", " ", "::", "=", "\n", "ab", "\xC3\xA9"};
  return KelUnicodeString(Separators[Byte() % (sizeof Separators / sizeof Separators[0])]);
}

namespace
{
template <class Handler, class... Arguments>
MabIRixSAXHandler_var Make(MabRixSAXHandlerBase& iParent, Arguments&&... iArguments)
{
  return MabIRixSAXHandler_var::Adopt(new Handler(iParent, std::forward<Arguments>(iArguments)...));
}

// A handler built from its parent alone.
template <class Handler>
MabRixHandlerEntry Plain(const char* iName)
{
  return {iName,
          [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes&, MabRixBorrowed&) { return Make<Handler>(iParent); }};
}

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

std::string ObjectNames(const MabRixObjectContext& iContext)
{
  std::string Names;
  for (const MabERixObject_var& spObject : iContext.GetObjects())
    Names += " " + spObject->GetKeyName().ToUtf8();
  for (const MabERixMajorObject_var& spMajor : iContext.GetMajorObjects())
    Names += " @" + spMajor->GetKeyRevision().ToUtf8();
  return Names;
}

// What an object context holds, for comparisons.
std::string DescribeContext(const MabRixObjectContext& iContext)
{
  return "context " + std::to_string(iContext.GetObjects().size()) + " objects, " +
         std::to_string(iContext.GetMajorObjects().size()) + " major, " +
         std::to_string(iContext.GetMinorObjects().size()) + " minor, " +
         std::to_string(iContext.GetRelationships().size()) + " relationships, " +
         std::to_string(iContext.GetRelations().size()) + " relations" + ObjectNames(iContext);
}

// A CAD object context lent to the handler, through the pointer it takes by
// reference.
MabRixCADObjectContext*& CADContext(MabRixBorrowed& ioBorrowed)
{
  MabRixCADObjectContext& Context = ioBorrowed.Adopt(new MabRixCADObjectContext());
  ioBorrowed._Describe = [&Context] { return DescribeContext(Context); };
  return ioBorrowed.Own(new MabRixCADObjectContext*(&Context));
}

// A type/name/revision object context lent the same way.
MabRixTNRObjectContext*& TNRContext(MabRixBorrowed& ioBorrowed)
{
  MabRixTNRObjectContext& Context = ioBorrowed.Adopt(new MabRixTNRObjectContext());
  ioBorrowed._Describe = [&Context] { return DescribeContext(Context); };
  return ioBorrowed.Own(new MabRixTNRObjectContext*(&Context));
}

// New entries go at the end: the fuzz corpus names handlers by position.
std::vector<MabRixHandlerEntry> BuildTable()
{
  std::vector<MabRixHandlerEntry> Table;
  Table.push_back(Plain<MabRixSAXHandlerString>("string"));
  Table.push_back(Plain<MabRixSAXHandlerBoolean>("boolean"));
  Table.push_back({"string-list", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     return Make<MabRixSAXHandlerStringList>(iParent, ioOptions.Separator());
                   }});
  Table.push_back({"string-map", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     const KelUnicodeString First = ioOptions.Separator();
                     return Make<MabRixSAXHandlerStringMap>(iParent, First, ioOptions.Separator());
                   }});
  Table.push_back({"string-list-map", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     const KelUnicodeString First = ioOptions.Separator();
                     const KelUnicodeString Second = ioOptions.Separator();
                     return Make<MabRixSAXHandlerStringListMap>(iParent, First, Second, ioOptions.Separator());
                   }});
  Table.push_back(
      {"attribute", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed& ioBorrowed) {
         if (ioOptions.Flag())
           return Make<MabRixSAXHandlerAttribute>(iParent, ChooseFormatMap(ioOptions, ioBorrowed));
         return Make<MabRixSAXHandlerAttribute>(iParent, ChooseFormat(ioOptions, ioBorrowed));
       }});
  Table.push_back(Plain<MabRixSAXHandlerCollectionListQueryResult>("collection-list"));
  Table.push_back(Plain<MabRixSAXHandlerOverwriteFileList>("overwrite-file-list"));
  Table.push_back(Plain<MabRixSAXHandlerTemplateListQueryResult>("template-list"));
  Table.push_back(Plain<MabRixSAXHandlerWorkspaceListQueryResult>("workspace-list"));
  Table.push_back(Plain<MabRixSAXHandlerWorkspaceVaultListQueryResult>("vault-list"));
  Table.push_back({"xml-string-list", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     return Make<MabRixSAXHandlerXMLStringList>(iParent, ElementName(ioOptions));
                   }});
  Table.push_back({"xml-string-map", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     if (ioOptions.Flag())
                       return Make<MabRixSAXHandlerXMLStringMap>(iParent);
                     const KelUnicodeString Key = ElementName(ioOptions);
                     return Make<MabRixSAXHandlerXMLStringMap>(iParent, Key, ElementName(ioOptions));
                   }});
  Table.push_back(
      {"xml-string-list-map", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
         return Make<MabRixSAXHandlerXMLStringListMap>(iParent, ioOptions.Separator());
       }});
  Table.push_back(Plain<MabRixSAXHandlerFailure>("failure"));
  Table.push_back(Plain<MabRixSAXHandlerSavedQueryResult>("saved-query"));
  Table.push_back({"ui-element", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed&) {
                     return Make<MabRixSAXHandlerUIElementQueryResult>(iParent, ElementName(ioOptions));
                   }});
  Table.push_back({"object-details", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes&, MabRixBorrowed& ioBorrowed) {
                     MabRixCADObjectContext*& pContext = CADContext(ioBorrowed);
                     return Make<MabRixSAXHandlerObjectDetailsList>(iParent, pContext);
                   }});
  Table.push_back(Plain<MabRixSAXHandlerObjectAttribute>("object-attribute"));
  Table.push_back({"object-list", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes&, MabRixBorrowed& ioBorrowed) {
                     MabRixTNRObjectContext*& pContext = TNRContext(ioBorrowed);
                     return Make<MabRixSAXHandlerObjectList>(iParent, pContext);
                   }});
  Table.push_back(
      {"relationship-list", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes&, MabRixBorrowed& ioBorrowed) {
         MabRixTNRObjectContext*& pContext = TNRContext(ioBorrowed);
         return Make<MabRixSAXHandlerRelationshipList>(iParent, pContext);
       }});
  Table.push_back(
      {"structure", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed& ioBorrowed) {
         const int RootLevel = ioOptions.Byte() % 4 - 1;
         MabRixTNRObjectContext*& pContext = TNRContext(ioBorrowed);
         return Make<MabRixSAXHandlerStructure>(iParent, pContext, RootLevel);
       }});
  // The outcome is TRUE unless the options say otherwise, as the command
  // layer's default.
  Table.push_back(
      {"lock-unlock", [](MabRixSAXHandlerBase& iParent, MabRixOptionBytes& ioOptions, MabRixBorrowed& ioBorrowed) {
         const unsigned char LockUnlockSuccess = ioOptions.Flag() ? FALSE : TRUE;
         MabRixCADObjectContext*& pContext = CADContext(ioBorrowed);
         return Make<MabRixSAXHandlerLockUnlockExObjectDetailsList>(iParent, pContext, LockUnlockSuccess);
       }});
  // Its objects go to the context its value carries, not to a borrowed one.
  Table.push_back(Plain<MabRixSAXHandlerCustomQueryResult>("custom-query"));
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

std::string MabRixDescribeValue(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return "null";
  const std::string Class = iValue->GetImpl() ? iValue->GetImpl()->IsA() : "no implementation";
  std::string Text = Class;
  if (const MabRixStringValue* pString = MabRixValueAs<MabRixStringValue>(iValue))
    Text += " " + Quote(pString->_Value);
  else if (const MabRixBooleanValue* pBoolean = MabRixValueAs<MabRixBooleanValue>(iValue))
    Text += pBoolean->_Value ? " true" : " false";
  else if (const MabRixStringListValue* pList = MabRixValueAs<MabRixStringListValue>(iValue))
    for (int i = 0; i < static_cast<int>(pList->_Value.Size()); ++i)
      Text += " " + Quote(pList->_Value[i]);
  else if (const MabRixStringMapValue* pMap = MabRixValueAs<MabRixStringMapValue>(iValue))
    for (auto It = pMap->_Value.begin(); It != pMap->_Value.end(); ++It)
      Text += " " + Quote(It.GetKey()) + "=" + Quote(*It);
  else if (const MabRixStringListMapValue* pListMap = MabRixValueAs<MabRixStringListMapValue>(iValue))
    for (auto It = pListMap->_Value.begin(); It != pListMap->_Value.end(); ++It)
    {
      Text += " " + Quote(It.GetKey()) + "=[";
      for (int i = 0; i < static_cast<int>((*It).Size()); ++i)
        Text += (i ? "," : "") + Quote((*It)[i]);
      Text += "]";
    }
  else if (const MabRixAttributeValue* pAttribute = MabRixValueAs<MabRixAttributeValue>(iValue))
    Text += " " + Quote(pAttribute->_Name) + " (" + MabRixDescribeValue(pAttribute->_Value) + ")";
  else if (const MabRixCustomQueryResultValue* pQuery = MabRixValueAs<MabRixCustomQueryResultValue>(iValue))
    Text += pQuery->GetObjectContext() ? " " + DescribeContext(*pQuery->GetObjectContext()) : " no context";
  return Text;
}

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
