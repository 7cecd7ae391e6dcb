/// Error objects and the per-thread last error. An operation that fails with an error
/// object records it through GetReturn; the application reads it after the parse with
/// KelGetLastError and clears it with KelCleanLastError. A recorded error stays until it
/// is cleaned or replaced by GetReturn, so the first error of a failing chain is the one
/// later steps find and pass on. Ownership, threads, errors: @ref conventions. @file
#ifndef KelError_h
#define KelError_h

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"

class KelError : public KelBaseUnknown
{
  KelDeclareClass

public:
  KelError(const char* iKey, const char* iCatalog);

  const KelUnicodeString& GetMessageKey() const { return _Key; }
  const KelUnicodeString& GetMessageCatalog() const { return _Catalog; }
  const KelUnicodeStringList& GetParameters() const { return _Parameters; }
  void SetParameters(const KelUnicodeStringList& iParameters) { _Parameters = iParameters; }
  /// The catalog's text for the key, parameters substituted for /p1, /p2...
  virtual KelUnicodeString GetNLSMessage() const;

  HRESULT GetReturnCode() const { return _ReturnCode; }
  const KelUnicodeString& GetSourceFile() const { return _SourceFile; }
  int GetSourceLine() const { return _SourceLine; }

  /// Kind 1 (success): returns S_OK. Kind 2 (error): records ipError as the
  /// thread's last error with the place it was raised and returns E_FAIL.
  static HRESULT GetReturn(int iKind, KelError* ipError, void*, const char* iFile, int iLine);
  /// The recorded error when iResult is a failure, with a new reference the
  /// caller releases; null when there is none.
  static KelError* KelGetLastError(HRESULT iResult, void* = nullptr);
  static void KelCleanLastError();

private:
  KelUnicodeString _Key;
  KelUnicodeString _Catalog;
  KelUnicodeStringList _Parameters;
  HRESULT _ReturnCode = KelResult::Fail;
  KelUnicodeString _SourceFile;
  int _SourceLine = 0;
};

class MabRixError : public KelError
{
  KelDeclareClass

public:
  MabRixError(const char* iKey, const char* iCatalog) : KelError(iKey, iCatalog) {}
};

HRESULT RixSuccessInit();

/// The unexpected-error result: 0 and E_UNEXPECTED become E_FAIL; a pending
/// error supplies the code; otherwise a MabRixError "Unexpected" of
/// "MabRixIntegration" is recorded with the raising file and line.
HRESULT MabRixUnexpectedError(HRESULT iCode, const char* iFile, int iLine);
#define MabRixRaiseUnexpected(iCode) ::MabRixUnexpectedError(iCode, KEL_CHECK_FILE, __LINE__)

#endif
