#include "MabRixResponseGenerator.h"

#include <array>
#include <charconv>

namespace
{
const std::size_t BufferSize = 64 * 1024;

// One entry per object family: the values that belong together.
struct Family
{
  const char* _Type;     // object type (zqtype, Type)
  const char* _CadType;  // CAD type (type, cadtype)
  const char* _BusType;  // server business type
  const char* _Prefix;   // name prefix
  const char* _Extension;
};
const std::array<Family, 4> Families = {{{"Component", "part", "CAD Part", "PRT-", ".prt"},
                                         {"Assembly", "assembly", "CAD Assembly", "ASM-", ".asm"},
                                         {"Drawing", "drawing", "CAD Drawing", "DRW-", ".drw"},
                                         {"Document", "document", "CAD Document", "DOC-", ".doc"}}};
const std::array<const char*, 4> States = {"In Work", "Frozen", "Release", "Obsolete"};
const std::array<const char*, 4> Users = {"jdoe", "asmith", "mlee", "kwong"};
const std::array<const char*, 3> Aliases = {"Work Area", "Projects", "Standard Parts"};
const std::array<const char*, 4> Folders = {"Projects|P-100|Parts", "Projects|P-200", "Library|Fasteners",
                                            "Projects|P-100|Drawings"};
const std::array<const char*, 4> Materials = {"Steel", "Aluminium 6061", "ABS", "Brass"};
const std::array<const char*, 3> RelationshipKinds = {"child", "reference", "drawing"};
const std::array<const char*, 5> TrueTexts = {"true", "TRUE", "True", "false", "False"};

const Family& FamilyOf(std::uint64_t iKey) { return Families[iKey % Families.size()]; }
char RevisionLetter(std::uint64_t iKey) { return static_cast<char>('A' + (iKey / 4) % 6); }
}  // namespace

MabRixResponseGenerator::MabRixResponseGenerator(const MabRixGeneratorOptions& iOptions) : _Options(iOptions)
{
  if (_Options._Depth == 0)
    _Options._Depth = 1;
}

