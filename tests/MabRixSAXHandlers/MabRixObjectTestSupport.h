// Reading object responses into a TNR context, and reading the entities back
// as plain texts for assertions.
#ifndef MabRixObjectTestSupport_h
#define MabRixObjectTestSupport_h

#include <string>
#include <utility>
#include <vector>

#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"

typedef std::vector<std::pair<std::string, std::string>> MabRixEntries;

inline MabRixEntries MabRixEntriesOf(const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  MabRixEntries Result;
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
    Result.emplace_back(It.GetKey().ToUtf8(), (*It).ToUtf8());
  return Result;
}

// Names of the properties set on an entity, in the order first set.
inline std::vector<std::string> MabRixSetNames(const MabERixEntity& iEntity)
{
  std::vector<std::string> Names;
  for (const MabRixProperty& Property : iEntity.GetSetProperties())
    Names.emplace_back(Property._Name);
  return Names;
}

// A text property, or "<unset>".
template <class Entity>
std::string MabRixText(const Entity& iEntity, HRESULT (Entity::*iGet)(KelUnicodeString&) const)
{
  KelUnicodeString Value;
  return SUCCEEDED((iEntity.*iGet)(Value)) ? Value.ToUtf8() : "<unset>";
}

// A flag property: 0 or 1, or -1 when unset.
template <class Entity>
int MabRixFlag(const Entity& iEntity, HRESULT (Entity::*iGet)(unsigned char&) const)
{
  unsigned char Value = 0;
  return SUCCEEDED((iEntity.*iGet)(Value)) ? (Value ? 1 : 0) : -1;
}

// "type|name|path" of a minor object's document ID, or "<unset>".
inline std::string MabRixDocumentIDOf(const MabERixMinorObject& iMinor)
{
  MabRixDocumentID ID;
  if (FAILED(iMinor.GetDocumentID(ID)))
    return "<unset>";
  return ID.GetType().ToUtf8() + "|" + ID.GetName().ToUtf8() + "|" + ID.GetPath().GetString().ToUtf8();
}

inline std::string MabRixThumbnailOf(const MabERixMinorObject& iMinor)
{
  MabRixPath Path;
  return SUCCEEDED(iMinor.GetThumbnail(Path)) ? Path.GetString().ToUtf8() : "<unset>";
}

// A TNR context owned by the test, and the handlers that fill it.
struct MabRixTestContext
{
  MabRixTestContext() : _spContext(KelVar<MabRixTNRObjectContext>::Adopt(new MabRixTNRObjectContext())) {}

  MabRixTNRObjectContext* Get() const { return _spContext.Get(); }
  const MabERixObject& Object(std::size_t i) const { return *_spContext->GetObjects().at(i); }
  const MabERixMajorObject& Major(std::size_t i) const { return *_spContext->GetMajorObjects().at(i); }
  const MabERixMinorObject& Minor(std::size_t i) const { return *_spContext->GetMinorObjects().at(i); }
  std::size_t Objects() const { return _spContext->GetObjects().size(); }
  std::size_t Majors() const { return _spContext->GetMajorObjects().size(); }
  std::size_t Minors() const { return _spContext->GetMinorObjects().size(); }

  KelVar<MabRixTNRObjectContext> _spContext;
};

#endif
