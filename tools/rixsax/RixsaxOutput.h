// The standard output of rixsax: a buffer of our own over file descriptor 1,
// so that a write error is seen where it happens (a full disk, a closed
// descriptor, a reader that went away) instead of being lost in stdio.
#ifndef RixsaxOutput_h
#define RixsaxOutput_h

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

// The output could not be written; _Errno tells why.
struct RixsaxOutputError : std::runtime_error
{
  explicit RixsaxOutputError(int iErrno);
  int _Errno;
};

// The reader closed its end (rixsax ... | head): nothing more to say.
struct RixsaxOutputClosed : std::exception
{
  const char* what() const noexcept override { return "output closed"; }
};

class RixsaxOutput
{
public:
  explicit RixsaxOutput(int iDescriptor = 1);
  // Into a string instead (a line made in one thread, printed by another).
  explicit RixsaxOutput(std::string& oCapture);
  // Whatever is still buffered is written; errors there are dropped (call
  // Flush first to see them).
  ~RixsaxOutput();
  RixsaxOutput(const RixsaxOutput&) = delete;
  RixsaxOutput& operator=(const RixsaxOutput&) = delete;

  void Write(std::string_view iText)
  {
    if (iText.size() > Capacity - _Used)
      WriteLarge(iText);
    else
    {
      iText.copy(_Buffer + _Used, iText.size());
      _Used += iText.size();
    }
  }
  // A text between double quotes, then iAfter: one copy of each when they
  // fit (keys and plain texts of the JSON are most of what is written).
  void WriteQuoted(std::string_view iText, std::string_view iAfter)
  {
    const std::size_t Size = iText.size() + iAfter.size() + 2;
    if (Size > Capacity - _Used)
    {
      WriteQuotedLarge(iText, iAfter);
      return;
    }
    char* pEnd = _Buffer + _Used;
    *pEnd++ = '"';
    pEnd = std::copy(iText.begin(), iText.end(), pEnd);
    *pEnd++ = '"';
    std::copy(iAfter.begin(), iAfter.end(), pEnd);
    _Used += Size;
  }
  void Put(char iCharacter)
  {
    if (_Used == Capacity)
      Flush();
    _Buffer[_Used++] = iCharacter;
  }
  // Throws RixsaxOutputError or RixsaxOutputClosed.
  void Flush();

private:
  static constexpr std::size_t Capacity = 64 * 1024;
  void WriteLarge(std::string_view iText);
  void WriteQuotedLarge(std::string_view iText, std::string_view iAfter);
  void WriteAll(const char* iData, std::size_t iSize);

  int _Descriptor;
  std::string* _pCapture = nullptr;
  std::size_t _Used = 0;
  bool _Failed = false;
  char _Buffer[Capacity];
};

#endif
