/// Unicode string with value semantics, stored as UTF-8. Lengths and
/// positions count characters (code points) from 0; a byte that does not
/// start a valid UTF-8 sequence counts as one character of its own, so no
/// text, however malformed, is read outside its bounds.
///
/// A string takes 16 bytes, and texts of up to 15 bytes (most names, types,
/// revisions and flags of a response) need no other memory: object contexts
/// hold millions of them. Ownership, threads, errors: @ref conventions. @file
#ifndef KelUnicodeString_h
#define KelUnicodeString_h

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

class KelUnicodeString
{
public:
  enum KelSearchMode
  {
    KelSearchBackward = 1,  // last occurrence starting at or before the start position
    KelSearchForward = 2    // first occurrence starting at or after the start position
  };

  KelUnicodeString() { SetShortSize(0); }
  KelUnicodeString(const char* iText) : KelUnicodeString() { Assign(iText, iText ? std::strlen(iText) : 0); }
  KelUnicodeString(const char* iText, std::size_t iBytes) : KelUnicodeString() { Assign(iText, iText ? iBytes : 0); }
  explicit KelUnicodeString(std::string_view iText) : KelUnicodeString() { Assign(iText.data(), iText.size()); }
  explicit KelUnicodeString(const std::string& iText) : KelUnicodeString(std::string_view(iText)) {}
  KelUnicodeString(const KelUnicodeString& iOther) : KelUnicodeString() { CopyFrom(iOther); }
  KelUnicodeString(KelUnicodeString&& ioOther) noexcept { Steal(ioOther); }
  ~KelUnicodeString() { Free(); }

  KelUnicodeString& operator=(const KelUnicodeString& iOther)
  {
    if (this != &iOther)
      Assign(iOther.Data(), iOther.Size());
    return *this;
  }
  KelUnicodeString& operator=(KelUnicodeString&& ioOther) noexcept
  {
    if (this != &ioOther)
    {
      Free();
      Steal(ioOther);
    }
    return *this;
  }
  KelUnicodeString& operator=(const char* iText)
  {
    Assign(iText, iText ? std::strlen(iText) : 0);
    return *this;
  }
  KelUnicodeString& operator+=(const KelUnicodeString& iOther)
  {
    AppendBytes(iOther.Data(), iOther.Size());
    return *this;
  }
  KelUnicodeString& operator+=(const char* iText)
  {
    if (iText)
      AppendBytes(iText, std::strlen(iText));
    return *this;
  }
  KelUnicodeString& Append(const KelUnicodeString& iOther) { return *this += iOther; }
  void AppendBytes(const char* iText, std::size_t iBytes)
  {
    // Most appends fit the room there is (a handler's buffers keep theirs).
    const std::size_t Old = Size();
    if (iBytes <= Room() - Old)
    {
      CopyBytes(MutableData() + Old, iText, iBytes);
      SetSize(Old + iBytes);
      return;
    }
    AppendToLarger(iText, iBytes);
  }

  bool operator==(const KelUnicodeString& iOther) const { return View() == iOther.View(); }
  bool operator!=(const KelUnicodeString& iOther) const { return View() != iOther.View(); }
  /// Lengths first: against a literal the length is known at compile time.
  bool operator==(const char* iText) const { return View() == std::string_view(iText ? iText : ""); }
  bool operator!=(const char* iText) const { return !(*this == iText); }
  bool operator<(const KelUnicodeString& iOther) const { return View() < iOther.View(); }

  /// Non-zero when both strings hold the same characters, 0 when they differ.
  int Compare(const KelUnicodeString& iOther) const { return *this == iOther ? 1 : 0; }

  /// Lower-cases ASCII letters; every other character is left as it is.
  void ToLower();

  int GetLengthInChar() const;
  bool IsEmpty() const { return Size() == 0; }

  /// iLength characters from iStart; both are clamped to the string.
  KelUnicodeString SubString(int iStart, int iLength) const;

  /// Position of iPattern searched from iStart in the direction iMode; -1
  /// when absent. An empty pattern is found at the (clamped) start.
  int SearchSubString(const KelUnicodeString& iPattern, int iStart = 0, int iMode = KelSearchForward) const;

  /// The bytes, followed by a NUL.
  const char* ConvertToChar() const { return Data(); }
  /// A copy of the bytes.
  std::string ToUtf8() const { return std::string(View()); }
  std::string_view View() const { return std::string_view(Data(), Size()); }
  std::size_t GetLengthInByte() const { return Size(); }

  /// Empties the string; the room of a long one is kept for what comes next.
  void Clear() { SetSize(0); }
  /// Makes room for a text of iBytes bytes, so that appending up to there
  /// allocates nothing.
  void Reserve(std::size_t iBytes);
  /// The text becomes iText, in the room the string has when it is enough.
  void Assign(std::string_view iText) { Assign(iText.data(), iText.size()); }

