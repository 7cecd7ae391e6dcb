// A file read as a stream that counts its bytes into a progress line: what
// the parser reads through when progress is shown.
#ifndef RixsaxProgressInput_h
#define RixsaxProgressInput_h

#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>
#include <vector>

#include "RixsaxProgress.h"

class RixsaxProgressInput : private std::streambuf
{
public:
  // The input of iFile ("-": the standard input) with a progress line, when
  // one is to be shown: iForce when given, otherwise for a file of more
  // than 64 MiB while the standard error is a terminal. Nothing when no
  // line is shown or the file cannot be opened (the parser says why).
  static std::unique_ptr<RixsaxProgressInput> Open(const std::string& iFile, std::optional<bool> iForce,
                                                   std::function<std::size_t()> iObjects);
  ~RixsaxProgressInput() override;

  std::istream& Stream() { return _Stream; }

private:
  RixsaxProgressInput(int iDescriptor, bool iOwned, std::uint64_t iTotal, std::function<std::size_t()> iObjects);
  int_type underflow() override;

  int _Descriptor;
  bool _Owned;
  std::vector<char> _Buffer;
  RixsaxProgress _Progress;
  std::istream _Stream;
};

#endif
