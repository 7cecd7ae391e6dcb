#include "RixsaxOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "MabRixVersion.h"
#include "RixsaxFormats.h"
#include "RixsaxNearest.h"
#include "RixsaxRegistry.h"

namespace
{
const char* const Usage =
    "usage: rixsax read [OPTIONS] HANDLER FILE [HANDLER FILE]...\n"
    "       rixsax check [OPTIONS] HANDLER FILE...\n"
    "       rixsax handlers\n"
    "       rixsax --help | --version\n";

// A command line that names what does not exist or misses an argument.
struct UsageError : std::runtime_error
{
  using std::runtime_error::runtime_error;
};

RixsaxCommandLine Exit(int iCode)
{
  RixsaxCommandLine Line;
  Line._ExitCode = iCode;
  return Line;
}

RixsaxCommandLine ReportUsageError(const std::string& iMessage)
{
  std::fprintf(stderr, "rixsax: %s\n%s", iMessage.c_str(), Usage);
  return Exit(2);
}

void CheckHandler(const std::string& iName)
{
  if (RixsaxFindHandler(iName))
    return;
  std::vector<std::string> Names;
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    Names.push_back(Entry._Name);
  throw UsageError("unknown handler '" + iName + "'" + RixsaxDidYouMean(iName, Names) +
                   " (rixsax handlers lists them)");
}

// The standard input can be read once only.
void CheckStandardInput(const std::vector<RixsaxStepRequest>& iSteps)
{
  if (std::count_if(iSteps.begin(), iSteps.end(), [](const RixsaxStepRequest& iStep) { return iStep._File == "-"; }) >
      1)
    throw UsageError("the standard input (-) is named more than once");
}

std::vector<RixsaxStepRequest> ToSteps(const std::vector<std::string>& iArguments)
{
  if (iArguments.size() % 2 != 0)
    throw UsageError("missing FILE after handler '" + iArguments.back() + "'");
  std::vector<RixsaxStepRequest> Steps;
  for (std::size_t i = 0; i < iArguments.size(); i += 2)
  {
    CheckHandler(iArguments[i]);
    Steps.push_back({iArguments[i], iArguments[i + 1]});
  }
  CheckStandardInput(Steps);
  return Steps;
}

// check: one handler, then the files.
std::vector<RixsaxStepRequest> ToChecks(const std::vector<std::string>& iArguments)
{
  if (iArguments.size() < 2)
    throw UsageError("check takes a HANDLER and at least one FILE");
  CheckHandler(iArguments.front());
  std::vector<RixsaxStepRequest> Steps;
  for (std::size_t i = 1; i < iArguments.size(); ++i)
    Steps.push_back({iArguments.front(), iArguments[i]});
  CheckStandardInput(Steps);
  return Steps;
}

const std::vector<std::string>& Commands()
{
  static const std::vector<std::string> Names = {"read", "check", "handlers"};
  return Names;
}

// The first word that is not an option names the command; a word that is
// none gets the nearest names.
void CheckCommand(int iArgc, const char* const* iArgv)
{
  for (int i = 1; i < iArgc; ++i)
  {
    const std::string Word = iArgv[i];
    if (!Word.empty() && Word.front() == '-')
      continue;
    if (std::find(Commands().begin(), Commands().end(), Word) == Commands().end())
      throw UsageError("unknown command '" + Word + "'" + RixsaxDidYouMean(Word, Commands()));
    return;
  }
}

std::vector<std::pair<std::string, std::string>> ToFormatMap(const std::vector<std::string>& iPairs)
{
  std::vector<std::pair<std::string, std::string>> Map;
  for (const std::string& Pair : iPairs)
  {
    const std::size_t Equal = Pair.rfind('=');
    if (Equal == std::string::npos || Equal == 0)
      throw UsageError("--format-for takes NAME=KIND, not '" + Pair + "'");
    const std::string Kind = Pair.substr(Equal + 1);
    const std::vector<std::string>& Kinds = RixsaxFormatKinds();
    if (std::find(Kinds.begin(), Kinds.end(), Kind) == Kinds.end())
      throw UsageError("unknown value format '" + Kind + "' in --format-for " + Pair);
    Map.emplace_back(Pair.substr(0, Equal), Kind);
  }
  return Map;
}

bool ToFlag(const std::string& iText) { return iText == "true"; }
}  // namespace

