#include "RixsaxOptions.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <stdexcept>

#include "RixsaxFormats.h"
#include "RixsaxRegistry.h"

namespace
{
const char* const Usage =
    "usage: rixsax read [OPTIONS] HANDLER FILE [HANDLER FILE]...\n"
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

std::vector<RixsaxStepRequest> ToSteps(const std::vector<std::string>& iArguments)
{
  if (iArguments.size() % 2 != 0)
    throw UsageError("missing FILE after handler '" + iArguments.back() + "'");
  std::vector<RixsaxStepRequest> Steps;
  for (std::size_t i = 0; i < iArguments.size(); i += 2)
  {
    if (!RixsaxFindHandler(iArguments[i]))
      throw UsageError("unknown handler '" + iArguments[i] + "' (rixsax handlers lists them)");
    Steps.push_back({iArguments[i], iArguments[i + 1]});
  }
  return Steps;
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

RixsaxCommandLine RixsaxParseCommandLine(int iArgc, const char* const* iArgv)
{
  CLI::App App("Reads server responses through the handlers of MabRixCommandModel.", "rixsax");
  App.set_version_flag("--version", "rixsax " RIXSAX_VERSION);
  App.require_subcommand(1, 1);

  CLI::App* pHandlers = App.add_subcommand("handlers", "List the handler names, one a line with a description.");

  CLI::App* pRead = App.add_subcommand("read", "Read each FILE (- is the standard input) through the named handler.");
  RixsaxOptions Options;
  std::vector<std::string> Arguments;
  std::string LockSuccess = "true", CanResolve, OnCheck = "stop", Format = "json";
  std::string Key, Value;
  std::vector<std::string> FormatFor;
  const std::vector<std::string> Booleans = {"true", "false"};

  pRead->add_option("HANDLER FILE", Arguments, "Handler name and file, repeated; the steps share one context")
      ->type_name("")
      ->required();
  pRead->add_option("--at", Options._At, "Start the handler at the first element of this name")->type_name("ELEMENT");
  pRead->add_option("--first-sep", Options._FirstSeparator, "First separator of maps")
      ->type_name("S")
      ->capture_default_str();
  pRead->add_option("--second-sep", Options._SecondSeparator, "Second separator of maps")
      ->type_name("S")
      ->capture_default_str();
  pRead->add_option("--list-sep", Options._ListSeparator, "Separator of lists")->type_name("S")->capture_default_str();
  pRead->add_option("--item", Options._Item, "Item element of xml-string-list")->type_name("NAME");
  CLI::Option* pKey =
      pRead->add_option("--key", Key, "Key element of xml-string-map (key/value mode)")->type_name("NAME");
  CLI::Option* pValue =
      pRead->add_option("--value", Value, "Value element of xml-string-map (key/value mode)")->type_name("NAME");
  pKey->needs(pValue);
  pValue->needs(pKey);
  CLI::Option* pValueFormat = pRead->add_option("--value-format", Options._ValueFormat, "Value format of attribute")
                                  ->type_name("KIND")
                                  ->check(CLI::IsMember(RixsaxFormatKinds()));
  CLI::Option* pFormatFor =
      pRead->add_option("--format-for", FormatFor, "Value format of one attribute name (repeatable): a format map")
          ->type_name("NAME=KIND")
          ->allow_extra_args(false);
  pValueFormat->excludes(pFormatFor);
  pRead->add_option("--root-level", Options._RootLevel, "Root level of structure")
      ->type_name("N")
      ->capture_default_str();
  pRead->add_option("--lock-success", LockSuccess, "Outcome given to lock-unlock")
      ->type_name("true|false")
      ->check(CLI::IsMember(Booleans))
      ->capture_default_str();
  pRead->add_option("--element-kind", Options._ElementKind, "Element kind of ui-element")->type_name("TEXT");
  pRead->add_option("--can-resolve-uuid-conflict", CanResolve, "Give object-details a response answering this")
      ->type_name("true|false")
      ->check(CLI::IsMember(Booleans));
  pRead->add_option("--on-check", OnCheck, "Answer of the check reporter")
      ->type_name("stop|continue")
      ->check(CLI::IsMember({"stop", "continue"}))
      ->capture_default_str();
  pRead->add_flag("--stop-on-failure", Options._StopOnFailure, "Stop parsing at the first failed callback");
  pRead->add_option("--format", Format, "Output format")
      ->type_name("json|text|summary")
      ->check(CLI::IsMember({"json", "text", "summary"}))
      ->capture_default_str();
  pRead->add_flag("--trace", Options._Trace, "Record every change of document handler");

  try
  {
    App.parse(iArgc, iArgv);
    RixsaxCommandLine Line;
    if (pHandlers->parsed())
    {
      Line._Command = RixsaxCommand::Handlers;
      return Line;
    }
    Options._Steps = ToSteps(Arguments);
    Options._FormatFor = ToFormatMap(FormatFor);
    if (pKey->count() > 0)
      Options._KeyValue = std::make_pair(Key, Value);
    Options._LockSuccess = ToFlag(LockSuccess);
    if (!CanResolve.empty())
      Options._CanResolveUUIDConflict = ToFlag(CanResolve);
    Options._ContinueOnCheck = OnCheck == "continue";
    Options._Format = Format == "text"      ? RixsaxOutputFormat::Text
                      : Format == "summary" ? RixsaxOutputFormat::Summary
                                            : RixsaxOutputFormat::Json;
    Line._Command = RixsaxCommand::Read;
    Line._Options = std::move(Options);
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
    std::printf("rixsax %s\n", RIXSAX_VERSION);
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
