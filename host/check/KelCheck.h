/// Check reporting. A check that fails calls KelSysCheckFailure with
/// "ExpressionCheck:" and the expression as written, the source file and the
/// line; the answer decides whether the operation goes on (non-zero) or stops
/// (0). Answers come from a reporter the application installs for its thread
/// with KelCheckReporterScope; without one the answer is stop and nothing is
/// printed. Ownership, threads, errors: @ref conventions. @file
#ifndef KelCheck_h
#define KelCheck_h

#include <string>

// Check file of a source: its path in the source tree without the extension.
// The build defines it for every source file of the library.
#ifndef KEL_CHECK_FILE
#define KEL_CHECK_FILE __FILE__
#endif

int KelSysCheckFailure(const char* iText, int, int, int, const char* iFile, int iLine);
void KelFatalError(const char* iText, int, int, int, const char* iFile, int iLine);

/// Goes on (true) when iCondition holds or when the reporter answers go on.
#define KelCheckText(iCondition, iText) \
  (static_cast<bool>(iCondition) || ::KelSysCheckFailure(iText, 0, 0, 0, KEL_CHECK_FILE, __LINE__) != 0)
#define KelCheck(iExpression) KelCheckText(iExpression, "ExpressionCheck:" #iExpression)
#define KelFatal(iText) ::KelFatalError(iText, 0, 0, 0, KEL_CHECK_FILE, __LINE__)

class KelCheckReporter
{
public:
  virtual ~KelCheckReporter() = default;
  /// Returns 0 to stop the operation, any other value to go on.
  virtual int OnCheckFailure(const char* iText, const char* iFile, int iLine) = 0;
};

class KelFatalErrorHandler
{
public:
  virtual ~KelFatalErrorHandler() = default;
  /// May throw to leave the operation; when it returns, the operation fails.
  virtual void OnFatalError(const char* iText, const char* iFile, int iLine) = 0;
};

/// Installs a reporter for the current thread for the scope's lifetime.
class KelCheckReporterScope
{
public:
  explicit KelCheckReporterScope(KelCheckReporter& iReporter);
  ~KelCheckReporterScope();
  KelCheckReporterScope(const KelCheckReporterScope&) = delete;
  KelCheckReporterScope& operator=(const KelCheckReporterScope&) = delete;

private:
  KelCheckReporter* _pPrevious;
};

/// Installs a fatal-error handler for the current thread. Without one, a
/// fatal error prints its text and aborts.
class KelFatalErrorScope
{
public:
  explicit KelFatalErrorScope(KelFatalErrorHandler& iHandler);
  ~KelFatalErrorScope();
  KelFatalErrorScope(const KelFatalErrorScope&) = delete;
  KelFatalErrorScope& operator=(const KelFatalErrorScope&) = delete;

private:
  KelFatalErrorHandler* _pPrevious;
};

#endif