namespace
{
// What the command line gives as text and is turned into options after
// parsing.
struct RawOptions
{
  std::vector<std::string> _Arguments;
  std::string _LockSuccess = "true";
  std::string _CanResolve;
  std::string _OnCheck = "stop";
  std::string _Key;
  std::string _Value;
  std::vector<std::string> _FormatFor;
  CLI::Option* _pKey = nullptr;
};

// The options that build the handlers, the same for read and check.
void AddHandlerOptions(CLI::App& ioCommand, RixsaxOptions& oOptions, RawOptions& oRaw)
{
  const std::vector<std::string> Booleans = {"true", "false"};
  ioCommand.add_option("--at", oOptions._At, "Start the handler at the first element of this name")
      ->type_name("ELEMENT");
  ioCommand.add_option("--first-sep", oOptions._FirstSeparator, "First separator of maps")
      ->type_name("S")
      ->capture_default_str();
  ioCommand.add_option("--second-sep", oOptions._SecondSeparator, "Second separator of maps")
      ->type_name("S")
      ->capture_default_str();
  ioCommand.add_option("--list-sep", oOptions._ListSeparator, "Separator of lists")
      ->type_name("S")
      ->capture_default_str();
  ioCommand.add_option("--item", oOptions._Item, "Item element of xml-string-list")->type_name("NAME");
  oRaw._pKey =
      ioCommand.add_option("--key", oRaw._Key, "Key element of xml-string-map (key/value mode)")->type_name("NAME");
  CLI::Option* pValue =
      ioCommand.add_option("--value", oRaw._Value, "Value element of xml-string-map (key/value mode)")
          ->type_name("NAME");
  oRaw._pKey->needs(pValue);
  pValue->needs(oRaw._pKey);
  CLI::Option* pValueFormat =
      ioCommand.add_option("--value-format", oOptions._ValueFormat, "Value format of attribute")
          ->type_name("KIND")
          ->check(CLI::IsMember(RixsaxFormatKinds()));
  CLI::Option* pFormatFor =
      ioCommand
          .add_option("--format-for", oRaw._FormatFor, "Value format of one attribute name (repeatable): a format map")
          ->type_name("NAME=KIND")
          ->allow_extra_args(false);
  pValueFormat->excludes(pFormatFor);
  ioCommand.add_option("--root-level", oOptions._RootLevel, "Root level of structure")
      ->type_name("N")
      ->capture_default_str();
  ioCommand.add_option("--lock-success", oRaw._LockSuccess, "Outcome given to lock-unlock")
      ->type_name("true|false")
      ->check(CLI::IsMember(Booleans))
      ->capture_default_str();
  ioCommand.add_option("--element-kind", oOptions._ElementKind, "Element kind of ui-element")->type_name("TEXT");
  ioCommand
      .add_option("--can-resolve-uuid-conflict", oRaw._CanResolve, "Give object-details a response answering this")
      ->type_name("true|false")
      ->check(CLI::IsMember(Booleans));
  ioCommand.add_option("--on-check", oRaw._OnCheck, "Answer of the check reporter")
      ->type_name("stop|continue")
      ->check(CLI::IsMember({"stop", "continue"}))
      ->capture_default_str();
  ioCommand.add_flag("--stop-on-failure", oOptions._StopOnFailure, "Stop parsing at the first failed callback");
}

void AddProgressOptions(CLI::App& ioCommand, RixsaxOptions& oOptions)
{
  ioCommand.add_flag_function(
      "--progress,!--no-progress", [&oOptions](std::int64_t iCount) { oOptions._Progress = iCount > 0; },
      "Show (or never show) a progress line on the standard error; default: for files over 64 MiB when the "
      "standard error is a terminal");
}

void Finish(RixsaxOptions& ioOptions, const RawOptions& iRaw)
{
  ioOptions._FormatFor = ToFormatMap(iRaw._FormatFor);
  if (iRaw._pKey->count() > 0)
    ioOptions._KeyValue = std::make_pair(iRaw._Key, iRaw._Value);
  ioOptions._LockSuccess = ToFlag(iRaw._LockSuccess);
  if (!iRaw._CanResolve.empty())
    ioOptions._CanResolveUUIDConflict = ToFlag(iRaw._CanResolve);
  ioOptions._ContinueOnCheck = iRaw._OnCheck == "continue";
}

RixsaxOutputFormat ToFormat(const std::string& iFormat)
{
  return iFormat == "text"      ? RixsaxOutputFormat::Text
         : iFormat == "summary" ? RixsaxOutputFormat::Summary
         : iFormat == "dot"     ? RixsaxOutputFormat::Dot
                                : RixsaxOutputFormat::Json;
}
}  // namespace

