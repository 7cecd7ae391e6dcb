#include "RixsaxDot.h"

#include <string>
#include <unordered_map>

#include "MabRixCADObjectContext.h"
#include "MabRixTNRObjectContext.h"
#include "RixsaxSession.h"

namespace
{
// A text as a quoted DOT string.
std::string Quoted(std::string_view iText)
{
  std::string Text = "\"";
  for (const char Character : iText)
  {
    if (Character == '"' || Character == '\\')
      Text += '\\';
    if (Character == '\n')
      Text += "\\n";
    else if (static_cast<unsigned char>(Character) >= 0x20)
      Text += Character;
  }
  return Text + '"';
}

std::string Label(std::string_view iFirst, std::string_view iSecond)
{
  return Quoted(std::string(iFirst) + "\n" + std::string(iSecond));
}

class DotGraph
{
public:
  explicit DotGraph(RixsaxOutput& ioOutput) : _Output(ioOutput) {}

  // One cluster per context; iPrefix keeps the node names of the contexts
  // apart.
  void WriteContext(const MabRixObjectContext& iContext, const std::string& iPrefix, std::string_view iTitle)
  {
    _Output.Write("  subgraph cluster_" + iPrefix + " {\n    label=" + Quoted(iTitle) + ";\n");
    std::unordered_map<const MabERixObject*, std::string> Objects;
    std::unordered_map<std::string, std::string> ObjectsByName;
    for (const MabERixObject_var& Object : iContext.GetObjects())
    {
      const std::string Node = iPrefix + "o" + std::to_string(Objects.size() + 1);
      Objects.emplace(Object.Get(), Node);
      ObjectsByName.emplace(Key(Object->GetKeyType().View(), Object->GetKeyName().View(), ""), Node);
      _Output.Write("    " + Node + " [label=" + Label(Object->GetKeyType().View(), Object->GetKeyName().View()) +
                    "];\n");
    }
    // Minor objects under the major object of their revision.
    std::unordered_map<std::string, std::string> Majors;
    std::size_t Count = 0;
    for (const MabERixMajorObject_var& Major : iContext.GetMajorObjects())
    {
      const MabERixObject* pObject = Major->GetOwnerObject();
      const std::string Node = iPrefix + "M" + std::to_string(++Count);
      Majors.emplace(Key(pObject->GetKeyType().View(), pObject->GetKeyName().View(), Major->GetKeyRevision().View()),
                     Node);
      _Output.Write("    " + Node + " [shape=ellipse, label=" + Quoted("revision " + Major->GetKeyRevision().ToUtf8()) +
                    "];\n");
      if (const auto Found = Objects.find(pObject); Found != Objects.end())
        _Output.Write("    " + Found->second + " -> " + Node + " [label=major];\n");
    }
    Count = 0;
    for (const MabERixMinorObject_var& Minor : iContext.GetMinorObjects())
    {
      const std::string Node = iPrefix + "m" + std::to_string(++Count);
      const std::string ID = Minor->GetObjectID().GetID().ToUtf8();
      _Minors.emplace(ID, Node);
      _Output.Write("    " + Node + " [shape=note, label=" + Label("version " + Minor->GetKeyVersion().ToUtf8(), ID) +
                    "];\n");
      const auto Found =
          Majors.find(Key(Minor->GetKeyType().View(), Minor->GetKeyName().View(), Minor->GetKeyRevision().View()));
      if (Found != Majors.end())
        _Output.Write("    " + Found->second + " -> " + Node + " [label=minor];\n");
      // A CAD context keeps one minor object per object, without revision.
      else if (const auto Owner = ObjectsByName.find(Key(Minor->GetKeyType().View(), Minor->GetKeyName().View(), ""));
               Owner != ObjectsByName.end())
        _Output.Write("    " + Owner->second + " -> " + Node + " [label=minor];\n");
    }
    _Output.Write("  }\n");
    WriteRelations(iContext);
  }

private:
  static std::string Key(std::string_view iType, std::string_view iName, std::string_view iRevision)
  {
    std::string Text(iType);
    Text += '\0';
    Text += iName;
    Text += '\0';
    Text += iRevision;
    return Text;
  }

  // Relations join minor objects by their CAD ids; an end that is not in
  // the context gets a node of its own.
  void WriteRelations(const MabRixObjectContext& iContext)
  {
    std::unordered_map<std::string, std::string> Kinds;
    for (const MabERixRelationship_var& Relationship : iContext.GetRelationships())
      Kinds.emplace(Relationship->GetID().ToUtf8(), Relationship->GetKind().ToUtf8());
    for (const MabERixRelation_var& Relation : iContext.GetRelations())
    {
      const auto Kind = Kinds.find(Relation->GetRelationshipID().ToUtf8());
      _Output.Write("  " + Node(Relation->GetFromObjectID().GetID().ToUtf8()) + " -> " +
                    Node(Relation->GetToObjectID().GetID().ToUtf8()) + " [style=dashed, label=" +
                    Quoted(Kind != Kinds.end() ? Kind->second : Relation->GetRelationshipID().ToUtf8()) + "];\n");
    }
  }

  std::string Node(const std::string& iID)
  {
    if (const auto Found = _Minors.find(iID); Found != _Minors.end())
      return Found->second;
    const std::string Node = "x" + std::to_string(_Minors.size() + 1);
    _Minors.emplace(iID, Node);
    _Output.Write("  " + Node + " [shape=plaintext, label=" + Quoted(iID) + "];\n");
    return Node;
  }

  RixsaxOutput& _Output;
  std::unordered_map<std::string, std::string> _Minors;  // CAD id to node
};
}  // namespace

void RixsaxWriteDot(RixsaxOutput& ioOutput, const RixsaxSession& iSession)
{
  ioOutput.Write("digraph rixsax {\n  rankdir=LR;\n  node [shape=box];\n");
  DotGraph Graph(ioOutput);
  if (const MabRixTNRObjectContext* pContext = iSession.UsedTNRContext())
    Graph.WriteContext(*pContext, "tnr", "TNR context");
  if (const MabRixCADObjectContext* pContext = iSession.UsedCADContext())
    Graph.WriteContext(*pContext, "cad", "CAD context");
  ioOutput.Write("}\n");
}
