#include "KelUnicodeString.h"

#include <algorithm>
#include <vector>

namespace
{
// Byte length of the valid UTF-8 sequence starting at iPos, or 1 when the
// bytes there do not form one (the byte is then a character of its own).
std::size_t CharBytes(std::string_view iText, std::size_t iPos)
{
  const unsigned char Lead = static_cast<unsigned char>(iText[iPos]);
  std::size_t Length = 0;
  unsigned int Min = 0;
  if (Lead < 0x80)
    return 1;
  if (Lead >= 0xC2 && Lead <= 0xDF)
  {
    Length = 2;
    Min = 0x80;
  }
  else if (Lead >= 0xE0 && Lead <= 0xEF)
  {
    Length = 3;
    Min = 0x800;
  }
  else if (Lead >= 0xF0 && Lead <= 0xF4)
  {
    Length = 4;
    Min = 0x10000;
  }
  else
    return 1;
  if (iPos + Length > iText.size())
    return 1;
  unsigned int CodePoint = Lead & (0x7F >> Length);
  for (std::size_t i = 1; i < Length; ++i)
  {
    const unsigned char Next = static_cast<unsigned char>(iText[iPos + i]);
    if ((Next & 0xC0) != 0x80)
      return 1;
    CodePoint = (CodePoint << 6) | (Next & 0x3F);
  }
  if (CodePoint < Min || CodePoint > 0x10FFFF || (CodePoint >= 0xD800 && CodePoint <= 0xDFFF))
    return 1;
  return Length;
}

bool IsAscii(std::string_view iText)
{
  return std::all_of(iText.begin(), iText.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Byte offset of every character start, plus the end.
std::vector<std::size_t> CharOffsets(std::string_view iText)
{
  std::vector<std::size_t> Offsets;
  Offsets.reserve(iText.size() + 1);
  for (std::size_t Pos = 0; Pos < iText.size(); Pos += CharBytes(iText, Pos))
    Offsets.push_back(Pos);
  Offsets.push_back(iText.size());
  return Offsets;
}

int Clamp(int iValue, int iLow, int iHigh) { return std::max(iLow, std::min(iValue, iHigh)); }
}  // namespace

void KelUnicodeString::ToLower()
{
  for (char& c : _Text)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
}

int KelUnicodeString::GetLengthInChar() const
{
  if (IsAscii(_Text))
    return static_cast<int>(_Text.size());
  int Count = 0;
  for (std::size_t Pos = 0; Pos < _Text.size(); Pos += CharBytes(_Text, Pos))
    ++Count;
  return Count;
}

KelUnicodeString KelUnicodeString::SubString(int iStart, int iLength) const
{
  if (IsAscii(_Text))
  {
    const int Size = static_cast<int>(_Text.size());
    const int Start = Clamp(iStart, 0, Size);
    const int Length = Clamp(iLength, 0, Size - Start);
    return KelUnicodeString(std::string_view(_Text).substr(Start, Length));
  }
  const std::vector<std::size_t> Offsets = CharOffsets(_Text);
  const int Count = static_cast<int>(Offsets.size()) - 1;
  const int Start = Clamp(iStart, 0, Count);
  const int Length = Clamp(iLength, 0, Count - Start);
  return KelUnicodeString(std::string_view(_Text).substr(Offsets[Start], Offsets[Start + Length] - Offsets[Start]));
}

int KelUnicodeString::SearchSubString(const KelUnicodeString& iPattern, int iStart, int iMode) const
{
  const bool Ascii = IsAscii(_Text);
  std::vector<std::size_t> Offsets;
  if (!Ascii)
    Offsets = CharOffsets(_Text);
  const int Count = Ascii ? static_cast<int>(_Text.size()) : static_cast<int>(Offsets.size()) - 1;
  const int Start = Clamp(iStart, 0, Count);
  const auto ByteOf = [&](int iChar) { return Ascii ? static_cast<std::size_t>(iChar) : Offsets[iChar]; };
  const auto CharOf = [&](std::size_t iByte) -> int {
    if (Ascii)
      return static_cast<int>(iByte);
    return static_cast<int>(std::lower_bound(Offsets.begin(), Offsets.end(), iByte) - Offsets.begin());
  };
  // A match must begin on a character boundary; with malformed text a byte
  // match can begin inside a sequence, so look on from there.
  const auto OnBoundary = [&](std::size_t iByte) {
    return Ascii || std::binary_search(Offsets.begin(), Offsets.end(), iByte);
  };
  if (iMode == KelSearchBackward)
  {
    std::size_t From = ByteOf(Start);
    while (true)
    {
      const std::size_t Found = _Text.rfind(iPattern._Text, From);
      if (Found == std::string::npos)
        return -1;
      if (OnBoundary(Found))
        return CharOf(Found);
      if (Found == 0)
        return -1;
      From = Found - 1;
    }
  }
  std::size_t From = ByteOf(Start);
  while (From <= _Text.size())
  {
    const std::size_t Found = _Text.find(iPattern._Text, From);
    if (Found == std::string::npos)
      return -1;
    if (OnBoundary(Found))
      return CharOf(Found);
    From = Found + 1;
  }
  return -1;
}
