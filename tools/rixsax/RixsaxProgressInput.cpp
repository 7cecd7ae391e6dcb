#include "RixsaxProgressInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>

namespace
{
constexpr std::uint64_t ShownFrom = 64ull * 1024 * 1024;
}

std::unique_ptr<RixsaxProgressInput> RixsaxProgressInput::Open(const std::string& iFile, std::optional<bool> iForce,
                                                               std::function<std::size_t()> iObjects)
{
  if (iForce && !*iForce)
    return nullptr;
  // Decided before opening: a FIFO is opened only when it is to be read.
  const bool IsStandardInput = iFile == "-";
  struct stat Status;
  const int Found = IsStandardInput ? ::fstat(0, &Status) : ::stat(iFile.c_str(), &Status);
  const std::uint64_t Total = Found == 0 && S_ISREG(Status.st_mode) ? static_cast<std::uint64_t>(Status.st_size) : 0;
  if (!iForce && !(Total > ShownFrom && ::isatty(2)))
    return nullptr;
  const int Descriptor = IsStandardInput ? 0 : ::open(iFile.c_str(), O_RDONLY | O_CLOEXEC);
  if (Descriptor < 0)
    return nullptr;
  return std::unique_ptr<RixsaxProgressInput>(
      new RixsaxProgressInput(Descriptor, !IsStandardInput, Total, std::move(iObjects)));
}

RixsaxProgressInput::RixsaxProgressInput(int iDescriptor, bool iOwned, std::uint64_t iTotal,
                                         std::function<std::size_t()> iObjects)
    : _Descriptor(iDescriptor), _Owned(iOwned), _Buffer(64 * 1024), _Progress(iTotal, std::move(iObjects)),
      _Stream(this)
{
}

RixsaxProgressInput::~RixsaxProgressInput()
{
  if (_Owned)
    ::close(_Descriptor);
}

// A read error ends the stream as bad, which the parser reports.
RixsaxProgressInput::int_type RixsaxProgressInput::underflow()
{
  ssize_t Read;
  do
    Read = ::read(_Descriptor, _Buffer.data(), _Buffer.size());
  while (Read < 0 && errno == EINTR);
  if (Read < 0)
    throw std::ios_base::failure("cannot read");
  if (Read == 0)
    return traits_type::eof();
  setg(_Buffer.data(), _Buffer.data(), _Buffer.data() + Read);
  _Progress.Advance(static_cast<std::size_t>(Read));
  return traits_type::to_int_type(_Buffer.front());
}
