#include "RixsaxRegistry.h"

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
#include "RixsaxSession.h"

namespace
{
// Adopts the creation reference: the caller's holder is the only owner.
template <class Handler, class... Args>
MabIRixSAXHandler_var Make(MabRixSAXHandlerBase& iParent, Args&&... iArgs)
{
  return MabIRixSAXHandler_var::Adopt(new Handler(iParent, std::forward<Args>(iArgs)...));
}

template <class Handler>
RixsaxHandlerFactory ParentOnly()
{
  return [](MabRixSAXHandlerBase& iParent, RixsaxSession&) { return Make<Handler>(iParent); };
}

// One format, or a format per attribute name.
MabIRixSAXHandler_var MakeAttribute(MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession)
{
  if (ioSession.HasFormatMap())
    return Make<MabRixSAXHandlerAttribute>(iParent, ioSession.FormatMap());
  return Make<MabRixSAXHandlerAttribute>(iParent, ioSession.Format());
}

// Key/value mode when the command line named both elements.
MabIRixSAXHandler_var MakeXMLStringMap(MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession)
{
  if (ioSession.Options()._KeyValue)
    return Make<MabRixSAXHandlerXMLStringMap>(iParent, ioSession._Key, ioSession._Value);
  return Make<MabRixSAXHandlerXMLStringMap>(iParent);
}

// The response is lent only when the command line gave one.
MabIRixSAXHandler_var MakeObjectDetails(MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession)
{
  MabRixSAXHandlerObjectDetailsList* pHandler = new MabRixSAXHandlerObjectDetailsList(iParent, ioSession.CADContext());
  MabIRixSAXHandler_var spHandler = MabIRixSAXHandler_var::Adopt(pHandler);
  if (MabRixObjectDetailsResponse* pResponse = ioSession.ObjectDetailsResponse())
    pHandler->SetObjDetailsResponsePtr(pResponse);
  return spHandler;
}
}  // namespace

const std::vector<RixsaxHandlerEntry>& RixsaxHandlers()
{
  static const std::vector<RixsaxHandlerEntry> Entries = {
      {"failure", "MabRixSAXHandlerFailure", "a failure element into the failure response", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerFailure>()},
      {"string", "MabRixSAXHandlerString", "the text of one element as a string", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerString>()},
      {"boolean", "MabRixSAXHandlerBoolean", "the text of one element as a truth value (yes or true)", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerBoolean>()},
      {"string-list", "MabRixSAXHandlerStringList", "one element's text cut into a list at --list-sep", RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerStringList>(iParent, ioSession._ListSeparator);
       }},
      {"string-map", "MabRixSAXHandlerStringMap", "one element's text cut into a map at --first-sep and --second-sep",
       RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerStringMap>(iParent, ioSession._FirstSeparator, ioSession._SecondSeparator);
       }},
      {"string-list-map", "MabRixSAXHandlerStringListMap",
       "one element's text cut into a map of lists at --first-sep, --second-sep and --list-sep", RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerStringListMap>(iParent, ioSession._FirstSeparator, ioSession._SecondSeparator,
                                                    ioSession._ListSeparator);
       }},
      {"xml-string-list", "MabRixSAXHandlerXMLStringList", "the texts of the --item elements as a list",
       RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerXMLStringList>(iParent, ioSession._Item);
       }},
      {"xml-string-map", "MabRixSAXHandlerXMLStringMap", "attribute elements (or --key/--value element pairs) as a map",
       RixsaxNoContext, MakeXMLStringMap},
      {"xml-string-list-map", "MabRixSAXHandlerXMLStringListMap",
       "attribute elements as a map of lists cut at --list-sep", RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerXMLStringListMap>(iParent, ioSession._ListSeparator);
       }},
      {"attribute", "MabRixSAXHandlerAttribute",
       "an attribute element (name, value) through --value-format or --format-for", RixsaxNoContext, MakeAttribute},
      {"object-attribute", "MabRixSAXHandlerObjectAttribute",
       "a cadobject element's content: element values, preview, attributes", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerObjectAttribute>()},
      {"object-list", "MabRixSAXHandlerObjectList", "cadobject elements into the TNR context", RixsaxUsesTNRContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerObjectList>(iParent, ioSession.TNRContext());
       }},
      {"relationship-list", "MabRixSAXHandlerRelationshipList", "relationship elements into the TNR context",
       RixsaxUsesTNRContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerRelationshipList>(iParent, ioSession.TNRContext());
       }},
      {"structure", "MabRixSAXHandlerStructure",
       "nested cadobject elements into relations and pointer flags of the TNR context (--root-level)",
       RixsaxUsesTNRContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerStructure>(iParent, ioSession.TNRContext(), ioSession.Options()._RootLevel);
       }},
      {"object-details", "MabRixSAXHandlerObjectDetailsList",
       "an object-details list into the CAD context (--can-resolve-uuid-conflict lends a response)",
       RixsaxUsesCADContext, MakeObjectDetails},
      {"lock-unlock", "MabRixSAXHandlerLockUnlockExObjectDetailsList",
       "a lock or unlock answer into the CAD context, with the outcome --lock-success", RixsaxUsesCADContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         const unsigned char Success = ioSession.Options()._LockSuccess ? TRUE : FALSE;
         return Make<MabRixSAXHandlerLockUnlockExObjectDetailsList>(iParent, ioSession.CADContext(), Success);
       }},
      {"overwrite-file-list", "MabRixSAXHandlerOverwriteFileList", "filedetails elements into a map of busid to file",
       RixsaxNoContext, ParentOnly<MabRixSAXHandlerOverwriteFileList>()},
      {"collection-list", "MabRixSAXHandlerCollectionListQueryResult",
       "collection rows into a map of name to description", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerCollectionListQueryResult>()},
      {"custom-query", "MabRixSAXHandlerCustomQueryResult",
       "custom query rows into objects, revisions and versions of the result's own TNR context", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerCustomQueryResult>()},
      {"saved-query", "MabRixSAXHandlerSavedQueryResult", "a saved query's name, description and criteria",
       RixsaxNoContext, ParentOnly<MabRixSAXHandlerSavedQueryResult>()},
      {"template-list", "MabRixSAXHandlerTemplateListQueryResult", "template rows by OID", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerTemplateListQueryResult>()},
      {"ui-element", "MabRixSAXHandlerUIElementQueryResult",
       "user-interface element rows of the kind --element-kind, with their default keys", RixsaxNoContext,
       [](MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession) {
         return Make<MabRixSAXHandlerUIElementQueryResult>(iParent, ioSession._ElementKind);
       }},
      {"workspace-list", "MabRixSAXHandlerWorkspaceListQueryResult", "workspace rows by OID, and OIDs by name",
       RixsaxNoContext, ParentOnly<MabRixSAXHandlerWorkspaceListQueryResult>()},
      {"vault-list", "MabRixSAXHandlerWorkspaceVaultListQueryResult",
       "workspace-vault rows by OID, and the OIDs in order", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerWorkspaceVaultListQueryResult>()},
  };
  return Entries;
}

const RixsaxHandlerEntry* RixsaxFindHandler(const std::string& iName)
{
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    if (iName == Entry._Name)
      return &Entry;
  return nullptr;
}
