// The command line of rixsax: what to read and how to build the handlers.
#ifndef RixsaxOptions_h
#define RixsaxOptions_h

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// One HANDLER FILE pair of the command line.
struct RixsaxStepRequest
{
  std::string _Handler;
  std::string _File;  // "-" is the standard input
};

enum class RixsaxOutputFormat
{
  Json,
  Text,  // YAML
  Summary,
  Dot  // a Graphviz graph of the object model
};

struct RixsaxOptions
{
  std::vector<RixsaxStepRequest> _Steps;
  std::string _At;  // element where the handler starts; empty: the document element

  // Separators of the delimited handlers and formats.
  std::string _FirstSeparator = ";";
  std::string _SecondSeparator = "=";
  std::string _ListSeparator = ",";

  std::string _Item;                                             // xml-string-list
  std::optional<std::pair<std::string, std::string>> _KeyValue;  // xml-string-map key/value mode
  std::string _ValueFormat;                                      // attribute, one format (a kind name)
  std::vector<std::pair<std::string, std::string>> _FormatFor;   // attribute, name to kind
  int _RootLevel = 0;                                            // structure
  bool _LockSuccess = true;                                      // lock-unlock
  std::string _ElementKind;                                      // ui-element
  std::optional<bool> _CanResolveUUIDConflict;                   // object-details: a response is given when set

  bool _ContinueOnCheck = false;  // the check reporter's answer
  bool _StopOnFailure = false;    // the parser stops at the first failed callback
  RixsaxOutputFormat _Format = RixsaxOutputFormat::Json;
  bool _Trace = false;
  std::optional<bool> _Progress;   // --progress / --no-progress; unset: by file size and terminal
  unsigned _Jobs = 0;              // check: files read at the same time; 0: the number of cores
  std::size_t _MaxRecords = 1000;  // entries kept of each list of a step
};

enum class RixsaxCommand
{
  Read,
  Check,
  Handlers,
  Exit  // --help, --version or a usage error: nothing more to do
};

struct RixsaxCommandLine
{
  RixsaxCommand _Command = RixsaxCommand::Exit;
  RixsaxOptions _Options;
  int _ExitCode = 0;  // for RixsaxCommand::Exit
};

// Parses the command line; help, version and usage errors are printed here.
RixsaxCommandLine RixsaxParseCommandLine(int iArgc, const char* const* iArgv);
// "rixsax VERSION", the version of the library it reads with.
std::string RixsaxVersionText();

#endif
