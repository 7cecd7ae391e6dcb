/// Unicode string with value semantics, stored as UTF-8. Lengths and
/// positions count characters (code points) from 0; a byte that does not
/// start a valid UTF-8 sequence counts as one character of its own, so no
/// text, however malformed, is read outside its bounds. Ownership, threads, errors: @ref conventions. @file
#ifndef KelUnicodeString_h
#define KelUnicodeString_h

#include <cstddef>
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

  KelUnicodeString() = default;
  KelUnicodeString(const char* iText) : _Text(iText ? iText : "") {}
  KelUnicodeString(const char* iText, std::size_t iBytes) : _Text(iText ? iText : "", iText ? iBytes : 0) {}
  explicit KelUnicodeString(std::string_view iText) : _Text(iText) {}
  explicit KelUnicodeString(std::string iText) : _Text(std::move(iText)) {}

  KelUnicodeString& operator=(const char* iText)
  {
    _Text.assign(iText ? iText : "");
    return *this;
  }
  KelUnicodeString& operator+=(const KelUnicodeString& iOther)
  {
    _Text += iOther._Text;
    return *this;
  }
  KelUnicodeString& operator+=(const char* iText)
  {
    if (iText)
      _Text += iText;
    return *this;
  }
  KelUnicodeString& Append(const KelUnicodeString& iOther) { return *this += iOther; }
  void AppendBytes(const char* iText, std::size_t iBytes) { _Text.append(iText, iBytes); }

  bool operator==(const KelUnicodeString& iOther) const { return _Text == iOther._Text; }
  bool operator!=(const KelUnicodeString& iOther) const { return _Text != iOther._Text; }
  /// Lengths first: against a literal the length is known at compile time.
  bool operator==(const char* iText) const { return View() == std::string_view(iText ? iText : ""); }
  bool operator!=(const char* iText) const { return !(*this == iText); }
  bool operator<(const KelUnicodeString& iOther) const { return _Text < iOther._Text; }

  /// Non-zero when both strings hold the same characters, 0 when they differ.
  int Compare(const KelUnicodeString& iOther) const { return _Text == iOther._Text ? 1 : 0; }

  /// Lower-cases ASCII letters; every other character is left as it is.
  void ToLower();

  int GetLengthInChar() const;
  bool IsEmpty() const { return _Text.empty(); }

  /// iLength characters from iStart; both are clamped to the string.
  KelUnicodeString SubString(int iStart, int iLength) const;

  /// Position of iPattern searched from iStart in the direction iMode; -1
  /// when absent. An empty pattern is found at the (clamped) start.
  int SearchSubString(const KelUnicodeString& iPattern, int iStart = 0, int iMode = KelSearchForward) const;

  const char* ConvertToChar() const { return _Text.c_str(); }
  const std::string& ToUtf8() const { return _Text; }
  std::string_view View() const { return _Text; }
  std::size_t GetLengthInByte() const { return _Text.size(); }

  void Clear() { _Text.clear(); }

private:
  std::string _Text;
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
