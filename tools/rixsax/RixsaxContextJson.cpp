#include "RixsaxContextJson.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixTNRObjectContext.h"

namespace
{
RixsaxJson DocumentIDJson(const MabRixDocumentID& iID)
{
  return {{"type", RixsaxToJson(iID.GetType())},
          {"name", RixsaxToJson(iID.GetName())},
          {"path", RixsaxToJson(iID.GetPath().GetString())}};
}

// Texts as strings, flags as booleans, lists as arrays, paths as strings.
RixsaxJson PropertyValueJson(const MabRixPropertyValue& iValue)
{
  struct Visitor
  {
    RixsaxJson operator()(const KelUnicodeString& iText) const { return RixsaxToJson(iText); }
    RixsaxJson operator()(unsigned char iFlag) const { return iFlag != 0; }
    RixsaxJson operator()(const KelUnicodeStringList& iList) const { return RixsaxToJson(iList); }
    RixsaxJson operator()(const MabRixPath& iPath) const { return RixsaxToJson(iPath.GetString()); }
    RixsaxJson operator()(const MabRixDocumentID& iID) const { return DocumentIDJson(iID); }
  };
  return std::visit(Visitor(), iValue);
}

RixsaxJson PropertiesJson(const MabERixEntity& iEntity)
{
  RixsaxJson Object = RixsaxJson::object();
  for (const MabRixProperty& Property : iEntity.GetSetProperties())
    Object[Property._Name] = PropertyValueJson(Property._Value);
  return Object;
}

// The dictionaries a handler fills directly on a minor object.
void AddMinorContent(const MabERixMinorObject& iMinor, RixsaxJson& ioJson)
{
  ioJson["properties"] = PropertiesJson(iMinor);
  ioJson["extraAttributes"] = RixsaxToJson(iMinor._ExtraAttributes);
  ioJson["elementValues"] = RixsaxToJson(iMinor._ElementValues);
}

KelUnicodeString MajorKey(const KelUnicodeString& iType, const KelUnicodeString& iName,
                          const KelUnicodeString& iRevision)
{
  return MabRixObjectID::ComposeKey({&iType, &iName, &iRevision});
}

KelUnicodeString ObjectKey(const KelUnicodeString& iType, const KelUnicodeString& iName)
{
  return MabRixObjectID::ComposeKey({&iType, &iName});
}

// The major objects of each object, in creation order.
std::unordered_map<const MabERixObject*, std::vector<const MabERixMajorObject*>> MajorsByObject(
    const MabRixObjectContext& iContext)
{
  std::unordered_map<const MabERixObject*, std::vector<const MabERixMajorObject*>> Majors;
  for (const MabERixMajorObject_var& Major : iContext.GetMajorObjects())
    Majors[Major->GetOwnerObject()].push_back(Major.Get());
  return Majors;
}

RixsaxJson TNRMinorJson(const MabERixMinorObject& iMinor)
{
  RixsaxJson Json = RixsaxJson::object();
  Json["id"] = {{"cadId", RixsaxToJson(iMinor.GetObjectID().GetID())},
                {"type", RixsaxToJson(iMinor.GetKeyType())},
                {"name", RixsaxToJson(iMinor.GetKeyName())},
                {"revision", RixsaxToJson(iMinor.GetKeyRevision())},
                {"version", RixsaxToJson(iMinor.GetKeyVersion())}};
  AddMinorContent(iMinor, Json);
  Json["pointer"] = iMinor._bPointer != 0;
  return Json;
}

RixsaxJson RelationshipsJson(const MabRixObjectContext& iContext)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const MabERixRelationship_var& Relationship : iContext.GetRelationships())
    Array.push_back({{"id", RixsaxToJson(Relationship->GetID())},
                     {"kind", RixsaxToJson(Relationship->GetKind())},
                     {"attributes", RixsaxToJson(Relationship->_Attributes)}});
  return Array;
}

RixsaxJson RelationsJson(const MabRixObjectContext& iContext)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const MabERixRelation_var& Relation : iContext.GetRelations())
    Array.push_back({{"from", RixsaxToJson(Relation->GetFromObjectID().GetID())},
                     {"id", RixsaxToJson(Relation->GetRelationshipID())},
                     {"to", RixsaxToJson(Relation->GetToObjectID().GetID())}});
  return Array;
}
}  // namespace

