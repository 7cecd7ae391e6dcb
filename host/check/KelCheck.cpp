#include "KelCheck.h"

#include <cstdio>
#include <cstdlib>

namespace
{
thread_local KelCheckReporter* tpReporter = nullptr;
thread_local KelFatalErrorHandler* tpFatalHandler = nullptr;
}  // namespace

int KelSysCheckFailure(const char* iText, int, int, int, const char* iFile, int iLine)
{
  return tpReporter ? tpReporter->OnCheckFailure(iText, iFile, iLine) : 0;
}

void KelFatalError(const char* iText, int, int, int, const char* iFile, int iLine)
{
  if (tpFatalHandler)
  {
    tpFatalHandler->OnFatalError(iText, iFile, iLine);
    return;
  }
  std::fprintf(stderr, "%s (%s:%d)\n", iText ? iText : "", iFile ? iFile : "", iLine);
  std::abort();
}

KelCheckReporterScope::KelCheckReporterScope(KelCheckReporter& iReporter) : _pPrevious(tpReporter)
{
  tpReporter = &iReporter;
}

KelCheckReporterScope::~KelCheckReporterScope() { tpReporter = _pPrevious; }

KelFatalErrorScope::KelFatalErrorScope(KelFatalErrorHandler& iHandler) : _pPrevious(tpFatalHandler)
{
  tpFatalHandler = &iHandler;
}

KelFatalErrorScope::~KelFatalErrorScope() { tpFatalHandler = _pPrevious; }