std::uint64_t MabRixResponseGenerator::Random()
{
  // splitmix64: tiny, fast and the same on every platform.
  std::uint64_t z = (_State += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

std::uint64_t MabRixResponseGenerator::Key(std::uint64_t iIndex) const
{
  return _Options._DistinctKeys ? iIndex % _Options._DistinctKeys : iIndex;
}

bool MabRixResponseGenerator::MoreRecords(std::uint64_t iWritten) const
{
  if (_Options._Bytes)
    return _Stats._Bytes + _Buffer.size() < _Options._Bytes;
  return iWritten < _Options._Count;
}

void MabRixResponseGenerator::Flush()
{
  if (_Buffer.empty())
    return;
  (*_pSink)(_Buffer.data(), _Buffer.size());
  _Stats._Bytes += _Buffer.size();
  _Buffer.clear();
}

void MabRixResponseGenerator::Put(std::string_view iText)
{
  if (_Buffer.size() + iText.size() > BufferSize)
    Flush();
  _Buffer.append(iText);
}

void MabRixResponseGenerator::PutNumber(std::uint64_t iNumber)
{
  char Digits[24];
  const auto End = std::to_chars(Digits, Digits + sizeof Digits, iNumber).ptr;
  Put(std::string_view(Digits, static_cast<std::size_t>(End - Digits)));
}

void MabRixResponseGenerator::PutHex(std::uint64_t iNumber, int iDigits)
{
  static const char Hex[] = "0123456789abcdef";
  char Digits[16];
  for (int i = iDigits - 1; i >= 0; --i, iNumber >>= 4)
    Digits[i] = Hex[iNumber & 0xF];
  Put(std::string_view(Digits, static_cast<std::size_t>(iDigits)));
}

void MabRixResponseGenerator::PutEscaped(std::string_view iText)
{
  for (const char c : iText)
    switch (c)
    {
      case '&':
        Put("&amp;");
        break;
      case '<':
        Put("&lt;");
        break;
      case '>':
        Put("&gt;");
        break;
      case '"':
        Put("&quot;");
        break;
      default:
        Put(std::string_view(&c, 1));
    }
}

void MabRixResponseGenerator::Open(std::string_view iName)
{
  ++_Stats._Elements;
  Put("<");
  Put(iName);
}

void MabRixResponseGenerator::Attribute(std::string_view iName, std::string_view iValue)
{
  Put(" ");
  Put(iName);
  Put("=\"");
  PutEscaped(iValue);
  Put("\"");
}

void MabRixResponseGenerator::AttributeNumber(std::string_view iName, std::string_view iPrefix, std::uint64_t iNumber)
{
  Put(" ");
  Put(iName);
  Put("=\"");
  Put(iPrefix);
  PutNumber(iNumber);
  Put("\"");
}

void MabRixResponseGenerator::TextElement(std::string_view iName, std::string_view iText)
{
  Open(iName);
  Put(">");
  PutEscaped(iText);
  Put("</");
  Put(iName);
  Put(">\n");
}

// <attribute><name>N</name><value type="enforced">V</value></attribute>
void MabRixResponseGenerator::AttributeElement(std::string_view iName, std::string_view iValue, bool iEnforced)
{
  Open("attribute");
  Put(">");
  TextElement("name", iName);
  Open("value");
  if (iEnforced)
    Put(" type=\"Enforced\"");
  Put(">");
  PutEscaped(iValue);
  Put("</value>\n</attribute>\n");
}

std::string MabRixResponseGenerator::CadId(std::uint64_t iIndex)
{
  std::string Id = "cad-";
  static const char Hex[] = "0123456789abcdef";
  for (int Shift = 44; Shift >= 0; Shift -= 4)
    Id += Hex[(iIndex >> Shift) & 0xF];
  return Id;
}

// Server object ids look like 41952.38114.21870.6093: four numbers derived
// from the key, so the same key always gives the same id.
std::string MabRixResponseGenerator::BusId(std::uint64_t iIndex)
{
  std::string Id;
  const std::uint64_t Parts[4] = {20000 + iIndex % 40000, 10000 + (iIndex / 40000) % 50000, 3000 + iIndex % 997,
                                  iIndex};
  for (int i = 0; i < 4; ++i)
  {
    if (i)
      Id += '.';
    Id += std::to_string(Parts[i]);
  }
  return Id;
}

void MabRixResponseGenerator::PutBusId(std::uint64_t iKey, unsigned iSalt)
{
  _Scratch = BusId(iKey * 4 + iSalt);
  Put(_Scratch);
}

void MabRixResponseGenerator::PutUuid(std::uint64_t iKey)
{
  const std::uint64_t High = iKey * 0x9E3779B97F4A7C15ull + 0x5bd1e995;
  const std::uint64_t Low = iKey ^ 0xC2B2AE3D27D4EB4Full;
  PutHex(High >> 32, 8);
  Put("-");
  PutHex(High >> 16, 4);
  Put("-4");
  PutHex(High, 3);
  Put("-a");
  PutHex(Low >> 48, 3);
  Put("-");
  PutHex(Low, 12);
}

void MabRixResponseGenerator::PutObjectName(std::uint64_t iKey)
{
  Put(FamilyOf(iKey)._Prefix);
  char Digits[8];
  std::uint64_t Number = iKey;
  for (int i = 6; i >= 0; --i, Number /= 10)
    Digits[i] = static_cast<char>('0' + Number % 10);
  Put(std::string_view(Digits, 7));
}

// One object of an object list: 14 attributes, 7 child elements (the last an
// attribute element with a name and a value).
void MabRixResponseGenerator::ObjectListRecord(std::uint64_t iKey)
{
  const Family& F = FamilyOf(iKey);
  const std::uint64_t Version = 1 + Pick(9);
  const bool Locked = Pick(4) == 0;
  const bool Dotted = Pick(10) == 0;  // revision with a dot of its own: A.1.3
  const char Revision = RevisionLetter(iKey);
  Open("cadobject");
  Put(" busid=\"");
  PutBusId(iKey, 0);
  Put("\"");
  Attribute("bustype", F._BusType);
  Put(" cadid=\"");
  Put(CadId(iKey));
  Put("\"");
  Attribute("locker", Locked ? Users[Pick(Users.size())] : "");
  Attribute("zqtype", F._Type);
  Put(" zqversion=\"");
  Put(std::string_view(&Revision, 1));
  if (Dotted)
    Put(".1");
  Put(".");
  PutNumber(Version);
  Put("\" name=\"");
  PutObjectName(iKey);
  Put("\" oid=\"");
  PutBusId(iKey, 1);
  Put("\"");
  Attribute("type", F._CadType);
  Put(" uuid=\"");
  PutUuid(iKey);
  Put("\"");
  Attribute("islocked", Locked ? TrueTexts[Pick(3)] : TrueTexts[3 + Pick(2)]);
  if (Pick(4) == 0)
  {
    Put(" dirname=\"[ALIAS|");
    Put(Aliases[Pick(Aliases.size())]);
    Put("]\"");
  }
  else
  {
    Put(" dirname=\"/vault/projects/p");
    PutNumber(iKey % 500);
    Put("\"");
  }
  Put(" filename=\"");
  PutObjectName(iKey);
  Put(F._Extension);
  Put("\"");
  // The fourteenth attribute is an extra one; a renamed object says so, and
  // its attribute element repeats the key (the XML attribute wins).
  const bool Renamed = Pick(8) == 0;
  if (Renamed)
  {
    Put(" renamedfrom=\"OLD-");
    PutNumber(iKey);
    Put("\"");
  }
  else
    Attribute("description", Materials[Pick(Materials.size())]);
  Put(">\n");
  Open("Name");
  Put(">");
  PutObjectName(iKey);
  Put("</Name>\n");
  TextElement("Type", F._Type);
  TextElement("Rev", std::string_view(&Revision, 1));
  Open("Ver");
  Put(">");
  PutNumber(Version);
  Put("</Ver>\n");
  TextElement("State", States[Pick(States.size())]);
  Open("preview");
  Put(">/thumbnails/");
  Put(CadId(iKey));
  Put(".png</preview>\n");
  if (Renamed)
    AttributeElement("renamedfrom", "ignored: the XML attribute wins", false);
  else
    AttributeElement("Material", Materials[Pick(Materials.size())], Pick(3) == 0);
  Put("</cadobject>\n");
}

// One object of an object-details answer, with its revision records.
void MabRixResponseGenerator::ObjectDetailsRecord(std::uint64_t iKey)
{
  const Family& F = FamilyOf(iKey);
  const char Revision = RevisionLetter(iKey);
  const char NextRevision = static_cast<char>(Revision + 1);
  const std::uint64_t Version = 1 + Pick(9);
  const bool Locked = Pick(4) == 0;
  const char* Locker = Locked ? Users[Pick(Users.size())] : "";
  Open("cadobject");
  Attribute("type", F._CadType);
  Put(" name=\"");
  PutObjectName(iKey);
  Put("\"");
  if (Pick(8) == 0)  // the server gives no revision: the business revision tells it
  {
    Put(" zqrevision=\"--\" busrevision=\"");
    Put(std::string_view(&Revision, 1));
    Put(".");
    PutNumber(Version);
    Put("\"");
  }
  else
    Attribute("zqrevision", std::string_view(&Revision, 1));
  Attribute("bustype", F._BusType);
  Put(" zqversion=\"");
  Put(std::string_view(&Revision, 1));
  Put(".");
  PutNumber(Version);
  Put("\"");
  Attribute("status", Locked ? "Checked Out" : "Checked In");
  Attribute("lockedby", Locker);
  Attribute("islocked", Locked ? TrueTexts[Pick(3)] : TrueTexts[3 + Pick(2)]);
  Attribute("connectedfolder", Folders[Pick(Folders.size())]);
  Put(" oid=\"");
  PutBusId(iKey, 2);
  Put("\" uuid=\"");
  PutUuid(iKey);
  Put("\"");
  Attribute("uuidconflict", Pick(50) == 0 ? "true" : "false");
  if (Pick(3) == 0)
  {
    Put(" filenamewithpath=\"/vault/projects/p");
    PutNumber(iKey % 500);
    Put("/");
    PutObjectName(iKey);
    Put(F._Extension);
    Put("\"");
  }
  else
  {
    AttributeNumber("dirname", "/vault/projects/p", iKey % 500);
    Put(" filename=\"");
    PutObjectName(iKey);
    Put(F._Extension);
    Put("\"");
  }
  Attribute("modified", Pick(5) == 0 ? "true" : "false");
  Attribute("ismodifiedobsolete", "false");
  Put(">\n");
  Open("revisioninfolist");
  Put(">\n");
  Open("revisioninfo");
  Attribute("revision", std::string_view(&Revision, 1));
  Put(" nextversion=\"");
  Put(std::string_view(&Revision, 1));
  Put(".");
  PutNumber(Version + 1);
  Put("\"");
  Attribute("lockedby", Locker);
  Attribute("lockstatus", Locked ? "Locked" : "unlocked");
  Attribute("overwriteaccess", Locked ? "false" : "true");
  Attribute("versionaccess", "true");
  Put(">");
  TextElement("message", Locked ? "Locked by another user" : "");
  Put("</revisioninfo>\n");
  Open("revisioninfo");
  Put(" revision=\"Next\" nextversion=\"");
  Put(std::string_view(&NextRevision, 1));
  Put(".1\"");
  Attribute("overwriteaccess", "false");
  Attribute("versionaccess", "true");
  Put(">");
  TextElement("message", "");
  Put("</revisioninfo>\n</revisioninfolist>\n");
  Open("accessinfo");
  Put(">");
  Open("access");
  Attribute("revision", std::string_view(&Revision, 1));
  Put(" nextversion=\"");
  Put(std::string_view(&Revision, 1));
  Put(".");
  PutNumber(Version + 1);
  Put("\"");
  Attribute("overwriteaccess", Locked ? "false" : "true");
  Attribute("versionaccess", "true");
  Put("/></accessinfo>\n");
  TextElement("Type", F._Type);
  TextElement("State", States[Pick(States.size())]);
  TextElement("Lock", Locked ? "true" : "false");
  TextElement("LockedBy", Locker);
  Put("</cadobject>\n");
}

// One row of a custom query: six attributes, the content read as an object's.
void MabRixResponseGenerator::CustomQueryRecord(std::uint64_t iKey)
{
  const Family& F = FamilyOf(iKey);
  const char Revision = RevisionLetter(iKey);
  const bool Locked = Pick(4) == 0;
  Open("row");
  Put(" rowid=\"");
  Put(CadId(iKey));
  Put("\" oid=\"");
  PutBusId(iKey, 1);
  Put("\"");
  Attribute("cadtype", F._CadType);
  if (Pick(10) != 0)  // a few rows name the object only in their content
  {
    Put(" name=\"");
    PutObjectName(iKey);
    Put("\"");
  }
  Attribute("revision", std::string_view(&Revision, 1));
  Attribute("type", F._Type);
  Put(">\n");
  Open("Name");
  Put(">");
  PutObjectName(iKey);
  Put("</Name>\n");
  Open("Ver");
  Put(">");
  PutNumber(1 + Pick(9));
  Put("</Ver>\n");
  TextElement("State", States[Pick(States.size())]);
  TextElement("Lock", Locked ? TrueTexts[Pick(3)] : "false");
  TextElement("LockedBy", Locked ? Users[Pick(Users.size())] : "");
  TextElement("CustomName", "Query result");
  Open("preview");
  Put(">/thumbnails/");
  Put(CadId(iKey));
  Put(".png</preview>\n");
  AttributeElement("Material", Materials[Pick(Materials.size())], false);
  Put("</row>\n");
}

void MabRixResponseGenerator::StructureObject(std::uint64_t iKey, bool iWithRelationship)
{
  Open("cadobject");
  Put(" cadid=\"");
  Put(CadId(iKey));
  Put("\">\n");
  if (iWithRelationship)
  {
    Open("relationship");
    AttributeNumber("rid", "rel-", iKey);
    Put("/>\n");
  }
}

void MabRixResponseGenerator::RelationshipRecord(std::uint64_t iKey)
{
  const std::uint64_t Quantity = 1 + Pick(4);
  Open("relationship");
  Attribute("cadrelationship", RelationshipKinds[Pick(RelationshipKinds.size())]);
  AttributeNumber("rid", "rel-", iKey);
  Put(" parent=\"");
  Put(CadId(iKey / 8));
  Put("\" child=\"");
  Put(CadId(iKey));
  Put("\"");
  AttributeNumber("quantity", "", Quantity);
  Attribute("suppressed", Pick(10) == 0 ? "true" : "false");
  Put(">\n");
  AttributeElement("quantity", "ignored: the XML attribute wins", false);  // repeated key
  AttributeElement("referencedesignator", "R1", false);
  Put("</relationship>\n");
}

void MabRixResponseGenerator::WorkspaceRecord(std::uint64_t iKey)
{
  Open("row");
  AttributeNumber("rowid", "", iKey + 1);
  Put(" oid=\"");
  PutBusId(iKey, 3);
  Put("\"");
  // Names repeat now and then: the first workspace of a name wins.
  AttributeNumber("name", "Workspace ", Pick(20) == 0 ? iKey / 2 : iKey);
  Attribute("revision", "-");
  Attribute("type", "Workspace");
  Put("/>\n");
}

void MabRixResponseGenerator::CollectionRecord(std::uint64_t iKey)
{
  Open("row");
  Put(">");
  Open("name");
  Put(">Collection ");
  PutNumber(iKey);
  Put("</name>");
  Open("description");
  Put(">Parts of project P-");
  PutNumber(iKey % 500);
  Put(", ");
  Put(Materials[Pick(Materials.size())]);
  Put("</description></row>\n");
}

void MabRixResponseGenerator::OverwriteFileRecord(std::uint64_t iKey)
{
  Open("filedetails");
  Put(" busid=\"");
  PutBusId(iKey, 0);
  Put("\" filename=\"/vault/projects/p");
  PutNumber(iKey % 500);
  Put("/");
  PutObjectName(iKey);
  Put(FamilyOf(iKey)._Extension);
  Put("\"/>\n");
}

void MabRixResponseGenerator::Records()
{
  for (std::uint64_t i = 0; MoreRecords(i); ++i)
  {
    const std::uint64_t K = Key(i);
    switch (_Options._Kind)
    {
      case MabRixResponseKind::ObjectList:
        ObjectListRecord(K);
        break;
      case MabRixResponseKind::ObjectDetails:
        ObjectDetailsRecord(K);
        break;
      case MabRixResponseKind::CustomQuery:
        CustomQueryRecord(K);
        break;
      case MabRixResponseKind::RelationshipList:
        RelationshipRecord(K);
        break;
      case MabRixResponseKind::WorkspaceList:
        WorkspaceRecord(K);
        break;
      case MabRixResponseKind::CollectionList:
        CollectionRecord(K);
        break;
      case MabRixResponseKind::OverwriteFileList:
        OverwriteFileRecord(K);
        break;
      default:
        return;
    }
    ++_Stats._Records;
  }
}

// Chains of _Depth objects, each object inside the previous one and linked
// to it by a relationship element.
void MabRixResponseGenerator::StructureDeep()
{
  std::uint64_t Written = 0;
  while (MoreRecords(Written))
  {
    unsigned Open = 0;
    for (; Open < _Options._Depth && (Open == 0 || MoreRecords(Written)); ++Open, ++Written)
      StructureObject(Key(Written), Open > 0);
    for (unsigned i = 0; i < Open; ++i)
      Put("</cadobject>\n");
    _Stats._Records += Open;
  }
}

// One root object holding every other one.
void MabRixResponseGenerator::StructureWide()
{
  StructureObject(Key(0), false);
  std::uint64_t Written = 1;
  for (; MoreRecords(Written); ++Written)
  {
    StructureObject(Key(Written), true);
    Put("</cadobject>\n");
  }
  Put("</cadobject>\n");
  _Stats._Records = Written;
}

MabRixGeneratorStats MabRixResponseGenerator::Generate(const MabRixGeneratorSink& iSink)
{
  _pSink = &iSink;
  _Stats = MabRixGeneratorStats();
  _State = _Options._Seed;
  _Buffer.clear();
  _Buffer.reserve(BufferSize);
  const char* List = ListElement(_Options._Kind);
  Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  Open("response");
  Put(" success=\"true\" cname=\"");
  Put(KindName(_Options._Kind));
  Put("\">\n");
  Open(List);
  Put(">\n");
  if (_Options._Kind == MabRixResponseKind::StructureDeep)
    StructureDeep();
  else if (_Options._Kind == MabRixResponseKind::StructureWide)
    StructureWide();
  else
    Records();
  Put("</");
  Put(List);
  Put(">\n</response>\n");
  Flush();
  _pSink = nullptr;
  return _Stats;
}

MabRixGeneratorStats MabRixResponseGenerator::ToString(const MabRixGeneratorOptions& iOptions, std::string& oText)
{
  oText.clear();
  MabRixResponseGenerator Generator(iOptions);
  return Generator.Generate([&](const char* iData, std::size_t iSize) { oText.append(iData, iSize); });
}

MabRixGeneratorStats MabRixResponseGenerator::ToFile(const MabRixGeneratorOptions& iOptions, std::FILE* ipFile)
{
  MabRixResponseGenerator Generator(iOptions);
  return Generator.Generate([&](const char* iData, std::size_t iSize) { std::fwrite(iData, 1, iSize, ipFile); });
}

const char* MabRixResponseGenerator::ListElement(MabRixResponseKind iKind)
{
  switch (iKind)
  {
    case MabRixResponseKind::ObjectList:
      return "objectlist";
    case MabRixResponseKind::ObjectDetails:
      return "objectdetailslist";
    case MabRixResponseKind::CustomQuery:
      return "queryresult";
    case MabRixResponseKind::StructureDeep:
    case MabRixResponseKind::StructureWide:
      return "structure";
    case MabRixResponseKind::RelationshipList:
      return "relationshiplist";
    case MabRixResponseKind::WorkspaceList:
      return "workspacelist";
    case MabRixResponseKind::CollectionList:
      return "collectionlist";
    case MabRixResponseKind::OverwriteFileList:
      return "overwritefilelist";
  }
  return "list";
}

const char* MabRixResponseGenerator::KindName(MabRixResponseKind iKind)
{
  switch (iKind)
  {
    case MabRixResponseKind::ObjectList:
      return "object-list";
    case MabRixResponseKind::ObjectDetails:
      return "object-details";
    case MabRixResponseKind::CustomQuery:
      return "custom-query";
    case MabRixResponseKind::StructureDeep:
      return "structure-deep";
    case MabRixResponseKind::StructureWide:
      return "structure-wide";
    case MabRixResponseKind::RelationshipList:
      return "relationship-list";
    case MabRixResponseKind::WorkspaceList:
      return "workspace-list";
    case MabRixResponseKind::CollectionList:
      return "collection-list";
    case MabRixResponseKind::OverwriteFileList:
      return "overwrite-file-list";
  }
  return "";
}

std::vector<MabRixResponseKind> MabRixResponseGenerator::AllKinds()
{
  return {MabRixResponseKind::ObjectList,    MabRixResponseKind::ObjectDetails,  MabRixResponseKind::CustomQuery,
          MabRixResponseKind::StructureDeep, MabRixResponseKind::StructureWide,  MabRixResponseKind::RelationshipList,
          MabRixResponseKind::WorkspaceList, MabRixResponseKind::CollectionList, MabRixResponseKind::OverwriteFileList};
}

bool MabRixResponseGenerator::KindFromName(std::string_view iName, MabRixResponseKind& oKind)
{
  for (const MabRixResponseKind Kind : AllKinds())
    if (iName == KindName(Kind))
    {
      oKind = Kind;
      return true;
    }
  return false;
}