  /// The longest text a string holds (a longer one is a std::bad_alloc).
  static constexpr std::size_t MaxBytes = 0x7FFFFFFE;

private:
  // Sixteen bytes. A text of up to ShortBytes bytes lies in them, followed by
  // a NUL, with the last byte holding ShortBytes minus its length (so that a
  // full short text ends with a NUL too). A longer text lies in a heap block:
  // its address in bytes 0-7, its length in 8-11, the block's room in 12-15
  // with the top bit set, which is the last byte's high bit.
  static constexpr std::size_t ShortBytes = 15;
  static constexpr std::uint32_t LongMark = 0x80000000u;
  static_assert(std::endian::native == std::endian::little, "the long mark is the last byte's high bit");

  bool IsLong() const { return (_Bytes[15] & 0x80) != 0; }

  /// memcpy, with the short copies of names and flags done in place: two
  /// overlapping loads and stores, never outside either range.
  static void CopyBytes(char* opTarget, const char* ipSource, std::size_t iBytes)
  {
    if (iBytes > 16)
    {
      std::memcpy(opTarget, ipSource, iBytes);
      return;
    }
    if (iBytes >= 8)
    {
      std::uint64_t Head = 0, Tail = 0;
      std::memcpy(&Head, ipSource, 8);
      std::memcpy(&Tail, ipSource + iBytes - 8, 8);
      std::memcpy(opTarget, &Head, 8);
      std::memcpy(opTarget + iBytes - 8, &Tail, 8);
    }
    else if (iBytes >= 4)
    {
      std::uint32_t Head = 0, Tail = 0;
      std::memcpy(&Head, ipSource, 4);
      std::memcpy(&Tail, ipSource + iBytes - 4, 4);
      std::memcpy(opTarget, &Head, 4);
      std::memcpy(opTarget + iBytes - 4, &Tail, 4);
    }
    else
      for (std::size_t i = 0; i < iBytes; ++i)
        opTarget[i] = ipSource[i];
  }
  char* LongData() const
  {
    char* pData = nullptr;
    std::memcpy(&pData, _Bytes, sizeof pData);
    return pData;
  }
  std::uint32_t LongSize() const
  {
    std::uint32_t Size = 0;
    std::memcpy(&Size, _Bytes + 8, sizeof Size);
    return Size;
  }
  std::size_t LongRoom() const
  {
    std::uint32_t Room = 0;
    std::memcpy(&Room, _Bytes + 12, sizeof Room);
    return Room & ~LongMark;
  }
  const char* Data() const { return IsLong() ? LongData() : reinterpret_cast<const char*>(_Bytes); }
  char* MutableData() { return IsLong() ? LongData() : reinterpret_cast<char*>(_Bytes); }
  std::size_t Size() const { return IsLong() ? LongSize() : ShortBytes - _Bytes[15]; }
  std::size_t Room() const { return IsLong() ? LongRoom() : ShortBytes; }

  void SetShortSize(std::size_t iSize)
  {
    _Bytes[iSize] = 0;
    _Bytes[15] = static_cast<unsigned char>(ShortBytes - iSize);
  }
  void SetLong(char* ipData, std::size_t iSize, std::size_t iRoom);
  /// Sets the length of the text (within its room) and ends it with a NUL.
  void SetSize(std::size_t iSize)
  {
    if (!IsLong())
    {
      SetShortSize(iSize);
      return;
    }
    const std::uint32_t Size = static_cast<std::uint32_t>(iSize);
    std::memcpy(_Bytes + 8, &Size, sizeof Size);
    LongData()[iSize] = 0;
  }

  void Assign(const char* iText, std::size_t iBytes)
  {
    if (iBytes > Room())
    {
      AssignToLarger(iText, iBytes);
      return;
    }
    // iText may lie in this string: short copies load before they store.
    if (iBytes <= 16)
      CopyBytes(MutableData(), iText, iBytes);
    else
      std::memmove(MutableData(), iText, iBytes);
    SetSize(iBytes);
  }
  void AssignToLarger(const char* iText, std::size_t iBytes);
  void AppendToLarger(const char* iText, std::size_t iBytes);
  void CopyFrom(const KelUnicodeString& iOther);
  void Steal(KelUnicodeString& ioOther) noexcept
  {
    std::memcpy(_Bytes, ioOther._Bytes, sizeof _Bytes);
    ioOther.SetShortSize(0);
  }
  void Free()
  {
    if (IsLong())
      ::operator delete(LongData(), LongRoom() + 1);
  }

  alignas(8) unsigned char _Bytes[16] = {};
};

inline bool operator==(const char* iText, const KelUnicodeString& iString) { return iString == iText; }
inline bool operator!=(const char* iText, const KelUnicodeString& iString) { return iString != iText; }
/// @cond
template <>
struct std::hash<KelUnicodeString>
{
  std::size_t operator()(const KelUnicodeString& iString) const noexcept
  {
    return std::hash<std::string_view>()(iString.View());
  }
};
/// @endcond
#endif
