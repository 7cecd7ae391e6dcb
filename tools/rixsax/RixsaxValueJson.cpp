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
#include "RixsaxJsonBasics.h"

namespace
{
// How one value class is written and counted.
struct ValueWriter
{
  std::string_view _ClassName;
  std::function<void(const KelBaseUnknown& iValue, RixsaxWriter& ioWriter)> _Write;
  std::function<std::size_t(const KelBaseUnknown& iValue)> _Count;
};

template <class C, class Write, class Count>
ValueWriter Writer(std::string_view iClassName, Write iWrite, Count iCount)
{
  return {iClassName,
          [iWrite](const KelBaseUnknown& iValue, RixsaxWriter& ioWriter) {
            iWrite(dynamic_cast<const C&>(iValue), ioWriter);
          },
          [iCount](const KelBaseUnknown& iValue) { return iCount(dynamic_cast<const C&>(iValue)); }};
}

void WriteTemplate(RixsaxWriter& ioWriter, const MabRixTemplateDetails& iTemplate)
{
  ioWriter.BeginObject();
  ioWriter.Member("name", iTemplate._Name);
  ioWriter.Member("oid", iTemplate._OID);
  ioWriter.Member("type", iTemplate._Type);
  ioWriter.Member("revision", iTemplate._Revision);
  ioWriter.Member("fileName", iTemplate._FileName);
  ioWriter.Member("format", iTemplate._Format);
  ioWriter.EndObject();
}

void WriteWorkspace(RixsaxWriter& ioWriter, const MabRixWorkspaceDetails& iWorkspace)
{
  ioWriter.BeginObject();
  ioWriter.Member("rowId", iWorkspace._RowID);
  ioWriter.Member("name", iWorkspace._Name);
  ioWriter.Member("oid", iWorkspace._OID);
  ioWriter.Member("type", iWorkspace._Type);
  ioWriter.Member("revision", iWorkspace._Revision);
  ioWriter.EndObject();
}

void WriteVault(RixsaxWriter& ioWriter, const MabRixVaultDetails& iVault)
{
  ioWriter.BeginObject();
  ioWriter.Member("rowId", iVault._RowID);
  ioWriter.Member("name", iVault._Name);
  ioWriter.Member("oid", iVault._OID);
  ioWriter.Member("parentId", iVault._ParentID);
  ioWriter.Member("type", iVault._Type);
  ioWriter.Member("revision", iVault._Revision);
  ioWriter.EndObject();
}

void WriteUIElement(RixsaxWriter& ioWriter, const MabRixUIElementID& iElement)
{
  ioWriter.BeginObject();
  ioWriter.Member("kind", iElement._Kind);
  ioWriter.Member("name", iElement._Name);
  ioWriter.MemberBool("system", iElement._IsSystem != 0);
  ioWriter.EndObject();
}

template <class T>
void WriteOptional(RixsaxWriter& ioWriter, std::string_view iKey, const std::optional<T>& iValue)
{
  ioWriter.Key(iKey);
  if (iValue)
    RixsaxWrite(ioWriter, *iValue);
  else
    ioWriter.Null();
}

void WriteProperties(RixsaxWriter& ioWriter, std::string_view iKey,
                     const std::vector<MabRixSavedQueryRecord::Property>& iProperties)
{
  ioWriter.Key(iKey);
  ioWriter.BeginArray();
  for (const MabRixSavedQueryRecord::Property& Property : iProperties)
  {
    ioWriter.BeginObject();
    ioWriter.Member("name", Property._Name);
    ioWriter.Member("value", Property._Value);
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}

// The host's record; another record class is shown as null.
void WriteSavedQueryRecord(RixsaxWriter& ioWriter, const MabIRixSavedQueryRecord* ipRecord)
{
  const MabRixSavedQueryRecord* pRecord = KelImplCast<const MabRixSavedQueryRecord>(ipRecord);
  if (!pRecord)
  {
    ioWriter.Null();
    return;
  }
  ioWriter.BeginObject();
  WriteOptional(ioWriter, "name", pRecord->_Name);
  WriteOptional(ioWriter, "description", pRecord->_Description);
  WriteOptional(ioWriter, "criteriaName", pRecord->_CriteriaName);
  WriteOptional(ioWriter, "criteriaRevision", pRecord->_CriteriaRevision);
  WriteOptional(ioWriter, "criteriaOwner", pRecord->_CriteriaOwner);
  WriteOptional(ioWriter, "criteriaTypes", pRecord->_CriteriaTypes);
  WriteOptional(ioWriter, "criteriaVaults", pRecord->_CriteriaVaults);
  WriteProperties(ioWriter, "basicProperties", pRecord->_BasicProperties);
  WriteProperties(ioWriter, "properties", pRecord->_Properties);
  ioWriter.EndObject();
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
          [](const MabRixStringValue& iValue, RixsaxWriter& ioWriter) { ioWriter.Member("string", iValue._Value); },
          NoEntries<MabRixStringValue>),
      Writer<MabRixBooleanValue>(
          "MabRixBooleanValue",
          [](const MabRixBooleanValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.MemberBool("boolean", iValue._Value != 0);
          },
          NoEntries<MabRixBooleanValue>),
      Writer<MabRixStringListValue>(
          "MabRixStringListValue",
          [](const MabRixStringListValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("list");
            RixsaxWrite(ioWriter, iValue._Value);
          },
          [](const MabRixStringListValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixStringMapValue>(
          "MabRixStringMapValue",
          [](const MabRixStringMapValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("map");
            RixsaxWrite(ioWriter, iValue._Value);
          },
          [](const MabRixStringMapValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixStringListMapValue>(
          "MabRixStringListMapValue",
          [](const MabRixStringListMapValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("map");
            RixsaxWrite(ioWriter, iValue._Value);
          },
          [](const MabRixStringListMapValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixAttributeValue>(
          "MabRixAttributeValue",
          [](const MabRixAttributeValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Member("name", iValue._Name);
            ioWriter.MemberBool("enforced", iValue._Enforced != 0);
            ioWriter.Key("value");
            RixsaxWriteValue(ioWriter, iValue._Value);
          },
          [](const MabRixAttributeValue& iValue) { return RixsaxValueEntryCount(iValue._Value); }),
      Writer<MabRixObjectAttributeValue>(
          "MabRixObjectAttributeValue",
          [](const MabRixObjectAttributeValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Member("previewPath", iValue._PreviewPath.GetString());
            ioWriter.Key("elementValues");
            RixsaxWrite(ioWriter, iValue._ElementValues);
            ioWriter.Key("attributes");
            RixsaxWrite(ioWriter, iValue._Attributes);
          },
          [](const MabRixObjectAttributeValue& iValue) {
            return static_cast<std::size_t>(iValue._ElementValues.Size() + iValue._Attributes.Size());
          }),
      // Its rows are objects of its own context: the summary counts them
      // with the objects, not as entries.
      Writer<MabRixCustomQueryResultValue>(
          "MabRixCustomQueryResultValue",
          [](const MabRixCustomQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("context");
            if (const MabRixTNRObjectContext* pContext = iValue.GetObjectContext())
              RixsaxWriteTNRContext(ioWriter, *pContext);
            else
              ioWriter.Null();
          },
          NoEntries<MabRixCustomQueryResultValue>),
      Writer<MabRixTemplateQueryResultValue>(
          "MabRixTemplateQueryResultValue",
          [](const MabRixTemplateQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("templates");
            RixsaxWrite(ioWriter, iValue._Value, WriteTemplate);
          },
          [](const MabRixTemplateQueryResultValue& iValue) { return static_cast<std::size_t>(iValue._Value.Size()); }),
      Writer<MabRixWorkspaceListQueryResultValue>(
          "MabRixWorkspaceListQueryResultValue",
          [](const MabRixWorkspaceListQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("workspaces");
            RixsaxWrite(ioWriter, iValue._WorkspaceDetails, WriteWorkspace);
            ioWriter.Key("names");
            RixsaxWrite(ioWriter, iValue._WorkspaceOIDs);
          },
          [](const MabRixWorkspaceListQueryResultValue& iValue) {
            return static_cast<std::size_t>(iValue._WorkspaceDetails.Size());
          }),
      Writer<MabRixWorkspaceVaultListQueryResultValue>(
          "MabRixWorkspaceVaultListQueryResultValue",
          [](const MabRixWorkspaceVaultListQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("vaults");
            RixsaxWrite(ioWriter, iValue._VaultDetails, WriteVault);
            ioWriter.Key("oids");
            RixsaxWrite(ioWriter, iValue._VaultOIDs);
          },
          [](const MabRixWorkspaceVaultListQueryResultValue& iValue) {
            return static_cast<std::size_t>(iValue._VaultDetails.Size());
          }),
      Writer<MabRixSavedQueryResultValue>(
          "MabRixSavedQueryResultValue",
          [](const MabRixSavedQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("id");
            ioWriter.BeginObject();
            ioWriter.Member("name", iValue._SavedQueryID._Name);
            ioWriter.Member("description", iValue._SavedQueryID._Description);
            ioWriter.EndObject();
            ioWriter.Key("record");
            WriteSavedQueryRecord(ioWriter, iValue.GetQueryRecord());
          },
          [](const MabRixSavedQueryResultValue& iValue) {
            const MabRixSavedQueryRecord* pRecord = KelImplCast<const MabRixSavedQueryRecord>(iValue.GetQueryRecord());
            return pRecord ? pRecord->_BasicProperties.size() + pRecord->_Properties.size() : 0;
          }),
      Writer<MabRixUIElementQueryResultValue>(
          "MabRixUIElementQueryResultValue",
          [](const MabRixUIElementQueryResultValue& iValue, RixsaxWriter& ioWriter) {
            ioWriter.Key("elements");
            ioWriter.BeginArray();
            for (const MabRixUIElementID& Element : iValue._UIElementIDs)
              WriteUIElement(ioWriter, Element);
            ioWriter.EndArray();
            ioWriter.Key("defaults");
            RixsaxWrite(ioWriter, iValue._DefaultUIElementIDs, WriteUIElement);
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

void RixsaxWriteValue(RixsaxWriter& ioWriter, const MabIRixValue_var& iValue)
{
  if (!iValue)
  {
    ioWriter.Null();
    return;
  }
  const KelBaseUnknown& Value = *iValue->GetImpl();
  ioWriter.BeginObject();
  ioWriter.Member("class", Value.IsA());
  if (const ValueWriter* pWriter = FindWriter(Value))
    pWriter->_Write(Value, ioWriter);
  ioWriter.EndObject();
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

void RixsaxWriteResponse(RixsaxWriter& ioWriter, const MabIRixResponse_var& iResponse)
{
  if (!iResponse)
  {
    ioWriter.Null();
    return;
  }
  ioWriter.BeginObject();
  ioWriter.Member("class", iResponse->GetImpl()->IsA());
  ioWriter.Member("commandName", iResponse->GetCommandName());
  if (const MabIRixFailureResponse_var spFailure(iResponse); !!spFailure)
  {
    ioWriter.Member("errorCode", spFailure->GetErrorCode());
    ioWriter.Member("reason", spFailure->GetReason());
  }
  ioWriter.MemberBool("success", iResponse->Success() != 0);
  ioWriter.MemberBool("request", iResponse->Request() != 0);
  ioWriter.EndObject();
}
