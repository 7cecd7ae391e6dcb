/// @file
/// Result codes in the style of the Component Object Model: 32-bit, negative
/// means failure. Ownership, threads, errors: @ref conventions.
///
/// The codes are constants and the tests are functions, not macros, so they
/// coexist with a platform header that defines the same names as macros:
/// each global name is declared only when no macro of that name exists, and
/// a macro defined later simply takes over from the declaration. The library's
/// headers spell the codes through namespace KelResult and the flags as
/// KelTrue and KelFalse, names no such header touches, so their inline code
/// reads the same in every translation unit.
#ifndef KelResult_h
#define KelResult_h

#include <cstdint>

/// Result of an operation: negative means failure, 0 or positive success.
typedef std::int32_t HRESULT;

/// Flag type of the host framework (TRUE or FALSE).
typedef int KelBoolean;

/// The result codes and their tests under names no other header defines.
namespace KelResult
{
/// Success.
inline constexpr HRESULT Ok = 0;
/// Success, with nothing done or a negative answer.
inline constexpr HRESULT OkFalse = 1;
/// Unspecified failure.
inline constexpr HRESULT Fail = static_cast<HRESULT>(0x80004005u);
/// Failure: called in a state where the call makes no sense.
inline constexpr HRESULT Unexpected = static_cast<HRESULT>(0x8000FFFFu);
/// Failure: memory could not be allocated.
inline constexpr HRESULT OutOfMemory = static_cast<HRESULT>(0x8007000Eu);
/// Failure: an argument is not valid.
inline constexpr HRESULT InvalidArg = static_cast<HRESULT>(0x80070057u);

/// Whether iResult is a success code.
constexpr bool Succeeded(HRESULT iResult) noexcept { return iResult >= 0; }
/// Whether iResult is a failure code.
constexpr bool Failed(HRESULT iResult) noexcept { return iResult < 0; }
}  // namespace KelResult

/// The true KelBoolean.
inline constexpr KelBoolean KelTrue = 1;
/// The false KelBoolean.
inline constexpr KelBoolean KelFalse = 0;

#ifndef S_OK
/// Success (KelResult::Ok).
inline constexpr HRESULT S_OK = KelResult::Ok;
#endif
#ifndef S_FALSE
/// Success with a negative answer (KelResult::OkFalse).
inline constexpr HRESULT S_FALSE = KelResult::OkFalse;
#endif
#ifndef E_FAIL
/// Unspecified failure (KelResult::Fail).
inline constexpr HRESULT E_FAIL = KelResult::Fail;
#endif
#ifndef E_UNEXPECTED
/// Failure of a call out of place (KelResult::Unexpected).
inline constexpr HRESULT E_UNEXPECTED = KelResult::Unexpected;
#endif
#ifndef E_OUTOFMEMORY
/// Failure to allocate (KelResult::OutOfMemory).
inline constexpr HRESULT E_OUTOFMEMORY = KelResult::OutOfMemory;
#endif
#ifndef E_INVALIDARG
/// Failure on an argument (KelResult::InvalidArg).
inline constexpr HRESULT E_INVALIDARG = KelResult::InvalidArg;
#endif

#ifndef SUCCEEDED
/// Whether iResult is a success code (KelResult::Succeeded).
constexpr bool SUCCEEDED(HRESULT iResult) noexcept { return KelResult::Succeeded(iResult); }
#endif
#ifndef FAILED
/// Whether iResult is a failure code (KelResult::Failed).
constexpr bool FAILED(HRESULT iResult) noexcept { return KelResult::Failed(iResult); }
#endif

#ifndef TRUE
/// The true KelBoolean (KelTrue).
inline constexpr KelBoolean TRUE = KelTrue;
#endif
#ifndef FALSE
/// The false KelBoolean (KelFalse).
inline constexpr KelBoolean FALSE = KelFalse;
#endif

#endif
