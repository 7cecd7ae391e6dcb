// Baseline: read an object list the tree way. libxml2 parses the whole
// document into a tree, then a walk fills a TNR context with the same
// entities and properties the object list handler gives it, and the tree is
// freed. The streaming handlers must beat this comfortably.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstring>

#include "MabRixBenchCases.h"
#include "MabRixTNRObjectContext.h"

namespace
{
const char* Text(const xmlChar* iText) { return iText ? reinterpret_cast<const char*>(iText) : ""; }
bool Is(const xmlNode* ipNode, const char* iName)
{
  return ipNode->type == XML_ELEMENT_NODE && std::strcmp(Text(ipNode->name), iName) == 0;
}

// Concatenated text of an element's direct text children.
KelUnicodeString TextOf(const xmlNode* ipElement)
{
  KelUnicodeString Result;
  for (const xmlNode* pChild = ipElement->children; pChild; pChild = pChild->next)
    if (pChild->type == XML_TEXT_NODE || pChild->type == XML_CDATA_SECTION_NODE)
      Result += Text(pChild->content);
  return Result;
}

const xmlNode* Child(const xmlNode* ipElement, const char* iName)
{
  for (const xmlNode* pChild = ipElement->children; pChild; pChild = pChild->next)
    if (Is(pChild, iName))
      return pChild;
  return nullptr;
}

// One cadobject read from the tree, committed the way the object list
// handler commits it.
struct DomObject
{
  bool _Locked = false;
  KelUnicodeString _Locker, _BusType, _ObjectType, _CadType, _CadId, _BusId, _Oid, _FullVersion, _Version, _Revision,
      _Name, _Uuid;
  MabRixPath _Directory, _File, _Thumbnail;
  KelUnicodeStringKelUnicodeStringDico _Extra, _Elements;

  void ReadAttributes(const xmlNode* ipElement)
  {
    for (const xmlAttr* pAttribute = ipElement->properties; pAttribute; pAttribute = pAttribute->next)
    {
      const char* Name = Text(pAttribute->name);
      const KelUnicodeString Value(pAttribute->children ? Text(pAttribute->children->content) : "");
      if (!std::strcmp(Name, "busid"))
        _BusId = Value;
      else if (!std::strcmp(Name, "bustype"))
        _BusType = Value;
      else if (!std::strcmp(Name, "cadid"))
        _CadId = Value;
      else if (!std::strcmp(Name, "locker"))
        _Locker = Value;
      else if (!std::strcmp(Name, "zqtype"))
        _ObjectType = Value;
      else if (!std::strcmp(Name, "zqversion"))
        _FullVersion = Value;
      else if (!std::strcmp(Name, "name"))
        _Name = Value;
      else if (!std::strcmp(Name, "oid"))
        _Oid = Value;
      else if (!std::strcmp(Name, "type"))
        _CadType = Value;
      else if (!std::strcmp(Name, "uuid"))
        _Uuid = Value;
      else if (!std::strcmp(Name, "islocked"))
      {
        KelUnicodeString Lower = Value;
        Lower.ToLower();
        _Locked = Lower == "true";
      }
      else if (!std::strcmp(Name, "dirname"))
      {
        const int Bracket = Value.SearchSubString("]", Value.GetLengthInChar(), KelUnicodeString::KelSearchBackward);
        const int Bar = Value.SearchSubString("|", 0, KelUnicodeString::KelSearchForward);
        if (Bracket >= 0 && Bar >= 0 && Value.SubString(0, 7) == "[ALIAS|")
        {
          KelUnicodeString Alias("KelDLN://");
          Alias += Value.SubString(Bar + 1, Bracket - Bar - 1);
          _Directory = MabRixPath(Alias);
        }
        else
          _Directory = MabRixPath(Value);
      }
      else if (!std::strcmp(Name, "filename"))
        _File = MabRixPath(Value);
      else
        _Extra.Insert(KelUnicodeString(Name), Value);
    }
  }

