#include "RixsaxProgress.h"

#include <cstdio>
#include <string>

RixsaxProgress::RixsaxProgress(std::uint64_t iTotal, std::function<std::size_t()> iObjects)
    : _Total(iTotal), _Objects(std::move(iObjects)), _Start(std::chrono::steady_clock::now()), _Shown(_Start)
{
}

RixsaxProgress::~RixsaxProgress()
{
  if (!_Any)
    return;
  std::fprintf(stderr, "\r%s\r", std::string(_Width, ' ').c_str());
  std::fflush(stderr);
}

// The first chunk is shown at once, then at most five lines a second.
void RixsaxProgress::Advance(std::size_t iBytes)
{
  _Done += iBytes;
  const auto Now = std::chrono::steady_clock::now();
  if (_Any && Now - _Shown < std::chrono::milliseconds(200))
    return;
  _Shown = Now;
  Show();
}

void RixsaxProgress::Show()
{
  const double Seconds = std::chrono::duration<double>(_Shown - _Start).count();
  const double Megabytes = static_cast<double>(_Done) / 1e6;
  char Line[160];
  int Length = 0;
  if (_Total > 0)
    Length = std::snprintf(Line, sizeof Line, "rixsax: %.1f of %.1f MB (%.0f%%)", Megabytes,
                           static_cast<double>(_Total) / 1e6,
                           100.0 * static_cast<double>(_Done) / static_cast<double>(_Total));
  else
    Length = std::snprintf(Line, sizeof Line, "rixsax: %.1f MB", Megabytes);
  Length += std::snprintf(Line + Length, sizeof Line - static_cast<std::size_t>(Length), ", %.1f MB/s, %zu objects",
                          Seconds > 0 ? Megabytes / Seconds : 0.0, _Objects());
  _Width = std::max(_Width, static_cast<std::size_t>(Length));
  std::fprintf(stderr, "\r%s", Line);
  std::fflush(stderr);
  _Any = true;
}
