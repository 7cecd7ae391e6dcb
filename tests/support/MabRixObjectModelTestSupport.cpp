#include "MabRixObjectModelTestSupport.h"

#include <cstring>

namespace
{
struct PropertyToText
{
  std::string operator()(const KelUnicodeString& iText) const { return iText.ToUtf8(); }
  std::string operator()(unsigned char iFlag) const { return std::to_string(iFlag); }
  std::string operator()(const KelUnicodeStringList& iList) const
  {
    std::string Text = "[";
    for (const KelUnicodeString& Item : iList)
      Text += (Text.size() > 1 ? "|" : "") + Item.ToUtf8();
    return Text + "]";
  }
  std::string operator()(const MabRixPath& iPath) const { return iPath.GetString().ToUtf8(); }
  std::string operator()(const MabRixDocumentID& iID) const
  {
    return "(" + iID.GetType().ToUtf8() + "," + iID.GetName().ToUtf8() + "," + iID.GetPath().GetString().ToUtf8() + ")";
  }
};
}  // namespace

std::vector<std::string> MabRixPropertyTexts(const MabERixEntity* ipEntity)
{
  std::vector<std::string> Texts;
  if (!ipEntity)
    return {"<no entity>"};
  for (const MabRixProperty& Property : ipEntity->GetSetProperties())
    Texts.push_back(std::string(Property._Name) + "=" + std::visit(PropertyToText(), Property._Value));
  return Texts;
}

std::optional<std::string> MabRixPropertyText(const MabERixEntity* ipEntity, const char* iName)
{
  if (!ipEntity)
    return std::nullopt;
  for (const MabRixProperty& Property : ipEntity->GetSetProperties())
    if (std::strcmp(Property._Name, iName) == 0)
      return std::visit(PropertyToText(), Property._Value);
  return std::nullopt;
}

std::vector<std::string> MabRixDicoTexts(const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  std::vector<std::string> Texts;
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
    Texts.push_back(It.GetKey().ToUtf8() + "=" + (*It).ToUtf8());
  return Texts;
}

MabERixObject* MabRixFindObject(MabRixObjectContext& iContext, const char* iType, const char* iName)
{
  return KelImplCast<MabERixObject>(iContext.GetObject(MabRixObjectID(iType, iName)).Get());
}

MabERixMajorObject* MabRixFindMajorObject(MabRixObjectContext& iContext, const char* iType, const char* iName,
                                          const char* iRevision)
{
  for (const MabERixMajorObject_var& spMajor : iContext.GetMajorObjects())
    if (spMajor->GetKeyType() == iType && spMajor->GetKeyName() == iName && spMajor->GetKeyRevision() == iRevision)
      return spMajor.Get();
  return nullptr;
}

MabERixMinorObject* MabRixFindMinorObject(MabRixCADObjectContext& iContext, const char* iType, const char* iName)
{
  return KelImplCast<MabERixMinorObject>(iContext.GetMinorObject(MabRixObjectID(iType, iName)).Get());
}
