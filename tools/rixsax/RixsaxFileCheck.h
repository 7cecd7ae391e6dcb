// A path given as FILE that cannot be read at all (a directory, a missing or
// unreadable file) is told as such before any parser sees it.
#ifndef RixsaxFileCheck_h
#define RixsaxFileCheck_h

#include <optional>
#include <string>

#include "RixsaxStep.h"

// Why iFile cannot be read, when the parser would not say it clearly (a
// directory); nothing otherwise.
std::optional<std::string> RixsaxWhyUnreadable(const std::string& iFile);

// The step of iFile: read through the handler, or, when the file cannot be
// read, a step that says why in its parse error (no position).
RixsaxStepRecord RixsaxReadStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile);

#endif
