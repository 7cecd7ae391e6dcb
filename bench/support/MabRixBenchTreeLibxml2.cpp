// Tree baseline with libxml2.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstring>

#include "MabRixBenchTreeObject.h"
#include "MabRixBenchTrees.h"

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

void Walk(const xmlNode* ipList, MabRixTNRObjectContext& ioContext)
{
  MabRixBenchTreeObject Object;
  for (const xmlNode* pNode = ipList->children; pNode; pNode = pNode->next)
  {
    if (!Is(pNode, "cadobject"))
      continue;
    for (const xmlAttr* pAttribute = pNode->properties; pAttribute; pAttribute = pAttribute->next)
      Object.Attribute(Text(pAttribute->name),
                       KelUnicodeString(pAttribute->children ? Text(pAttribute->children->content) : ""));
    Object.BeginContent();
    for (const xmlNode* pChild = pNode->children; pChild; pChild = pChild->next)
    {
      if (pChild->type != XML_ELEMENT_NODE)
        continue;
      if (Is(pChild, "attribute"))
      {
        const xmlNode* pName = Child(pChild, "name");
        const xmlNode* pValue = Child(pChild, "value");
        if (pName && pValue)
          Object.NamedAttribute(TextOf(pName), TextOf(pValue));
      }
      else
        Object.Element(Text(pChild->name), TextOf(pChild));
    }
    Object.Commit(ioContext);
  }
}

bool WalkDocument(xmlDocPtr ipDocument, MabRixTNRObjectContext& ioContext, const std::function<void()>& iBeforeFree)
{
  const xmlNode* pRoot = ipDocument ? xmlDocGetRootElement(ipDocument) : nullptr;
  const xmlNode* pList = pRoot ? Child(pRoot, "objectlist") : nullptr;
  if (pList)
    Walk(pList, ioContext);
  if (iBeforeFree)
    iBeforeFree();
  xmlFreeDoc(ipDocument);
  return pList != nullptr;
}
}  // namespace

bool MabRixTreeLibxml2(const char* iData, std::size_t iSize, MabRixTNRObjectContext& ioContext,
                       const std::function<void()>& iBeforeFree)
{
  return WalkDocument(
      xmlReadMemory(iData, static_cast<int>(iSize), "response.xml", nullptr, XML_PARSE_NONET | XML_PARSE_HUGE),
      ioContext, iBeforeFree);
}

bool MabRixTreeLibxml2File(const char* iPath, MabRixTNRObjectContext& ioContext)
{
  return WalkDocument(xmlReadFile(iPath, nullptr, XML_PARSE_NONET | XML_PARSE_HUGE), ioContext, {});
}
