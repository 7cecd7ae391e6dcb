#include "RixsaxFormats.h"

#include <functional>
#include <utility>

#include "MabRixBooleanValueFormat.h"
#include "MabRixStringListMapValueFormat.h"
#include "MabRixStringListValueFormat.h"
#include "MabRixStringMapValueFormat.h"
#include "MabRixStringValueFormat.h"
#include "RixsaxOptions.h"

namespace
{
typedef std::function<MabRixValueFormat*(const RixsaxOptions& iOptions)> FormatFactory;

KelUnicodeString Text(const std::string& iText) { return KelUnicodeString(iText); }

const std::vector<std::pair<std::string, FormatFactory>>& Factories()
{
  static const std::vector<std::pair<std::string, FormatFactory>> Table = {
      {"string", [](const RixsaxOptions&) -> MabRixValueFormat* { return new MabRixStringValueFormat(); }},
      {"boolean", [](const RixsaxOptions&) -> MabRixValueFormat* { return new MabRixBooleanValueFormat(); }},
      {"string-list",
       [](const RixsaxOptions& iOptions) -> MabRixValueFormat* {
         return new MabRixStringListValueFormat(Text(iOptions._ListSeparator));
       }},
      {"string-map",
       [](const RixsaxOptions& iOptions) -> MabRixValueFormat* {
         return new MabRixStringMapValueFormat(Text(iOptions._FirstSeparator), Text(iOptions._SecondSeparator));
       }},
      {"xml-string-map", [](const RixsaxOptions&) -> MabRixValueFormat* { return new MabRixStringMapValueFormat(); }},
      {"string-list-map",
       [](const RixsaxOptions& iOptions) -> MabRixValueFormat* {
         return new MabRixStringListMapValueFormat(Text(iOptions._FirstSeparator), Text(iOptions._SecondSeparator),
                                                   Text(iOptions._ListSeparator));
       }},
      {"xml-string-list-map",
       [](const RixsaxOptions& iOptions) -> MabRixValueFormat* {
         return new MabRixStringListMapValueFormat(Text(iOptions._ListSeparator));
       }},
  };
  return Table;
}
}  // namespace

const std::vector<std::string>& RixsaxFormatKinds()
{
  static const std::vector<std::string> Kinds = [] {
    std::vector<std::string> Names;
    for (const auto& Entry : Factories())
      Names.push_back(Entry.first);
    return Names;
  }();
  return Kinds;
}

KelVar<MabRixValueFormat> RixsaxMakeFormat(const std::string& iKind, const RixsaxOptions& iOptions)
{
  for (const auto& Entry : Factories())
    if (Entry.first == iKind)
      return KelVar<MabRixValueFormat>::Adopt(Entry.second(iOptions));
  return nullptr;
}
