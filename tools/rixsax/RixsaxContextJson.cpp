#include "RixsaxContextJson.h"

#include <algorithm>
#include <cstdint>
#include <functional>
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

// Entities found by a key without a map: one 64-bit word per entity, the
// key's 32-bit hash above its index in the context's list, sorted. The
// entities of a key are among those of its hash, in creation order; a
// lookup compares the keys of those few only.
class HashIndex
{
public:
  template <class Entity, class HashOf>
  HashIndex(const std::vector<KelVar<Entity>>& iEntities, HashOf iHashOf)
  {
    _Words.reserve(iEntities.size());
    for (std::size_t i = 0; i < iEntities.size(); ++i)
      _Words.push_back((static_cast<std::uint64_t>(iHashOf(*iEntities[i])) << 32) | i);
    std::sort(_Words.begin(), _Words.end());
  }

  // Calls iVisit(index) for each entity of the hash, in creation order.
  template <class Visit>
  void ForEach(std::uint32_t iHash, Visit iVisit) const
  {
    const std::uint64_t First = static_cast<std::uint64_t>(iHash) << 32;
    for (auto It = std::lower_bound(_Words.begin(), _Words.end(), First); It != _Words.end() && (*It >> 32) == iHash;
         ++It)
      iVisit(static_cast<std::size_t>(*It & 0xFFFFFFFFu));
  }

private:
  std::vector<std::uint64_t> _Words;
};

std::uint32_t Hash(std::string_view iText, std::size_t iSeed = 0)
{
  const std::size_t Value = std::hash<std::string_view>()(iText) ^ (iSeed * 0x9E3779B97F4A7C15ull);
  return static_cast<std::uint32_t>(Value ^ (Value >> 32));
}

std::uint32_t KeyHash(std::string_view iType, std::string_view iName, std::string_view iRevision)
{
  return Hash(iRevision, Hash(iName, Hash(iType)));
}

std::uint32_t OwnerHash(const MabERixObject* ipObject)
{
  const std::uintptr_t Value = reinterpret_cast<std::uintptr_t>(ipObject);
  return static_cast<std::uint32_t>((Value >> 4) ^ (Value >> 36));
}

// The major objects of each object, by their owner.
HashIndex MajorsByOwner(const MabRixObjectContext& iContext)
{
  return HashIndex(iContext.GetMajorObjects(),
                   [](const MabERixMajorObject& iMajor) { return OwnerHash(iMajor.GetOwnerObject()); });
}

