// One step of a run: one file read through one handler, and everything the
// command layer can observe of it.
#ifndef RixsaxStep_h
#define RixsaxStep_h

#include <optional>
#include <string>
#include <vector>

#include "KelExpatParser.h"
#include "MabIRixResponse.h"
#include "MabIRixValue.h"

class RixsaxSession;
struct RixsaxHandlerEntry;

struct RixsaxCheckRecord
{
  std::string _Text;
  std::string _File;
  int _Line = 0;
  int _XmlLine = 0;
  int _XmlColumn = 0;
  int _Answer = 0;
};

struct RixsaxErrorRecord
{
  std::string _Key;
  std::string _Catalog;
  std::string _Message;
  std::string _File;
  int _Line = 0;
};

// A change of the parser's document handler.
struct RixsaxTraceRecord
{
  std::string _Handler;  // class name of the handler that takes the parser
  std::string _Element;  // the element that handler reads
  int _XmlLine = 0;
  int _XmlColumn = 0;
};

// A null-reference error, a fatal error or another exception that ended the
// step: the host state after it is not to be trusted.
struct RixsaxHostError
{
  std::string _Kind;  // "null reference", "fatal error", "exception"
  std::string _Message;
  int _XmlLine = 0;
  int _XmlColumn = 0;
};

// Sizes of the contexts a step used, as they stand after it.
struct RixsaxContextCounts
{
  std::size_t _Objects = 0;
  std::size_t _MajorObjects = 0;
  std::size_t _MinorObjects = 0;
  std::size_t _Relationships = 0;
  std::size_t _Relations = 0;
};

struct RixsaxStepRecord
{
  const RixsaxHandlerEntry* _pEntry = nullptr;
  std::string _File;
  bool _Started = false;   // the start element was found
  HRESULT _Result = S_OK;  // the first failed callback's result
  std::vector<MabIRixValue_var> _Values;
  MabIRixResponse_var _spResponse;
  std::vector<RixsaxCheckRecord> _Checks;
  std::optional<RixsaxErrorRecord> _LastError;
  std::vector<KelSAXCallbackFailure> _CallbackFailures;
  std::optional<KelSAXParseError> _ParseError;
  std::vector<RixsaxTraceRecord> _Trace;
  std::optional<RixsaxHostError> _HostError;
  RixsaxContextCounts _ContextCounts;
};

// Reads iFile ("-": the standard input) through the handler of iEntry.
RixsaxStepRecord RixsaxRunStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile);

#endif
