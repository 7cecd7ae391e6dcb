// Tree baseline with pugixml.
#include <pugixml.hpp>

#include <cstring>

#include "MabRixBenchTreeObject.h"
#include "MabRixBenchTrees.h"

namespace
{
// Concatenated text of an element's direct text children.
KelUnicodeString TextOf(const pugi::xml_node& iElement)
{
  KelUnicodeString Result;
  for (const pugi::xml_node& Child : iElement.children())
    if (Child.type() == pugi::node_pcdata || Child.type() == pugi::node_cdata)
      Result += Child.value();
  return Result;
}

bool WalkDocument(const pugi::xml_document& iDocument, MabRixTNRObjectContext& ioContext)
{
  const pugi::xml_node List = iDocument.document_element().child("objectlist");
  if (!List)
    return false;
  MabRixBenchTreeObject Object;
  for (const pugi::xml_node& Node : List.children("cadobject"))
  {
    for (const pugi::xml_attribute& Attribute : Node.attributes())
      Object.Attribute(Attribute.name(), KelUnicodeString(Attribute.value()));
    Object.BeginContent();
    for (const pugi::xml_node& Child : Node.children())
    {
      if (Child.type() != pugi::node_element)
        continue;
      if (!std::strcmp(Child.name(), "attribute"))
      {
        const pugi::xml_node Name = Child.child("name");
        const pugi::xml_node Value = Child.child("value");
        if (Name && Value)
          Object.NamedAttribute(TextOf(Name), TextOf(Value));
      }
      else
        Object.Element(Child.name(), TextOf(Child));
    }
    Object.Commit(ioContext);
  }
  return true;
}
}  // namespace

bool MabRixTreePugixml(const char* iData, std::size_t iSize, MabRixTNRObjectContext& ioContext,
                       const std::function<void()>& iBeforeFree)
{
  pugi::xml_document Document;
  const bool Read = Document.load_buffer(iData, iSize) && WalkDocument(Document, ioContext);
  if (iBeforeFree)
    iBeforeFree();
  return Read;
}

bool MabRixTreePugixmlStream(std::istream& ioStream, MabRixTNRObjectContext& ioContext)
{
  pugi::xml_document Document;
  return Document.load(ioStream) && WalkDocument(Document, ioContext);
}
