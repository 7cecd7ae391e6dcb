// Deterministic server responses of any size, for benchmarks and load tests.
// The generator streams: it keeps one small buffer and hands it to a sink
// whenever it fills, so a response of several gigabytes never sits in memory.
// The same options always give the same bytes.
#ifndef MabRixResponseGenerator_h
#define MabRixResponseGenerator_h

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

enum class MabRixResponseKind
{
  ObjectList,        // cadobject elements: attributes, text elements, attribute elements, preview
  ObjectDetails,     // cadobject elements with revisioninfo/access records
  CustomQuery,       // query rows read by an object attribute handler
  StructureDeep,     // nested cadobject chains with relationship elements
  StructureWide,     // one root cadobject holding every other object
  RelationshipList,  // relationship elements with attribute children
  WorkspaceList,     // empty row elements carrying attributes
  CollectionList,    // rows with name and description elements
  OverwriteFileList  // filedetails elements whose busid may repeat
};

struct MabRixGeneratorOptions
{
  MabRixResponseKind _Kind = MabRixResponseKind::ObjectList;
  std::uint64_t _Count = 1000;      // records: objects, rows, relationships, files
  std::uint64_t _Bytes = 0;         // when set: records until the document reaches this size
  std::uint64_t _Seed = 1;          // varies names, versions, flags; not the record keys
  std::uint64_t _DistinctKeys = 0;  // when set: record keys cycle over this many values
  unsigned _Depth = 64;             // StructureDeep: objects per chain
};

struct MabRixGeneratorStats
{
  std::uint64_t _Bytes = 0;
  std::uint64_t _Records = 0;
  std::uint64_t _Elements = 0;  // start tags, the envelope included
};

// Receives the document piece by piece.
typedef std::function<void(const char* iData, std::size_t iSize)> MabRixGeneratorSink;

class MabRixResponseGenerator
{
public:
  explicit MabRixResponseGenerator(const MabRixGeneratorOptions& iOptions);

  // Writes the whole document to the sink.
  MabRixGeneratorStats Generate(const MabRixGeneratorSink& iSink);

  // Convenience sinks.
  static MabRixGeneratorStats ToString(const MabRixGeneratorOptions& iOptions, std::string& oText);
  static MabRixGeneratorStats ToFile(const MabRixGeneratorOptions& iOptions, std::FILE* ipFile);

  // Key of record iIndex as written in the document ("cadid" of an object,
  // "busid" of a file entry): lets a benchmark prepare or check a context.
  static std::string CadId(std::uint64_t iIndex);
  static std::string BusId(std::uint64_t iIndex);

  // The element that holds the records; a handler is started on it.
  static const char* ListElement(MabRixResponseKind iKind);
  static const char* KindName(MabRixResponseKind iKind);
  static bool KindFromName(std::string_view iName, MabRixResponseKind& oKind);
  static std::vector<MabRixResponseKind> AllKinds();

private:
  void Flush();
  void Put(std::string_view iText);
  void PutNumber(std::uint64_t iNumber);
  void PutHex(std::uint64_t iNumber, int iDigits);
  void PutEscaped(std::string_view iText);
  void Open(std::string_view iName);  // "<name", counts the element
  void Attribute(std::string_view iName, std::string_view iValue);
  void AttributeNumber(std::string_view iName, std::string_view iPrefix, std::uint64_t iNumber);
  void TextElement(std::string_view iName, std::string_view iText);
  void AttributeElement(std::string_view iName, std::string_view iValue, bool iEnforced);

  std::uint64_t Random();
  std::uint64_t Pick(std::uint64_t iBound) { return Random() % iBound; }
  std::uint64_t Key(std::uint64_t iIndex) const;
  bool MoreRecords(std::uint64_t iWritten) const;

  void PutBusId(std::uint64_t iKey, unsigned iSalt);
  void PutUuid(std::uint64_t iKey);
  void PutObjectName(std::uint64_t iKey);

  void ObjectListRecord(std::uint64_t iKey);
  void ObjectDetailsRecord(std::uint64_t iKey);
  void CustomQueryRecord(std::uint64_t iKey);
  void StructureObject(std::uint64_t iKey, bool iWithRelationship);
  void RelationshipRecord(std::uint64_t iKey);
  void WorkspaceRecord(std::uint64_t iKey);
  void CollectionRecord(std::uint64_t iKey);
  void OverwriteFileRecord(std::uint64_t iKey);

  void Records();
  void StructureDeep();
  void StructureWide();

  MabRixGeneratorOptions _Options;
  const MabRixGeneratorSink* _pSink = nullptr;
  std::string _Buffer;
  std::string _Scratch;
  MabRixGeneratorStats _Stats;
  std::uint64_t _State = 0;
};

#endif