  void ReadContent(const xmlNode* ipElement)
  {
    KelUnicodeStringKelUnicodeStringDico Attributes;
    _Elements.RemoveAll();
    for (const xmlNode* pChild = ipElement->children; pChild; pChild = pChild->next)
    {
      if (pChild->type != XML_ELEMENT_NODE)
        continue;
      if (Is(pChild, "attribute"))
      {
        const xmlNode* pName = Child(pChild, "name");
        const xmlNode* pValue = Child(pChild, "value");
        if (pName && pValue)
          Attributes.Insert(TextOf(pName), TextOf(pValue));
        continue;
      }
      const KelUnicodeString Value = TextOf(pChild);
      _Elements.Insert(KelUnicodeString(Text(pChild->name)), Value);
      if (Is(pChild, "preview"))
        _Thumbnail = MabRixPath(Value);
    }
    for (auto it = Attributes.begin(); it != Attributes.end(); ++it)
      _Extra.Insert(it.GetKey(), *it);
  }

  void Commit(MabRixTNRObjectContext& ioContext)
  {
    if (const KelUnicodeString* pVersion = _Elements.Find("Ver"))
      _Version = *pVersion;
    if (const KelUnicodeString* pRevision = _Elements.Find("Rev"))
      _Revision = *pRevision;
    const int Dot =
        _FullVersion.SearchSubString(".", _FullVersion.GetLengthInChar(), KelUnicodeString::KelSearchBackward);
    if (Dot >= 0)
    {
      _Revision = _FullVersion.SubString(0, Dot);
      _Version = _FullVersion.SubString(Dot + 1, _FullVersion.GetLengthInChar() - Dot - 1);
    }
    MabERixObject_var spObject = MabERixObject_var::Adopt(ioContext.CreateObject(_ObjectType, _Name));
    MabERixMajorObject_var spMajor =
        MabERixMajorObject_var::Adopt(ioContext.CreateMajorObject(_ObjectType, _Name, _Revision));
    MabERixMinorObject_var spMinor = MabERixMinorObject_var::Adopt(
        ioContext.CreateMinorObject(MabRixObjectID(_CadId), _ObjectType, _Name, _Revision, _Version, TRUE));
    if (!spObject || !spMajor || !spMinor)
      return;
    spObject->_SetCADType(_CadType);
    spMajor->_SetLockStatus(_Locked ? TRUE : FALSE);
    spMajor->_SetLockOwner(_Locker);
    spMajor->_SetMajorOID(_Oid);
    spMinor->_SetThumbnail(_Thumbnail);
    spMinor->_ExtraAttributes = _Extra;
    spMinor->_SetMinorType(_BusType);
    spMinor->_SetMinorUUID(_Uuid);
    spMinor->_SetMinorOID(_BusId);
    if (const KelUnicodeString* pOld = _Extra.Find("renamedfrom"); pOld && !pOld->IsEmpty())
      spMinor->_SetOldName(*pOld);
    MabRixDocumentIDList Ids;
    if (FAILED(spMinor->GetDocumentIDList(Ids)))
      spMinor->_SetMinorDocumentID(MabRixDocumentID::Create(_CadType, _Name, _Directory / _File));
    spMinor->_ElementValues = _Elements;
    _Extra.RemoveAll();
  }
};

void Walk(const xmlNode* ipList, MabRixTNRObjectContext& ioContext)
{
  DomObject Object;
  for (const xmlNode* pNode = ipList->children; pNode; pNode = pNode->next)
    if (Is(pNode, "cadobject"))
    {
      Object.ReadAttributes(pNode);
      Object.ReadContent(pNode);
      Object.Commit(ioContext);
    }
}

void DomObjectList(benchmark::State& ioState, const MabRixBenchDocument& iDocument)
{
  std::uint64_t Objects = 0;
  for (auto _ : ioState)
  {
    ioState.PauseTiming();
    MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
    ioState.ResumeTiming();
    xmlDocPtr pDocument = xmlReadMemory(iDocument._Text.data(), static_cast<int>(iDocument._Text.size()),
                                        "response.xml", nullptr, XML_PARSE_NONET | XML_PARSE_HUGE);
    const xmlNode* pRoot = pDocument ? xmlDocGetRootElement(pDocument) : nullptr;
    const xmlNode* pList = pRoot ? Child(pRoot, "objectlist") : nullptr;
    if (pList)
      Walk(pList, *pContext);
    else
      ioState.SkipWithError("libxml2 could not read the document");
    xmlFreeDoc(pDocument);
    ioState.PauseTiming();
    Objects = pContext->GetMinorObjects().size();
    pContext->Release();
    ioState.ResumeTiming();
  }
  MabRixBenchCount(ioState, iDocument);
  ioState.counters["entries"] = static_cast<double>(Objects);
}

const MabRixBenchRegistrar Registered("dom", MabRixResponseKind::ObjectList, &DomObjectList);
}  // namespace
