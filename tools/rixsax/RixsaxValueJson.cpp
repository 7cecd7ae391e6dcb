#include "RixsaxValueJson.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "MabIRixFailureResponse.h"
#include "MabRixAttributeValue.h"
#include "MabRixBooleanValue.h"
#include "MabRixCustomQueryResultValue.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixSavedQueryRecord.h"
#include "MabRixSavedQueryResultValue.h"
#include "MabRixStringListMapValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringMapValue.h"
#include "MabRixStringValue.h"
#include "MabRixTemplateQueryResultValue.h"
#include "MabRixUIElementQueryResultValue.h"
#include "MabRixWorkspaceListQueryResultValue.h"
#include "MabRixWorkspaceVaultListQueryResultValue.h"
#include "RixsaxContextJson.h"

namespace
{
// How one value class is written and counted.
struct ValueWriter
{
  std::string_view _ClassName;
  std::function<void(const KelBaseUnknown& iValue, RixsaxJson& oJson)> _Write;
  std::function<std::size_t(const KelBaseUnknown& iValue)> _Count;
};

template <class C, class Write, class Count>
ValueWriter Writer(std::string_view iClassName, Write iWrite, Count iCount)
{
  return {iClassName,
          [iWrite](const KelBaseUnknown& iValue, RixsaxJson& oJson) { iWrite(dynamic_cast<const C&>(iValue), oJson); },
          [iCount](const KelBaseUnknown& iValue) { return iCount(dynamic_cast<const C&>(iValue)); }};
}

RixsaxJson TemplateJson(const MabRixTemplateDetails& iTemplate)
{
  return {{"name", RixsaxToJson(iTemplate._Name)},         {"oid", RixsaxToJson(iTemplate._OID)},
          {"type", RixsaxToJson(iTemplate._Type)},         {"revision", RixsaxToJson(iTemplate._Revision)},
          {"fileName", RixsaxToJson(iTemplate._FileName)}, {"format", RixsaxToJson(iTemplate._Format)}};
}

RixsaxJson WorkspaceJson(const MabRixWorkspaceDetails& iWorkspace)
{
  return {{"rowId", RixsaxToJson(iWorkspace._RowID)},
          {"name", RixsaxToJson(iWorkspace._Name)},
          {"oid", RixsaxToJson(iWorkspace._OID)},
          {"type", RixsaxToJson(iWorkspace._Type)},
          {"revision", RixsaxToJson(iWorkspace._Revision)}};
}

RixsaxJson VaultJson(const MabRixVaultDetails& iVault)
{
  return {{"rowId", RixsaxToJson(iVault._RowID)}, {"name", RixsaxToJson(iVault._Name)},
          {"oid", RixsaxToJson(iVault._OID)},     {"parentId", RixsaxToJson(iVault._ParentID)},
          {"type", RixsaxToJson(iVault._Type)},   {"revision", RixsaxToJson(iVault._Revision)}};
}

RixsaxJson UIElementJson(const MabRixUIElementID& iElement)
{
  return {{"kind", RixsaxToJson(iElement._Kind)},
          {"name", RixsaxToJson(iElement._Name)},
          {"system", iElement._IsSystem != 0}};
}

template <class T>
RixsaxJson OptionalJson(const std::optional<T>& iValue)
{
  return iValue ? RixsaxToJson(*iValue) : RixsaxJson(nullptr);
}

RixsaxJson PropertiesJson(const std::vector<MabRixSavedQueryRecord::Property>& iProperties)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const MabRixSavedQueryRecord::Property& Property : iProperties)
    Array.push_back({{"name", RixsaxToJson(Property._Name)}, {"value", RixsaxToJson(Property._Value)}});
  return Array;
}

// The host's record; another record class is shown as null.
RixsaxJson SavedQueryRecordJson(const MabIRixSavedQueryRecord* ipRecord)
{
  const MabRixSavedQueryRecord* pRecord = KelImplCast<const MabRixSavedQueryRecord>(ipRecord);
  if (!pRecord)
    return nullptr;
  return {{"name", OptionalJson(pRecord->_Name)},
          {"description", OptionalJson(pRecord->_Description)},
          {"criteriaName", OptionalJson(pRecord->_CriteriaName)},
          {"criteriaRevision", OptionalJson(pRecord->_CriteriaRevision)},
          {"criteriaOwner", OptionalJson(pRecord->_CriteriaOwner)},
          {"criteriaTypes", OptionalJson(pRecord->_CriteriaTypes)},
          {"criteriaVaults", OptionalJson(pRecord->_CriteriaVaults)},
          {"basicProperties", PropertiesJson(pRecord->_BasicProperties)},
          {"properties", PropertiesJson(pRecord->_Properties)}};
}

