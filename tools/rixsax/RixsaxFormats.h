// The value formats the command layer gives an attribute handler, by kind
// name (string, boolean, string-list, ...). The delimited kinds take the
// separators of the command line.
#ifndef RixsaxFormats_h
#define RixsaxFormats_h

#include <string>
#include <vector>

#include "KelVar.h"
#include "MabRixValueFormat.h"

struct RixsaxOptions;

// The kind names, in the order the help lists them.
const std::vector<std::string>& RixsaxFormatKinds();
// A new format of a kind; null for a kind that is not in the list.
KelVar<MabRixValueFormat> RixsaxMakeFormat(const std::string& iKind, const RixsaxOptions& iOptions);

#endif
