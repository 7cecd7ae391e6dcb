#include "RixsaxFileCheck.h"

#include <sys/stat.h>

// Only what the parser's own "cannot open FILE: reason" does not say well:
// a directory opens, and would fail as a read error. A FIFO is not opened
// here, so that its writer is not disturbed.
std::optional<std::string> RixsaxWhyUnreadable(const std::string& iFile)
{
  struct stat Status;
  if (iFile != "-" && ::stat(iFile.c_str(), &Status) == 0 && S_ISDIR(Status.st_mode))
    return "cannot read " + iFile + ": is a directory";
  return std::nullopt;
}

RixsaxStepRecord RixsaxReadStep(RixsaxSession& ioSession, const RixsaxHandlerEntry& iEntry, const std::string& iFile)
{
  const std::optional<std::string> Why = RixsaxWhyUnreadable(iFile);
  if (!Why)
    return RixsaxRunStep(ioSession, iEntry, iFile);
  RixsaxStepRecord Record;
  Record._pEntry = &iEntry;
  Record._File = iFile;
  KelSAXParseError Error;
  Error._Message = KelUnicodeString(*Why);
  Record._ParseError = Error;
  return Record;
}
