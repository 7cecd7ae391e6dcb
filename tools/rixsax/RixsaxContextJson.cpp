#include "RixsaxContextJson.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixTNRObjectContext.h"
#include "RixsaxJsonBasics.h"

namespace
{
void WriteDocumentID(RixsaxWriter& ioWriter, const MabRixDocumentID& iID)
{
  ioWriter.BeginObject();
  ioWriter.Member("type", iID.GetType());
  ioWriter.Member("name", iID.GetName());
  ioWriter.Member("path", iID.GetPath().GetString());
  ioWriter.EndObject();
}

// Texts as strings, flags as booleans, lists as arrays, paths as strings.
void WritePropertyValue(RixsaxWriter& ioWriter, const MabRixPropertyValue& iValue)
{
  struct Visitor
  {
    RixsaxWriter& _Writer;
    void operator()(const KelUnicodeString& iText) const { _Writer.String(iText); }
    void operator()(unsigned char iFlag) const { _Writer.Bool(iFlag != 0); }
    void operator()(const KelUnicodeStringList& iList) const { RixsaxWrite(_Writer, iList); }
    void operator()(const MabRixPath& iPath) const { _Writer.String(iPath.GetString()); }
    void operator()(const MabRixDocumentID& iID) const { WriteDocumentID(_Writer, iID); }
  };
  std::visit(Visitor{ioWriter}, iValue);
}

void WriteProperties(RixsaxWriter& ioWriter, const MabERixEntity& iEntity)
{
  ioWriter.Key("properties");
  ioWriter.BeginObject();
  for (const MabRixProperty& Property : iEntity.GetSetProperties())
  {
    ioWriter.Key(Property._Name);
    WritePropertyValue(ioWriter, Property._Value);
  }
  ioWriter.EndObject();
}

// The dictionaries a handler fills directly on a minor object.
void WriteMinorContent(RixsaxWriter& ioWriter, const MabERixMinorObject& iMinor)
{
  WriteProperties(ioWriter, iMinor);
  ioWriter.Key("extraAttributes");
  RixsaxWrite(ioWriter, iMinor._ExtraAttributes);
  ioWriter.Key("elementValues");
  RixsaxWrite(ioWriter, iMinor._ElementValues);
}

typedef std::tuple<std::string_view, std::string_view, std::string_view> EntityKey;

EntityKey MinorKey(const MabERixMinorObject* ipMinor)
{
  return {ipMinor->GetKeyType().View(), ipMinor->GetKeyName().View(), ipMinor->GetKeyRevision().View()};
}

EntityKey MajorKey(const MabERixMajorObject* ipMajor)
{
  const MabERixObject* pObject = ipMajor->GetOwnerObject();
  return {pObject->GetKeyType().View(), pObject->GetKeyName().View(), ipMajor->GetKeyRevision().View()};
}

// Entities sorted by a key, creation order kept among equal keys: the
// entities of one key are an equal_range, in the order they were created.
template <class Entity, class KeyOf>
std::vector<const Entity*> SortedBy(const std::vector<KelVar<Entity>>& iEntities, KeyOf iKeyOf)
{
  std::vector<const Entity*> Sorted;
  Sorted.reserve(iEntities.size());
  for (const KelVar<Entity>& spEntity : iEntities)
    Sorted.push_back(spEntity.Get());
  std::stable_sort(Sorted.begin(), Sorted.end(),
                   [&iKeyOf](const Entity* ipLeft, const Entity* ipRight) { return iKeyOf(ipLeft) < iKeyOf(ipRight); });
  return Sorted;
}

template <class Entity, class Key, class KeyOf>
std::pair<typename std::vector<const Entity*>::const_iterator, typename std::vector<const Entity*>::const_iterator>
FindAll(const std::vector<const Entity*>& iSorted, const Key& iKey, KeyOf iKeyOf)
{
  const auto Begin =
      std::lower_bound(iSorted.begin(), iSorted.end(), iKey,
                       [&iKeyOf](const Entity* ipEntity, const Key& iValue) { return iKeyOf(ipEntity) < iValue; });
  const auto End = std::upper_bound(Begin, iSorted.end(), iKey, [&iKeyOf](const Key& iValue, const Entity* ipEntity) {
    return iValue < iKeyOf(ipEntity);
  });
  return {Begin, End};
}

const MabERixObject* OwnerOf(const MabERixMajorObject* ipMajor) { return ipMajor->GetOwnerObject(); }

void WriteTNRMinor(RixsaxWriter& ioWriter, const MabERixMinorObject& iMinor)
{
  ioWriter.BeginObject();
  ioWriter.Key("id");
  ioWriter.BeginObject();
  ioWriter.Member("cadId", iMinor.GetObjectID().GetID());
  ioWriter.Member("type", iMinor.GetKeyType());
  ioWriter.Member("name", iMinor.GetKeyName());
  ioWriter.Member("revision", iMinor.GetKeyRevision());
  ioWriter.Member("version", iMinor.GetKeyVersion());
  ioWriter.EndObject();
  WriteMinorContent(ioWriter, iMinor);
  ioWriter.MemberBool("pointer", iMinor._bPointer != 0);
  ioWriter.EndObject();
}

void WriteRelationships(RixsaxWriter& ioWriter, const MabRixObjectContext& iContext)
{
  ioWriter.Key("relationships");
  ioWriter.BeginArray();
  for (const MabERixRelationship_var& Relationship : iContext.GetRelationships())
  {
    ioWriter.BeginObject();
    ioWriter.Member("id", Relationship->GetID());
    ioWriter.Member("kind", Relationship->GetKind());
    ioWriter.Key("attributes");
    RixsaxWrite(ioWriter, Relationship->_Attributes);
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}

void WriteRelations(RixsaxWriter& ioWriter, const MabRixObjectContext& iContext)
{
  ioWriter.Key("relations");
  ioWriter.BeginArray();
  for (const MabERixRelation_var& Relation : iContext.GetRelations())
  {
    ioWriter.BeginObject();
    ioWriter.Member("from", Relation->GetFromObjectID().GetID());
    ioWriter.Member("id", Relation->GetRelationshipID());
    ioWriter.Member("to", Relation->GetToObjectID().GetID());
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}

void WriteObjectStart(RixsaxWriter& ioWriter, const MabERixObject& iObject)
{
  ioWriter.BeginObject();
  ioWriter.Member("type", iObject.GetKeyType());
  ioWriter.Member("name", iObject.GetKeyName());
  WriteProperties(ioWriter, iObject);
}
}  // namespace

void RixsaxWriteTNRContext(RixsaxWriter& ioWriter, const MabRixTNRObjectContext& iContext)
{
  const std::vector<const MabERixMajorObject*> Majors = SortedBy(iContext.GetMajorObjects(), OwnerOf);
  // Minor objects by the type, name and revision of their creation.
  const std::vector<const MabERixMinorObject*> Minors = SortedBy(iContext.GetMinorObjects(), MinorKey);

  ioWriter.BeginObject();
  ioWriter.Key("objects");
  ioWriter.BeginArray();
  std::size_t Placed = 0;
  for (const MabERixObject_var& Object : iContext.GetObjects())
  {
    WriteObjectStart(ioWriter, *Object);
    ioWriter.Key("majors");
    ioWriter.BeginArray();
    const auto [MajorBegin, MajorEnd] = FindAll(Majors, static_cast<const MabERixObject*>(Object.Get()), OwnerOf);
    for (auto ppMajor = MajorBegin; ppMajor != MajorEnd; ++ppMajor)
    {
      ioWriter.BeginObject();
      ioWriter.Member("revision", (*ppMajor)->GetKeyRevision());
      WriteProperties(ioWriter, **ppMajor);
      ioWriter.Key("minors");
      ioWriter.BeginArray();
      const auto [MinorBegin, MinorEnd] = FindAll(Minors, MajorKey(*ppMajor), MinorKey);
      for (auto ppMinor = MinorBegin; ppMinor != MinorEnd; ++ppMinor)
        WriteTNRMinor(ioWriter, **ppMinor);
      Placed += static_cast<std::size_t>(MinorEnd - MinorBegin);
      ioWriter.EndArray();
      ioWriter.EndObject();
    }
    ioWriter.EndArray();
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
  // A minor object whose revision has no major object in the context is
  // shown apart rather than lost.
  if (Placed < iContext.GetMinorObjects().size())
  {
    const std::vector<const MabERixMajorObject*> MajorsByKey = SortedBy(iContext.GetMajorObjects(), MajorKey);
    ioWriter.Key("minorsWithoutMajor");
    ioWriter.BeginArray();
    for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
      if (const auto Found = FindAll(MajorsByKey, MinorKey(Minor.Get()), MajorKey); Found.first == Found.second)
        WriteTNRMinor(ioWriter, *Minor);
    ioWriter.EndArray();
  }
  WriteRelationships(ioWriter, iContext);
  WriteRelations(ioWriter, iContext);
  ioWriter.EndObject();
}

void RixsaxWriteCADContext(RixsaxWriter& ioWriter, const MabRixCADObjectContext& iContext)
{
  const std::vector<const MabERixMajorObject*> Majors = SortedBy(iContext.GetMajorObjects(), OwnerOf);
  const auto ObjectKeyOf = [](const MabERixMinorObject* ipMinor) {
    return std::make_pair(ipMinor->GetKeyType().View(), ipMinor->GetKeyName().View());
  };
  const std::vector<const MabERixMinorObject*> Minors = SortedBy(iContext.GetMinorObjects(), ObjectKeyOf);

  ioWriter.BeginObject();
  ioWriter.Key("objects");
  ioWriter.BeginArray();
  for (const MabERixObject_var& Object : iContext.GetObjects())
  {
    WriteObjectStart(ioWriter, *Object);
    KelUnicodeString Current;
    ioWriter.Key("currentRevision");
    if (SUCCEEDED(Object->GetContextCurrentRevision(Current)))
      ioWriter.String(Current);
    else
      ioWriter.Null();
    ioWriter.Key("majors");
    ioWriter.BeginArray();
    const auto [MajorBegin, MajorEnd] = FindAll(Majors, static_cast<const MabERixObject*>(Object.Get()), OwnerOf);
    for (auto ppMajor = MajorBegin; ppMajor != MajorEnd; ++ppMajor)
    {
      ioWriter.BeginObject();
      ioWriter.Key("revision");
      if ((*ppMajor)->GetKeyRevision().IsEmpty())
        ioWriter.Null();
      else
        ioWriter.String((*ppMajor)->GetKeyRevision());
      WriteProperties(ioWriter, **ppMajor);
      ioWriter.EndObject();
    }
    ioWriter.EndArray();
    // The first minor object of the object's type and name.
    ioWriter.Key("minor");
    const auto Found =
        FindAll(Minors, std::make_pair(Object->GetKeyType().View(), Object->GetKeyName().View()), ObjectKeyOf);
    if (Found.first != Found.second)
    {
      ioWriter.BeginObject();
      WriteMinorContent(ioWriter, **Found.first);
      ioWriter.EndObject();
    }
    else
      ioWriter.Null();
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
  ioWriter.EndObject();
}

RixsaxContextCounts RixsaxCountContext(const MabRixObjectContext& iContext)
{
  return {iContext.GetObjects().size(), iContext.GetMajorObjects().size(), iContext.GetMinorObjects().size(),
          iContext.GetRelationships().size(), iContext.GetRelations().size()};
}
