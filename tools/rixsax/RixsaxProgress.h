// The progress line of a long read on the standard error: bytes read (and
// the percentage when the size is known), the speed, the objects so far.
// It is rewritten in place a few times a second and cleared at the end.
#ifndef RixsaxProgress_h
#define RixsaxProgress_h

#include <chrono>
#include <cstdint>
#include <functional>

class RixsaxProgress
{
public:
  // iTotal: the size of the input, 0 when unknown; iObjects: the objects the
  // run's contexts hold so far.
  RixsaxProgress(std::uint64_t iTotal, std::function<std::size_t()> iObjects);
  ~RixsaxProgress();
  RixsaxProgress(const RixsaxProgress&) = delete;
  RixsaxProgress& operator=(const RixsaxProgress&) = delete;

  void Advance(std::size_t iBytes);

private:
  void Show();

  std::uint64_t _Total;
  std::uint64_t _Done = 0;
  std::function<std::size_t()> _Objects;
  std::chrono::steady_clock::time_point _Start;
  std::chrono::steady_clock::time_point _Shown;
  bool _Any = false;
  std::size_t _Width = 0;  // of the longest line shown, to clear it
};

#endif
