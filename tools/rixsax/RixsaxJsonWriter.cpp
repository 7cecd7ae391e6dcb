#include "RixsaxJsonWriter.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <nlohmann/json.hpp>

#include "RixsaxUtf8.h"

RixsaxJsonWriter::RixsaxJsonWriter(RixsaxOutput& ioOutput, bool iIndented) : _Output(ioOutput), _Indented(iIndented) {}

namespace
{
// Bytes a JSON text cannot take as they are (control characters, quote,
// backslash) or that need a look at their UTF-8 (0x80 and above).
constexpr std::array<bool, 256> SpecialBytes = [] {
  std::array<bool, 256> Table{};
  for (std::size_t Byte = 0; Byte < Table.size(); ++Byte)
    Table[Byte] = Byte < 0x20 || Byte >= 0x80 || Byte == '"' || Byte == '\\';
  return Table;
}();

bool IsSpecial(char iCharacter) { return SpecialBytes[static_cast<unsigned char>(iCharacter)]; }

// True when one of the eight bytes of iWord is special: the usual test for a
// zero byte, applied to the word itself (below 0x20), to the word xor'ed with
// the quote and the backslash, and the top bit of each byte.
bool HasSpecial(std::uint64_t iWord)
{
  constexpr std::uint64_t Ones = 0x0101010101010101ull;
  constexpr std::uint64_t Highs = 0x8080808080808080ull;
  const auto HasZero = [](std::uint64_t iValue) { return (iValue - Ones) & ~iValue & Highs; };
  const std::uint64_t Below = (iWord - 0x20 * Ones) & ~iWord & Highs;
  return ((iWord & Highs) | Below | HasZero(iWord ^ ('"' * Ones)) | HasZero(iWord ^ ('\\' * Ones))) != 0;
}

// The position of the first special byte of iText, or its size.
std::size_t FirstSpecial(std::string_view iText)
{
  std::size_t Position = 0;
  for (; Position + 8 <= iText.size(); Position += 8)
  {
    std::uint64_t Word;
    std::memcpy(&Word, iText.data() + Position, sizeof Word);
    if (HasSpecial(Word))
      break;
  }
  while (Position < iText.size() && !IsSpecial(iText[Position]))
    ++Position;
  return Position;
}
}  // namespace

// A line break and the indentation are one write for the usual depths.
void RixsaxJsonWriter::NewLine(std::size_t iDepth)
{
  static constexpr std::string_view Break = "\n                                                                ";
  std::size_t Left = 2 * iDepth;
  const std::size_t First = std::min(Left, Break.size() - 1);
  _Output.Write(Break.substr(0, First + 1));
  for (Left -= First; Left > 0;)
  {
    const std::size_t Some = std::min(Left, Break.size() - 1);
    _Output.Write(Break.substr(1, Some));
    Left -= Some;
  }
}

// A member's value follows its key directly; an item is preceded by the
// separator (and the line break of the indented form).
void RixsaxJsonWriter::BeforeValue()
{
  if (_AfterKey)
  {
    _AfterKey = false;
    return;
  }
  if (_Counts.empty())
    return;
  if (_Counts.back()++ > 0)
    _Output.Put(',');
  if (_Indented)
    NewLine(_Counts.size());
}

void RixsaxJsonWriter::Open(char iBracket)
{
  BeforeValue();
  _Output.Put(iBracket);
  _Counts.push_back(0);
}

// An empty container closes on the line it opened: {} and [].
void RixsaxJsonWriter::Close(char iBracket)
{
  const std::size_t Count = _Counts.back();
  _Counts.pop_back();
  if (Count > 0 && _Indented)
    NewLine(_Counts.size());
  _Output.Put(iBracket);
  if (_Counts.empty() && _Indented)
    _Output.Put('\n');
}

void RixsaxJsonWriter::Key(std::string_view iKey)
{
  BeforeValue();
  const std::string_view Colon = _Indented ? ": " : ":";
  if (FirstSpecial(iKey) == iKey.size())
    _Output.WriteQuoted(iKey, Colon);
  else
  {
    Escape(iKey, _Output);
    _Output.Write(Colon);
  }
  _AfterKey = true;
}

void RixsaxJsonWriter::String(std::string_view iText)
{
  BeforeValue();
  Escape(iText, _Output);
}

void RixsaxJsonWriter::Bool(bool iValue)
{
  BeforeValue();
  _Output.Write(iValue ? "true" : "false");
}

void RixsaxJsonWriter::Int(std::int64_t iValue)
{
  BeforeValue();
  char Text[24];
  const auto Result = std::to_chars(Text, Text + sizeof Text, iValue);
  _Output.Write(std::string_view(Text, static_cast<std::size_t>(Result.ptr - Text)));
}

void RixsaxJsonWriter::Null()
{
  BeforeValue();
  _Output.Write("null");
}

// Valid UTF-8 is copied as it is, with the escapes JSON needs; text that is
// not valid UTF-8 is rare and goes through nlohmann, whose replacement of
// bad bytes the output has always had.
void RixsaxJsonWriter::Escape(std::string_view iText, RixsaxOutput& ioOutput)
{
  // Most texts are printable ASCII without quotes: one pass tells.
  const std::size_t First = FirstSpecial(iText);
  if (First == iText.size())
  {
    ioOutput.WriteQuoted(iText, std::string_view());
    return;
  }
  bool Ascii = true;
  for (std::size_t i = First; i < iText.size(); ++i)
    Ascii &= static_cast<unsigned char>(iText[i]) < 0x80;
  for (std::size_t Position = First; !Ascii && Position < iText.size();)
    if (RixsaxNextCharacter(iText, Position) < 0)
    {
      ioOutput.Write(nlohmann::json(std::string(iText)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
      return;
    }
  ioOutput.Put('"');
  std::size_t Plain = 0;
  for (std::size_t i = First; i < iText.size(); ++i)
  {
    const unsigned char Character = static_cast<unsigned char>(iText[i]);
    if (Character >= 0x20 && Character != '"' && Character != '\\')
      continue;
    ioOutput.Write(iText.substr(Plain, i - Plain));
    Plain = i + 1;
    switch (Character)
    {
      case '"':
        ioOutput.Write("\\\"");
        break;
      case '\\':
        ioOutput.Write("\\\\");
        break;
      case '\b':
        ioOutput.Write("\\b");
        break;
      case '\t':
        ioOutput.Write("\\t");
        break;
      case '\n':
        ioOutput.Write("\\n");
        break;
      case '\f':
        ioOutput.Write("\\f");
        break;
      case '\r':
        ioOutput.Write("\\r");
        break;
      default: {
        static constexpr char Hex[] = "0123456789abcdef";
        const char Escaped[] = {'\\', 'u', '0', '0', Hex[Character >> 4], Hex[Character & 0xF]};
        ioOutput.Write(std::string_view(Escaped, sizeof Escaped));
      }
    }
  }
  ioOutput.Write(iText.substr(Plain));
  ioOutput.Put('"');
}
