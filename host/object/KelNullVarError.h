/// The host's null-reference error: raised when a null counted reference is used through ->. It is
/// the one exception that crosses handler code. Ownership, threads, errors: @ref conventions. @file
#ifndef KelNullVarError_h
#define KelNullVarError_h

#include <stdexcept>

class KelNullVarError : public std::logic_error
{
public:
  KelNullVarError();
};

[[noreturn]] void ThrowErrorNullVar();

#endif
