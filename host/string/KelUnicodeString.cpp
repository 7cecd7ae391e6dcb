#include "KelUnicodeString.h"

#include <algorithm>
#include <new>
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

void KelUnicodeString::SetLong(char* ipData, std::size_t iSize, std::size_t iRoom)
{
  const std::uint32_t Size = static_cast<std::uint32_t>(iSize);
  const std::uint32_t Room = static_cast<std::uint32_t>(iRoom) | LongMark;
  std::memcpy(_Bytes, &ipData, sizeof ipData);
  std::memcpy(_Bytes + 8, &Size, sizeof Size);
  std::memcpy(_Bytes + 12, &Room, sizeof Room);
  ipData[iSize] = 0;
}

// A new block: iText may lie in the old one, which goes only after the copy.
void KelUnicodeString::AssignToLarger(const char* iText, std::size_t iBytes)
{
  if (iBytes > MaxBytes)
    throw std::bad_alloc();
  char* pData = static_cast<char*>(::operator new(iBytes + 1));
  std::memcpy(pData, iText, iBytes);
  Free();
  SetLong(pData, iBytes, iBytes);
}

void KelUnicodeString::CopyFrom(const KelUnicodeString& iOther)
{
  if (!iOther.IsLong())
  {
    std::memcpy(_Bytes, iOther._Bytes, sizeof _Bytes);
    return;
  }
  Assign(iOther.Data(), iOther.Size());
}

// iText may lie in this string: its bytes are copied before the old room is
// freed. Doubling the room copies a text built piece by piece a bounded number
// of times per byte.
void KelUnicodeString::AppendToLarger(const char* iText, std::size_t iBytes)
{
  const std::size_t Old = Size();
  if (iBytes > MaxBytes - Old)
    throw std::bad_alloc();
  const std::size_t NewRoom = std::min(std::max(Old + iBytes, 2 * Room()), MaxBytes);
  char* pData = static_cast<char*>(::operator new(NewRoom + 1));
  std::memcpy(pData, Data(), Old);
  std::memcpy(pData + Old, iText, iBytes);
  Free();
  SetLong(pData, Old + iBytes, NewRoom);
}

void KelUnicodeString::Reserve(std::size_t iBytes)
{
  if (iBytes <= Room())
    return;
  if (iBytes > MaxBytes)
    throw std::bad_alloc();
  const std::size_t Old = Size();
  char* pData = static_cast<char*>(::operator new(iBytes + 1));
  std::memcpy(pData, Data(), Old);
  Free();
  SetLong(pData, Old, iBytes);
}

void KelUnicodeString::ToLower()
{
  char* pData = MutableData();
  for (std::size_t i = 0, Size = this->Size(); i < Size; ++i)
    if (pData[i] >= 'A' && pData[i] <= 'Z')
      pData[i] = static_cast<char>(pData[i] - 'A' + 'a');
}
int KelUnicodeString::GetLengthInChar() const
{
  const std::string_view Text = View();
  if (IsAscii(Text))
    return static_cast<int>(Text.size());
  int Count = 0;
  for (std::size_t Pos = 0; Pos < Text.size(); Pos += CharBytes(Text, Pos))
    ++Count;
  return Count;
}

KelUnicodeString KelUnicodeString::SubString(int iStart, int iLength) const
{
  const std::string_view Text = View();
  if (IsAscii(Text))
  {
    const int Size = static_cast<int>(Text.size());
    const int Start = Clamp(iStart, 0, Size);
    const int Length = Clamp(iLength, 0, Size - Start);
    return KelUnicodeString(Text.substr(Start, Length));
  }
  const std::vector<std::size_t> Offsets = CharOffsets(Text);
  const int Count = static_cast<int>(Offsets.size()) - 1;
  const int Start = Clamp(iStart, 0, Count);
  const int Length = Clamp(iLength, 0, Count - Start);
  return KelUnicodeString(Text.substr(Offsets[Start], Offsets[Start + Length] - Offsets[Start]));
}

int KelUnicodeString::SearchSubString(const KelUnicodeString& iPattern, int iStart, int iMode) const
{
  const std::string_view Text = View();
  const std::string_view Pattern = iPattern.View();
  const bool Ascii = IsAscii(Text);
  std::vector<std::size_t> Offsets;
  if (!Ascii)
    Offsets = CharOffsets(Text);
  const int Count = Ascii ? static_cast<int>(Text.size()) : static_cast<int>(Offsets.size()) - 1;
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
      const std::size_t Found = Text.rfind(Pattern, From);
      if (Found == std::string_view::npos)
        return -1;
      if (OnBoundary(Found))
        return CharOf(Found);
      if (Found == 0)
        return -1;
      From = Found - 1;
    }
  }
  std::size_t From = ByteOf(Start);
  while (From <= Text.size())
  {
    const std::size_t Found = Text.find(Pattern, From);
    if (Found == std::string_view::npos)
      return -1;
    if (OnBoundary(Found))
      return CharOf(Found);
    From = Found + 1;
  }
  return -1;
}
