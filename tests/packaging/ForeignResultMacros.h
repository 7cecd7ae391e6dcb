// The result names as a platform header of the Component Object Model family
// declares them: LONG of 32 bits (int where long has 64), the result codes,
// their tests and TRUE/FALSE as macros.
#ifndef ForeignResultMacros_h
#define ForeignResultMacros_h

typedef int LONG;
typedef LONG HRESULT;
typedef int BOOL;

#define S_OK ((HRESULT)0L)
#define S_FALSE ((HRESULT)1L)
#define E_FAIL ((HRESULT)0x80004005L)
#define E_UNEXPECTED ((HRESULT)0x8000FFFFL)
#define E_OUTOFMEMORY ((HRESULT)0x8007000EL)
#define E_INVALIDARG ((HRESULT)0x80070057L)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)
#define TRUE 1
#define FALSE 0

#endif