RixsaxCommandLine RixsaxParseCommandLine(int iArgc, const char* const* iArgv)
{
  CLI::App App("Reads server responses through the handlers of MabRixCommandModel.", "rixsax");
  App.set_version_flag("--version", RixsaxVersionText());
  App.require_subcommand(1, 1);

  CLI::App* pHandlers = App.add_subcommand("handlers", "List the handler names, one a line with a description.");

  CLI::App* pRead = App.add_subcommand("read", "Read each FILE (- is the standard input) through the named handler.");
  RixsaxOptions ReadOptions;
  RawOptions ReadRaw;
  std::string ReadFormat = "json";
  pRead->add_option("HANDLER FILE", ReadRaw._Arguments, "Handler name and file, repeated; the steps share one context")
      ->type_name("")
      ->required();
  AddHandlerOptions(*pRead, ReadOptions, ReadRaw);
  pRead->add_option("--format", ReadFormat, "Output format")
      ->type_name("json|text|summary|dot")
      ->check(CLI::IsMember({"json", "text", "summary", "dot"}))
      ->capture_default_str();
  pRead->add_flag("--trace", ReadOptions._Trace, "Record every change of document handler");
  pRead
      ->add_option("--max-records", ReadOptions._MaxRecords,
                   "Values, checks, callback failures and trace entries kept per step (the rest are counted)")
      ->type_name("N")
      ->capture_default_str();
  AddProgressOptions(*pRead, ReadOptions);

  CLI::App* pCheck =
      App.add_subcommand("check", "Read every FILE on its own (a fresh context each) and print one line per file.");
  RixsaxOptions CheckOptions;
  RawOptions CheckRaw;
  std::string CheckFormat = "text";
  pCheck->add_option("HANDLER FILE", CheckRaw._Arguments, "Handler name, then the files")->type_name("")->required();
  AddHandlerOptions(*pCheck, CheckOptions, CheckRaw);
  pCheck->add_option("--format", CheckFormat, "Output format: lines, or JSON Lines")
      ->type_name("text|json")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  pCheck->add_option("-j,--jobs", CheckOptions._Jobs, "Files read at the same time (default: the number of cores)")
      ->type_name("N")
      ->check(CLI::Range(1, 1024));

  try
  {
    CheckCommand(iArgc, iArgv);
    App.parse(iArgc, iArgv);
    RixsaxCommandLine Line;
    if (pHandlers->parsed())
    {
      Line._Command = RixsaxCommand::Handlers;
      return Line;
    }
    if (pCheck->parsed())
    {
      CheckOptions._Steps = ToChecks(CheckRaw._Arguments);
      Finish(CheckOptions, CheckRaw);
      CheckOptions._Format = ToFormat(CheckFormat);
      Line._Command = RixsaxCommand::Check;
      Line._Options = std::move(CheckOptions);
      return Line;
    }
    ReadOptions._Steps = ToSteps(ReadRaw._Arguments);
    Finish(ReadOptions, ReadRaw);
    ReadOptions._Format = ToFormat(ReadFormat);
    Line._Command = RixsaxCommand::Read;
    Line._Options = std::move(ReadOptions);
    return Line;
  }
  catch (const CLI::CallForHelp&)
  {
    std::fputs(App.help().c_str(), stdout);
    return Exit(0);
  }
  catch (const CLI::CallForAllHelp&)
  {
    std::fputs(App.help("", CLI::AppFormatMode::All).c_str(), stdout);
    return Exit(0);
  }
  catch (const CLI::CallForVersion&)
  {
    std::printf("%s\n", RixsaxVersionText().c_str());
    return Exit(0);
  }
  catch (const CLI::ParseError& Error)
  {
    return ReportUsageError(Error.what());
  }
  catch (const UsageError& Error)
  {
    return ReportUsageError(Error.what());
  }
}

std::string RixsaxVersionText() { return std::string("rixsax ") + MabRixGetVersion(); }