RixsaxJson RixsaxTNRContextJson(const MabRixTNRObjectContext& iContext)
{
  const auto Majors = MajorsByObject(iContext);
  // Minor objects by the type, name and revision of their creation.
  std::unordered_map<KelUnicodeString, std::vector<const MabERixMinorObject*>> Minors;
  for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
    Minors[MajorKey(Minor->GetKeyType(), Minor->GetKeyName(), Minor->GetKeyRevision())].push_back(Minor.Get());

  RixsaxJson Objects = RixsaxJson::array();
  std::size_t Placed = 0;
  for (const MabERixObject_var& Object : iContext.GetObjects())
  {
    RixsaxJson ObjectJson = {{"type", RixsaxToJson(Object->GetKeyType())},
                             {"name", RixsaxToJson(Object->GetKeyName())},
                             {"properties", PropertiesJson(*Object)}};
    RixsaxJson MajorArray = RixsaxJson::array();
    if (const auto Found = Majors.find(Object.Get()); Found != Majors.end())
      for (const MabERixMajorObject* pMajor : Found->second)
      {
        RixsaxJson MinorArray = RixsaxJson::array();
        const auto Versions =
            Minors.find(MajorKey(Object->GetKeyType(), Object->GetKeyName(), pMajor->GetKeyRevision()));
        if (Versions != Minors.end())
          for (const MabERixMinorObject* pMinor : Versions->second)
            MinorArray.push_back(TNRMinorJson(*pMinor));
        Placed += MinorArray.size();
        MajorArray.push_back({{"revision", RixsaxToJson(pMajor->GetKeyRevision())},
                              {"properties", PropertiesJson(*pMajor)},
                              {"minors", std::move(MinorArray)}});
      }
    ObjectJson["majors"] = std::move(MajorArray);
    Objects.push_back(std::move(ObjectJson));
  }

  RixsaxJson Json = RixsaxJson::object();
  Json["objects"] = std::move(Objects);
  // A minor object whose revision has no major object in the context is
  // shown apart rather than lost.
  if (Placed < iContext.GetMinorObjects().size())
  {
    std::unordered_set<KelUnicodeString> MajorKeys;
    for (const MabERixMajorObject_var& Major : iContext.GetMajorObjects())
    {
      const MabERixObject* pObject = Major->GetOwnerObject();
      MajorKeys.insert(MajorKey(pObject->GetKeyType(), pObject->GetKeyName(), Major->GetKeyRevision()));
    }
    RixsaxJson Unplaced = RixsaxJson::array();
    for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
      if (!MajorKeys.count(MajorKey(Minor->GetKeyType(), Minor->GetKeyName(), Minor->GetKeyRevision())))
        Unplaced.push_back(TNRMinorJson(*Minor));
    Json["minorsWithoutMajor"] = std::move(Unplaced);
  }
  Json["relationships"] = RelationshipsJson(iContext);
  Json["relations"] = RelationsJson(iContext);
  return Json;
}

RixsaxJson RixsaxCADContextJson(const MabRixCADObjectContext& iContext)
{
  const auto Majors = MajorsByObject(iContext);
  std::unordered_map<KelUnicodeString, const MabERixMinorObject*> Minors;
  for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
    Minors.emplace(ObjectKey(Minor->GetKeyType(), Minor->GetKeyName()), Minor.Get());

  RixsaxJson Objects = RixsaxJson::array();
  for (const MabERixObject_var& Object : iContext.GetObjects())
  {
    RixsaxJson ObjectJson = {{"type", RixsaxToJson(Object->GetKeyType())},
                             {"name", RixsaxToJson(Object->GetKeyName())},
                             {"properties", PropertiesJson(*Object)}};
    KelUnicodeString Current;
    ObjectJson["currentRevision"] =
        SUCCEEDED(Object->GetContextCurrentRevision(Current)) ? RixsaxToJson(Current) : RixsaxJson(nullptr);
    RixsaxJson MajorArray = RixsaxJson::array();
    if (const auto Found = Majors.find(Object.Get()); Found != Majors.end())
      for (const MabERixMajorObject* pMajor : Found->second)
        MajorArray.push_back({{"revision", pMajor->GetKeyRevision().IsEmpty() ? RixsaxJson(nullptr)
                                                                              : RixsaxToJson(pMajor->GetKeyRevision())},
                              {"properties", PropertiesJson(*pMajor)}});
    ObjectJson["majors"] = std::move(MajorArray);
    RixsaxJson MinorJson = nullptr;
    if (const auto Found = Minors.find(ObjectKey(Object->GetKeyType(), Object->GetKeyName())); Found != Minors.end())
    {
      MinorJson = RixsaxJson::object();
      AddMinorContent(*Found->second, MinorJson);
    }
    ObjectJson["minor"] = std::move(MinorJson);
    Objects.push_back(std::move(ObjectJson));
  }
  RixsaxJson Json = RixsaxJson::object();
  Json["objects"] = std::move(Objects);
  return Json;
}

RixsaxContextCounts RixsaxCountContext(const MabRixObjectContext& iContext)
{
  return {iContext.GetObjects().size(), iContext.GetMajorObjects().size(), iContext.GetMinorObjects().size(),
          iContext.GetRelationships().size(), iContext.GetRelations().size()};
}