template <class C>
std::size_t NoEntries(const C&)
{
  return 0;
}

const std::vector<ValueWriter>& Writers()
{
  static const std::vector<ValueWriter> Table = {
      Writer<MabRixStringValue>(
          "MabRixStringValue",
          [](const MabRixStringValue& iValue, RixsaxJson& oJson) { oJson["string"] = RixsaxToJson(iValue._Value); },
          NoEntries<MabRixStringValue>),
      Writer<MabRixBooleanValue>(
          "MabRixBooleanValue",
          [](const MabRixBooleanValue& iValue, RixsaxJson& oJson) { oJson["boolean"] = iValue._Value != 0; },
          NoEntries<MabRixBooleanValue>),
      Writer<MabRixStringListValue>(
          "MabRixStringListValue",
          [](const MabRixStringListValue& iValue, RixsaxJson& oJson) { oJson["list"] = RixsaxToJson(iValue._Value); },
          [](const MabRixStringListValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixStringMapValue>(
          "MabRixStringMapValue",
          [](const MabRixStringMapValue& iValue, RixsaxJson& oJson) { oJson["map"] = RixsaxToJson(iValue._Value); },
          [](const MabRixStringMapValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixStringListMapValue>(
          "MabRixStringListMapValue",
          [](const MabRixStringListMapValue& iValue, RixsaxJson& oJson) { oJson["map"] = RixsaxToJson(iValue._Value); },
          [](const MabRixStringListMapValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixAttributeValue>(
          "MabRixAttributeValue",
          [](const MabRixAttributeValue& iValue, RixsaxJson& oJson) {
            oJson["name"] = RixsaxToJson(iValue._Name);
            oJson["enforced"] = iValue._Enforced != 0;
            oJson["value"] = RixsaxValueJson(iValue._Value);
          },
          [](const MabRixAttributeValue& iValue) { return RixsaxValueEntryCount(iValue._Value); }),
      Writer<MabRixObjectAttributeValue>(
          "MabRixObjectAttributeValue",
          [](const MabRixObjectAttributeValue& iValue, RixsaxJson& oJson) {
            oJson["previewPath"] = RixsaxToJson(iValue._PreviewPath.GetString());
            oJson["elementValues"] = RixsaxToJson(iValue._ElementValues);
            oJson["attributes"] = RixsaxToJson(iValue._Attributes);
          },
          [](const MabRixObjectAttributeValue& iValue) {
            return static_cast<std::size_t>(iValue._ElementValues.Size() + iValue._Attributes.Size());
          }),
      // Its rows are objects of its own context: the summary counts them
      // with the objects, not as entries.
      Writer<MabRixCustomQueryResultValue>(
          "MabRixCustomQueryResultValue",
          [](const MabRixCustomQueryResultValue& iValue, RixsaxJson& oJson) {
            const MabRixTNRObjectContext* pContext = iValue.GetObjectContext();
            oJson["context"] = pContext ? RixsaxTNRContextJson(*pContext) : RixsaxJson(nullptr);
          },
          NoEntries<MabRixCustomQueryResultValue>),
      Writer<MabRixTemplateQueryResultValue>(
          "MabRixTemplateQueryResultValue",
          [](const MabRixTemplateQueryResultValue& iValue, RixsaxJson& oJson) {
            oJson["templates"] = RixsaxToJson(iValue._Value, TemplateJson);
          },
          [](const MabRixTemplateQueryResultValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixWorkspaceListQueryResultValue>(
          "MabRixWorkspaceListQueryResultValue",
          [](const MabRixWorkspaceListQueryResultValue& iValue, RixsaxJson& oJson) {
            oJson["workspaces"] = RixsaxToJson(iValue._WorkspaceDetails, WorkspaceJson);
            oJson["names"] = RixsaxToJson(iValue._WorkspaceOIDs);
          },
          [](const MabRixWorkspaceListQueryResultValue& iValue) {
            return static_cast<std::size_t>(iValue._WorkspaceDetails.Size());
          }),
      Writer<MabRixWorkspaceVaultListQueryResultValue>(
          "MabRixWorkspaceVaultListQueryResultValue",
          [](const MabRixWorkspaceVaultListQueryResultValue& iValue, RixsaxJson& oJson) {
            oJson["vaults"] = RixsaxToJson(iValue._VaultDetails, VaultJson);
            oJson["oids"] = RixsaxToJson(iValue._VaultOIDs);
          },
          [](const MabRixWorkspaceVaultListQueryResultValue& iValue) {
            return static_cast<std::size_t>(iValue._VaultDetails.Size());
          }),
      Writer<MabRixSavedQueryResultValue>(
          "MabRixSavedQueryResultValue",
          [](const MabRixSavedQueryResultValue& iValue, RixsaxJson& oJson) {
            oJson["id"] = {{"name", RixsaxToJson(iValue._SavedQueryID._Name)},
                           {"description", RixsaxToJson(iValue._SavedQueryID._Description)}};
            oJson["record"] = SavedQueryRecordJson(iValue.GetQueryRecord());
          },
          [](const MabRixSavedQueryResultValue& iValue) {
            const MabRixSavedQueryRecord* pRecord = KelImplCast<const MabRixSavedQueryRecord>(iValue.GetQueryRecord());
            return pRecord ? pRecord->_BasicProperties.size() + pRecord->_Properties.size() : 0;
          }),
      Writer<MabRixUIElementQueryResultValue>(
          "MabRixUIElementQueryResultValue",
          [](const MabRixUIElementQueryResultValue& iValue, RixsaxJson& oJson) {
            RixsaxJson Elements = RixsaxJson::array();
            for (const MabRixUIElementID& Element : iValue._UIElementIDs)
              Elements.push_back(UIElementJson(Element));
            oJson["elements"] = std::move(Elements);
            oJson["defaults"] = RixsaxToJson(iValue._DefaultUIElementIDs, UIElementJson);
          },
          [](const MabRixUIElementQueryResultValue& iValue) {
            return static_cast<std::size_t>(iValue._UIElementIDs.Size());
          }),
  };
  return Table;
}

// The writer of a value's own class (not of a base: the class name is what
// handlers go by too).
const ValueWriter* FindWriter(const KelBaseUnknown& iValue)
{
  const std::string_view ClassName = iValue.IsA();
  for (const ValueWriter& Entry : Writers())
    if (Entry._ClassName == ClassName)
      return &Entry;
  return nullptr;
}
}  // namespace

RixsaxJson RixsaxValueJson(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return nullptr;
  const KelBaseUnknown& Value = *iValue->GetImpl();
  RixsaxJson Json = RixsaxJson::object();
  Json["class"] = Value.IsA();
  if (const ValueWriter* pWriter = FindWriter(Value))
    pWriter->_Write(Value, Json);
  return Json;
}

std::size_t RixsaxValueEntryCount(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return 0;
  const ValueWriter* pWriter = FindWriter(*iValue->GetImpl());
  return pWriter ? pWriter->_Count(*iValue->GetImpl()) : 0;
}

const MabRixTNRObjectContext* RixsaxValueContext(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return nullptr;
  const MabRixCustomQueryResultValue* pValue = KelImplCast<const MabRixCustomQueryResultValue>(iValue.Get());
  return pValue ? pValue->GetObjectContext() : nullptr;
}

RixsaxJson RixsaxResponseJson(const MabIRixResponse_var& iResponse)
{
  if (!iResponse)
    return nullptr;
  RixsaxJson Json = RixsaxJson::object();
  Json["class"] = iResponse->GetImpl()->IsA();
  Json["commandName"] = RixsaxToJson(iResponse->GetCommandName());
  if (const MabIRixFailureResponse_var spFailure(iResponse); !!spFailure)
  {
    Json["errorCode"] = RixsaxToJson(spFailure->GetErrorCode());
    Json["reason"] = RixsaxToJson(spFailure->GetReason());
  }
  Json["success"] = iResponse->Success() != 0;
  Json["request"] = iResponse->Request() != 0;
  return Json;
}
