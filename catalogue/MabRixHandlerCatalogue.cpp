#include "MabRixHandlerCatalogue.h"

#include <utility>

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

// The factories ask for their options one statement at a time: the tests
// draw options from bytes in the order they are asked for.
namespace
{
template <class Handler, class... Arguments>
MabIRixSAXHandler_var Make(MabRixSAXHandlerBase& iParent, Arguments&&... iArguments)
{
  return MabIRixSAXHandler_var::Adopt(new Handler(iParent, std::forward<Arguments>(iArguments)...));
}

// A handler built from its parent alone.
template <class Handler>
MabIRixSAXHandler_var MakePlain(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions&)
{
  return Make<Handler>(iParent);
}

MabIRixSAXHandler_var MakeStringList(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerStringList>(iParent, ioOptions.ListSeparator());
}

MabIRixSAXHandler_var MakeStringMap(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  const KelUnicodeString First = ioOptions.FirstSeparator();
  const KelUnicodeString Second = ioOptions.SecondSeparator();
  return Make<MabRixSAXHandlerStringMap>(iParent, First, Second);
}

MabIRixSAXHandler_var MakeStringListMap(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  const KelUnicodeString First = ioOptions.FirstSeparator();
  const KelUnicodeString Second = ioOptions.SecondSeparator();
  const KelUnicodeString List = ioOptions.ListSeparator();
  return Make<MabRixSAXHandlerStringListMap>(iParent, First, Second, List);
}

MabIRixSAXHandler_var MakeXMLStringList(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerXMLStringList>(iParent, ioOptions.ItemElement());
}

// Attribute elements, or key/value element pairs when the options name them.
MabIRixSAXHandler_var MakeXMLStringMap(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  if (!ioOptions.KeyValueElements())
    return Make<MabRixSAXHandlerXMLStringMap>(iParent);
  const KelUnicodeString Key = ioOptions.KeyElement();
  const KelUnicodeString Value = ioOptions.ValueElement();
  return Make<MabRixSAXHandlerXMLStringMap>(iParent, Key, Value);
}

MabIRixSAXHandler_var MakeXMLStringListMap(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerXMLStringListMap>(iParent, ioOptions.ListSeparator());
}

// A format per attribute name, or one format.
MabIRixSAXHandler_var MakeAttribute(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  if (KelBaseUnknown_varKelUnicodeStringDico* pFormatMap = ioOptions.FormatMap())
    return Make<MabRixSAXHandlerAttribute>(iParent, *pFormatMap);
  return Make<MabRixSAXHandlerAttribute>(iParent, ioOptions.Format());
}

MabIRixSAXHandler_var MakeObjectList(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerObjectList>(iParent, ioOptions.TNRContext());
}

MabIRixSAXHandler_var MakeRelationshipList(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerRelationshipList>(iParent, ioOptions.TNRContext());
}

MabIRixSAXHandler_var MakeStructure(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  const int RootLevel = ioOptions.RootLevel();
  return Make<MabRixSAXHandlerStructure>(iParent, ioOptions.TNRContext(), RootLevel);
}

// The response is lent only when the options give one.
MabIRixSAXHandler_var MakeObjectDetails(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  auto* pHandler = new MabRixSAXHandlerObjectDetailsList(iParent, ioOptions.CADContext());
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(pHandler);
  if (MabRixObjectDetailsResponse* pResponse = ioOptions.ObjectDetailsResponse())
    pHandler->SetObjDetailsResponsePtr(pResponse);
  return spHandler;
}

MabIRixSAXHandler_var MakeLockUnlock(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  const unsigned char Success = ioOptions.LockSuccess();
  return Make<MabRixSAXHandlerLockUnlockExObjectDetailsList>(iParent, ioOptions.CADContext(), Success);
}

MabIRixSAXHandler_var MakeUIElement(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions)
{
  return Make<MabRixSAXHandlerUIElementQueryResult>(iParent, ioOptions.ElementKind());
}

using Context = MabRixWrittenContext;

// One entry per handler; a new handler is one more entry here.
constexpr MabRixCatalogueEntry Entries[] = {
    {"failure", "MabRixSAXHandlerFailure", "a failure element into the failure response", 0, Context::None,
     &MakePlain<MabRixSAXHandlerFailure>},
    {"string", "MabRixSAXHandlerString", "the text of one element as a string", 0, Context::None,
     &MakePlain<MabRixSAXHandlerString>},
    {"boolean", "MabRixSAXHandlerBoolean", "the text of one element as a truth value (yes or true)", 0, Context::None,
     &MakePlain<MabRixSAXHandlerBoolean>},
    {"string-list", "MabRixSAXHandlerStringList", "one element's text cut into a list at --list-sep",
     MabRixListSeparatorOption, Context::None, &MakeStringList},
    {"string-map", "MabRixSAXHandlerStringMap", "one element's text cut into a map at --first-sep and --second-sep",
     MabRixFirstSeparatorOption | MabRixSecondSeparatorOption, Context::None, &MakeStringMap},
    {"string-list-map", "MabRixSAXHandlerStringListMap",
     "one element's text cut into a map of lists at --first-sep, --second-sep and --list-sep",
     MabRixFirstSeparatorOption | MabRixSecondSeparatorOption | MabRixListSeparatorOption, Context::None,
     &MakeStringListMap},
    {"xml-string-list", "MabRixSAXHandlerXMLStringList", "the texts of the --item elements as a list",
     MabRixItemElementOption, Context::None, &MakeXMLStringList},
    {"xml-string-map", "MabRixSAXHandlerXMLStringMap", "attribute elements (or --key/--value element pairs) as a map",
     MabRixKeyValueElementsOption, Context::None, &MakeXMLStringMap},
    {"xml-string-list-map", "MabRixSAXHandlerXMLStringListMap",
     "attribute elements as a map of lists cut at --list-sep", MabRixListSeparatorOption, Context::None,
     &MakeXMLStringListMap},
    {"attribute", "MabRixSAXHandlerAttribute",
     "an attribute element (name, value) through --value-format or --format-for",
     MabRixValueFormatOption | MabRixFormatMapOption, Context::None, &MakeAttribute},
    {"object-attribute", "MabRixSAXHandlerObjectAttribute",
     "a cadobject element's content: element values, preview, attributes", 0, Context::None,
     &MakePlain<MabRixSAXHandlerObjectAttribute>},
    {"object-list", "MabRixSAXHandlerObjectList", "cadobject elements into the TNR context", 0, Context::TNR,
     &MakeObjectList},
    {"relationship-list", "MabRixSAXHandlerRelationshipList", "relationship elements into the TNR context", 0,
     Context::TNR, &MakeRelationshipList},
    {"structure", "MabRixSAXHandlerStructure",
     "nested cadobject elements into relations and pointer flags of the TNR context (--root-level)",
     MabRixRootLevelOption, Context::TNR, &MakeStructure},
    {"object-details", "MabRixSAXHandlerObjectDetailsList",
     "an object-details list into the CAD context (--can-resolve-uuid-conflict lends a response)",
     MabRixObjectDetailsResponseOption, Context::CAD, &MakeObjectDetails},
    {"lock-unlock", "MabRixSAXHandlerLockUnlockExObjectDetailsList",
     "a lock or unlock answer into the CAD context, with the outcome --lock-success", MabRixLockSuccessOption,
     Context::CAD, &MakeLockUnlock},
    {"overwrite-file-list", "MabRixSAXHandlerOverwriteFileList", "filedetails elements into a map of busid to file", 0,
     Context::None, &MakePlain<MabRixSAXHandlerOverwriteFileList>},
    {"collection-list", "MabRixSAXHandlerCollectionListQueryResult",
     "collection rows into a map of name to description", 0, Context::None,
     &MakePlain<MabRixSAXHandlerCollectionListQueryResult>},
    {"custom-query", "MabRixSAXHandlerCustomQueryResult",
     "custom query rows into objects, revisions and versions of the result's own TNR context", 0, Context::None,
     &MakePlain<MabRixSAXHandlerCustomQueryResult>},
    {"saved-query", "MabRixSAXHandlerSavedQueryResult", "a saved query's name, description and criteria", 0,
     Context::None, &MakePlain<MabRixSAXHandlerSavedQueryResult>},
    {"template-list", "MabRixSAXHandlerTemplateListQueryResult", "template rows by OID", 0, Context::None,
     &MakePlain<MabRixSAXHandlerTemplateListQueryResult>},
    {"ui-element", "MabRixSAXHandlerUIElementQueryResult",
     "user-interface element rows of the kind --element-kind, with their default keys", MabRixElementKindOption,
     Context::None, &MakeUIElement},
    {"workspace-list", "MabRixSAXHandlerWorkspaceListQueryResult", "workspace rows by OID, and OIDs by name", 0,
     Context::None, &MakePlain<MabRixSAXHandlerWorkspaceListQueryResult>},
    {"vault-list", "MabRixSAXHandlerWorkspaceVaultListQueryResult",
     "workspace-vault rows by OID, and the OIDs in order", 0, Context::None,
     &MakePlain<MabRixSAXHandlerWorkspaceVaultListQueryResult>},
};
}  // namespace

std::span<const MabRixCatalogueEntry> MabRixHandlerCatalogue() { return Entries; }

const MabRixCatalogueEntry* MabRixFindCatalogueEntry(std::string_view iName)
{
  for (const MabRixCatalogueEntry& Entry : Entries)
    if (iName == Entry._Name)
      return &Entry;
  return nullptr;
}

const MabRixCatalogueEntry* MabRixFindCatalogueClass(std::string_view iClassName)
{
  for (const MabRixCatalogueEntry& Entry : Entries)
    if (iClassName == Entry._ClassName)
      return &Entry;
  return nullptr;
}
