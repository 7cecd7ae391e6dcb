#include "KelError.h"

#include <pthread.h>

#include <cstring>

#include "KelAllocationFailure.h"

KelImplementClass(KelError, KelBaseUnknown, "KelSystem")
KelImplementClass(MabRixError, KelError, "MabRixCommandModel")

namespace
{
// The thread's last error, kept as a value of a key rather than in a
// thread_local object with a destructor: the C library registers such a
// destructor at the object's first use and aborts the process when that
// registration cannot allocate. Creating a key and setting one of the first
// keys' values allocate nothing; the key's destructor releases what a thread
// leaves behind when it ends.
void ReleaseAtThreadEnd(void* ipError) { static_cast<KelError*>(ipError)->Release(); }

pthread_key_t LastErrorKey()
{
  static const pthread_key_t Key = [] {
    pthread_key_t NewKey{};
    pthread_key_create(&NewKey, &ReleaseAtThreadEnd);
    return NewKey;
  }();
  return Key;
}

KelError* LastError() { return static_cast<KelError*>(pthread_getspecific(LastErrorKey())); }

// Takes over ipError's reference; an error that cannot be kept is let go and
// the failed allocation noted.
void SetLastError(KelError* ipError)
{
  if (pthread_setspecific(LastErrorKey(), ipError) == 0)
    return;
  KelNoteAllocationFailure();
  if (ipError)
    ipError->Release();
}

struct CatalogEntry
{
  const char* _Catalog;
  const char* _Key;
  const char* _Text;
};

// The message catalogs known to this host.
const CatalogEntry Catalog[] = {
    {"MabRixIntegration", "Unexpected", "An unexpected error occurred while reading the server response."},
    {"MabRixIntegration", "ParseFailed", "The server response could not be read: /p1"},
};
}  // namespace

KelError::KelError(const char* iKey, const char* iCatalog) : _Key(iKey), _Catalog(iCatalog) {}

KelUnicodeString KelError::GetNLSMessage() const
{
  for (const CatalogEntry& Entry : Catalog)
  {
    if (_Catalog != Entry._Catalog || _Key != Entry._Key)
      continue;
    std::string Text = Entry._Text;
    for (int i = _Parameters.Size(); i >= 1; --i)
    {
      const std::string Marker = "/p" + std::to_string(i);
      for (std::size_t At = Text.find(Marker); At != std::string::npos; At = Text.find(Marker, At))
      {
        Text.replace(At, Marker.size(), _Parameters[i - 1].ToUtf8());
        At += _Parameters[i - 1].GetLengthInByte();
      }
    }
    return KelUnicodeString(Text);
  }
  KelUnicodeString Text = _Catalog;
  Text += ".";
  Text += _Key;
  return Text;
}

HRESULT KelError::GetReturn(int iKind, KelError* ipError, void*, const char* iFile, int iLine)
{
  if (iKind != 2)
    return S_OK;
  if (ipError)
  {
    ipError->_ReturnCode = E_FAIL;
    ipError->_SourceFile = iFile;
    ipError->_SourceLine = iLine;
    ipError->AddRef();
  }
  KelCleanLastError();
  SetLastError(ipError);
  return E_FAIL;
}

KelError* KelError::KelGetLastError(HRESULT iResult, void*)
{
  KelError* pError = LastError();
  if (SUCCEEDED(iResult) || !pError)
    return nullptr;
  pError->AddRef();
  return pError;
}

void KelError::KelCleanLastError()
{
  KelError* pError = LastError();
  if (!pError)
    return;
  pthread_setspecific(LastErrorKey(), nullptr);
  pError->Release();
}

HRESULT RixSuccessInit() { return S_OK; }

HRESULT MabRixUnexpectedError(HRESULT iCode, const char* iFile, int iLine)
{
  HRESULT Code = iCode;
  if (Code == S_OK || Code == E_UNEXPECTED)
    Code = E_FAIL;
  if (KelError* pPending = KelError::KelGetLastError(Code, nullptr))
  {
    const HRESULT Pending = pPending->GetReturnCode();
    pPending->Release();
    return Pending;
  }
  MabRixError* pError = new MabRixError("Unexpected", "MabRixIntegration");
  const KelUnicodeStringList Parameters;
  if (Parameters.Size() > 0)
    pError->SetParameters(Parameters);
  const HRESULT Result = KelError::GetReturn(2, pError, nullptr, iFile, iLine);
  pError->Release();
  return Result;
}
