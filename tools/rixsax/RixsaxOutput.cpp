#include "RixsaxOutput.h"

#include <unistd.h>
#include <cerrno>
#include <cstring>

RixsaxOutputError::RixsaxOutputError(int iErrno) : std::runtime_error(std::strerror(iErrno)), _Errno(iErrno) {}

RixsaxOutput::RixsaxOutput(int iDescriptor) : _Descriptor(iDescriptor) {}

RixsaxOutput::RixsaxOutput(std::string& oCapture) : _Descriptor(-1), _pCapture(&oCapture) {}

RixsaxOutput::~RixsaxOutput()
{
  try
  {
    Flush();
  }
  catch (const std::exception&)
  {
  }
}

void RixsaxOutput::Flush()
{
  const std::size_t Used = _Used;
  _Used = 0;
  WriteAll(_Buffer, Used);
}

void RixsaxOutput::WriteLarge(std::string_view iText)
{
  Flush();
  if (iText.size() >= Capacity)
    WriteAll(iText.data(), iText.size());
  else
  {
    iText.copy(_Buffer, iText.size());
    _Used = iText.size();
  }
}

void RixsaxOutput::WriteQuotedLarge(std::string_view iText, std::string_view iAfter)
{
  Put('"');
  Write(iText);
  Put('"');
  Write(iAfter);
}

// After a failure nothing more is written: the first error is the one told.
void RixsaxOutput::WriteAll(const char* iData, std::size_t iSize)
{
  if (_pCapture)
  {
    _pCapture->append(iData, iSize);
    return;
  }
  while (iSize > 0 && !_Failed)
  {
    const ssize_t Written = ::write(_Descriptor, iData, iSize);
    if (Written < 0)
    {
      if (errno == EINTR)
        continue;
      _Failed = true;
      if (errno == EPIPE)
        throw RixsaxOutputClosed();
      throw RixsaxOutputError(errno);
    }
    iData += Written;
    iSize -= static_cast<std::size_t>(Written);
  }
}