// Calls iVisit(major) for each major object of iObject, in creation order.
template <class Visit>
void ForEachMajor(const MabRixObjectContext& iContext, const HashIndex& iMajors, const MabERixObject& iObject,
                  Visit iVisit)
{
  iMajors.ForEach(OwnerHash(&iObject), [&](std::size_t iIndex) {
    const MabERixMajorObject& Major = *iContext.GetMajorObjects()[iIndex];
    if (Major.GetOwnerObject() == &iObject)
      iVisit(Major);
  });
}

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
  const HashIndex Majors = MajorsByOwner(iContext);
  // Minor objects by the type, name and revision of their creation.
  const auto MinorHash = [](const MabERixMinorObject& iMinor) {
    return KeyHash(iMinor.GetKeyType().View(), iMinor.GetKeyName().View(), iMinor.GetKeyRevision().View());
  };
  const HashIndex Minors(iContext.GetMinorObjects(), MinorHash);

  ioWriter.BeginObject();
  ioWriter.Key("objects");
  ioWriter.BeginArray();
  std::size_t Placed = 0;
  for (const MabERixObject_var& Object : iContext.GetObjects())
  {
    WriteObjectStart(ioWriter, *Object);
    ioWriter.Key("majors");
    ioWriter.BeginArray();
    ForEachMajor(iContext, Majors, *Object, [&](const MabERixMajorObject& iMajor) {
      ioWriter.BeginObject();
      ioWriter.Member("revision", iMajor.GetKeyRevision());
      WriteProperties(ioWriter, iMajor);
      ioWriter.Key("minors");
      ioWriter.BeginArray();
      const KelUnicodeString& Revision = iMajor.GetKeyRevision();
      Minors.ForEach(KeyHash(Object->GetKeyType().View(), Object->GetKeyName().View(), Revision.View()),
                     [&](std::size_t iIndex) {
                       const MabERixMinorObject& Minor = *iContext.GetMinorObjects()[iIndex];
                       if (Minor.GetKeyType() == Object->GetKeyType() && Minor.GetKeyName() == Object->GetKeyName() &&
                           Minor.GetKeyRevision() == Revision)
                       {
                         WriteTNRMinor(ioWriter, Minor);
                         ++Placed;
                       }
                     });
      ioWriter.EndArray();
      ioWriter.EndObject();
    });
    ioWriter.EndArray();
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
  // A minor object whose revision has no major object in the context is
  // shown apart rather than lost.
  if (Placed < iContext.GetMinorObjects().size())
  {
    const HashIndex MajorsByKey(iContext.GetMajorObjects(), [](const MabERixMajorObject& iMajor) {
      const MabERixObject* pObject = iMajor.GetOwnerObject();
      return KeyHash(pObject->GetKeyType().View(), pObject->GetKeyName().View(), iMajor.GetKeyRevision().View());
    });
    ioWriter.Key("minorsWithoutMajor");
    ioWriter.BeginArray();
    for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
    {
      bool HasMajor = false;
      MajorsByKey.ForEach(MinorHash(*Minor), [&](std::size_t iIndex) {
        const MabERixMajorObject& Major = *iContext.GetMajorObjects()[iIndex];
        HasMajor = HasMajor || (Major.GetOwnerObject()->GetKeyType() == Minor->GetKeyType() &&
                                Major.GetOwnerObject()->GetKeyName() == Minor->GetKeyName() &&
                                Major.GetKeyRevision() == Minor->GetKeyRevision());
      });
      if (!HasMajor)
        WriteTNRMinor(ioWriter, *Minor);
    }
    ioWriter.EndArray();
  }
  WriteRelationships(ioWriter, iContext);
  WriteRelations(ioWriter, iContext);
  ioWriter.EndObject();
}

void RixsaxWriteCADContext(RixsaxWriter& ioWriter, const MabRixCADObjectContext& iContext)
{
  const HashIndex Majors = MajorsByOwner(iContext);
  const HashIndex Minors(iContext.GetMinorObjects(), [](const MabERixMinorObject& iMinor) {
    return KeyHash(iMinor.GetKeyType().View(), iMinor.GetKeyName().View(), "");
  });

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
    ForEachMajor(iContext, Majors, *Object, [&](const MabERixMajorObject& iMajor) {
      ioWriter.BeginObject();
      // An empty revision is a revision of its own; an unknown one is null.
      ioWriter.Key("revision");
      if (iContext.IsRevisionKnown(iMajor))
        ioWriter.String(iMajor.GetKeyRevision());
      else
        ioWriter.Null();
      WriteProperties(ioWriter, iMajor);
      ioWriter.EndObject();
    });
    ioWriter.EndArray();
    // The first minor object of the object's type and name.
    const MabERixMinorObject* pMinor = nullptr;
    Minors.ForEach(KeyHash(Object->GetKeyType().View(), Object->GetKeyName().View(), ""), [&](std::size_t iIndex) {
      const MabERixMinorObject& Minor = *iContext.GetMinorObjects()[iIndex];
      if (!pMinor && Minor.GetKeyType() == Object->GetKeyType() && Minor.GetKeyName() == Object->GetKeyName())
        pMinor = &Minor;
    });
    ioWriter.Key("minor");
    if (pMinor)
    {
      ioWriter.BeginObject();
      WriteMinorContent(ioWriter, *pMinor);
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
