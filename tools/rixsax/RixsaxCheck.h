// rixsax check: every file read on its own, with a fresh context, several
// at a time; one line per file in the order of the command line, then a
// total.
#ifndef RixsaxCheck_h
#define RixsaxCheck_h

#include "RixsaxOptions.h"
#include "RixsaxOutput.h"

// Returns the worst exit status of the files.
int RixsaxCheckFiles(const RixsaxOptions& iOptions, RixsaxOutput& ioOutput);

#endif
