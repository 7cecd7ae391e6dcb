#include "RixsaxYamlWriter.h"

#include <charconv>

#include "RixsaxUtf8.h"

namespace
{
bool IsPlainCharacter(char iCharacter)
{
  return (iCharacter >= 'a' && iCharacter <= 'z') || (iCharacter >= 'A' && iCharacter <= 'Z') ||
         (iCharacter >= '0' && iCharacter <= '9') || iCharacter == ' ' || iCharacter == '_' || iCharacter == '.' ||
         iCharacter == '/' || iCharacter == '-' || iCharacter == '(' || iCharacter == ')' || iCharacter == ',' ||
         iCharacter == ';' || iCharacter == '=' || iCharacter == '+' || iCharacter == '@';
}

// Words YAML 1.1 readers take for truth values or null.
bool IsReservedWord(std::string_view iText)
{
  static constexpr std::string_view Words[] = {"y", "n", "yes", "no", "on", "off", "true", "false", "null"};
  if (iText.size() > 5)
    return false;
  char Lower[5];
  for (std::size_t i = 0; i < iText.size(); ++i)
    Lower[i] = (iText[i] >= 'A' && iText[i] <= 'Z') ? static_cast<char>(iText[i] - 'A' + 'a') : iText[i];
  const std::string_view Word(Lower, iText.size());
  for (const std::string_view Reserved : Words)
    if (Word == Reserved)
      return true;
  return false;
}

// Bare only when it starts with a letter, "_" or "/" (never a number, date,
// indicator or special float), holds only characters without a meaning in
// block context, does not end with a blank and is no reserved word. Anything
// else, non-ASCII text included, is quoted: safe for every reader.
bool IsPlain(std::string_view iText)
{
  if (iText.empty() || iText.back() == ' ')
    return false;
  const char First = iText.front();
  if (!((First >= 'a' && First <= 'z') || (First >= 'A' && First <= 'Z') || First == '_' || First == '/'))
    return false;
  for (const char Character : iText)
    if (!IsPlainCharacter(Character))
      return false;
  return !IsReservedWord(iText);
}

void WriteHex(RixsaxOutput& ioOutput, char iKind, unsigned long iValue, int iDigits)
{
  static constexpr char Hex[] = "0123456789ABCDEF";
  char Text[10] = {'\\', iKind};
  for (int i = 0; i < iDigits; ++i)
    Text[2 + i] = Hex[(iValue >> (4 * (iDigits - 1 - i))) & 0xF];
  ioOutput.Write(std::string_view(Text, static_cast<std::size_t>(2 + iDigits)));
}

// Characters YAML does not allow in a document, or reads as line breaks,
// are escaped; a byte that is not UTF-8 becomes U+FFFD. Runs of characters
// that need nothing are copied in one piece.
void WriteQuoted(std::string_view iText, RixsaxOutput& ioOutput)
{
  ioOutput.Put('"');
  std::size_t Plain = 0;
  for (std::size_t Position = 0; Position < iText.size();)
  {
    const std::size_t Start = Position;
    const unsigned char Byte = static_cast<unsigned char>(iText[Position]);
    if (Byte >= 0x20 && Byte < 0x7F && Byte != '"' && Byte != '\\')
    {
      ++Position;
      continue;
    }
    const long Character = RixsaxNextCharacter(iText, Position);
    const bool Kept = Character > 0x9F && Character != 0x2028 && Character != 0x2029 && Character != 0xFEFF &&
                      Character != 0xFFFE && Character != 0xFFFF;
    if (Kept)
      continue;
    ioOutput.Write(iText.substr(Plain, Start - Plain));
    Plain = Position;
    switch (Character)
    {
      case -1:
        ioOutput.Write("\xEF\xBF\xBD");
        break;
      case '"':
        ioOutput.Write("\\\"");
        break;
      case '\\':
        ioOutput.Write("\\\\");
        break;
      case '\n':
        ioOutput.Write("\\n");
        break;
      case '\t':
        ioOutput.Write("\\t");
        break;
      case '\r':
        ioOutput.Write("\\r");
        break;
      default:
        if (Character <= 0xFF)
          WriteHex(ioOutput, 'x', static_cast<unsigned long>(Character), 2);
        else
          WriteHex(ioOutput, 'u', static_cast<unsigned long>(Character), 4);
    }
  }
  ioOutput.Write(iText.substr(Plain));
  ioOutput.Put('"');
}
}  // namespace

RixsaxYamlWriter::RixsaxYamlWriter(RixsaxOutput& ioOutput) : _Output(ioOutput) {}

void RixsaxYamlWriter::WriteScalar(std::string_view iText, RixsaxOutput& ioOutput)
{
  if (IsPlain(iText))
    ioOutput.Write(iText);
  else
    WriteQuoted(iText, ioOutput);
}

void RixsaxYamlWriter::Indent(std::size_t iDepth)
{
  for (std::size_t i = 0; i < iDepth; ++i)
    _Output.Write("  ");
}

// The document's own object has no line of its own; a member's container
// goes under its "key:", a list item's under its "-", except that the first
// member of an object in a list shares the line of the "-".
void RixsaxYamlWriter::BeginChild()
{
  Frame& Parent = _Frames.back();
  const std::size_t Depth = _Frames.size() - 1;
  if (Parent._Count++ == 0 && _Frames.size() > 1)
  {
    if (Parent._IsItem && Parent._IsObject)
    {
      _Output.Put(' ');
      return;
    }
    _Output.Put('\n');
  }
  Indent(Depth);
}

void RixsaxYamlWriter::Open(bool iIsObject)
{
  bool IsItem = false;
  if (!_Frames.empty() && !_Frames.back()._IsObject)
  {
    BeginChild();
    _Output.Put('-');
    IsItem = true;
  }
  _Frames.push_back({iIsObject, IsItem, 0});
}

void RixsaxYamlWriter::Close()
{
  const Frame Closed = _Frames.back();
  _Frames.pop_back();
  if (Closed._Count == 0 && !_Frames.empty())
    _Output.Write(Closed._IsObject ? " {}\n" : " []\n");
}

void RixsaxYamlWriter::Key(std::string_view iKey)
{
  BeginChild();
  WriteScalar(iKey, _Output);
  _Output.Put(':');
}

void RixsaxYamlWriter::Scalar(std::string_view iText, bool iVerbatim)
{
  if (!_Frames.empty() && !_Frames.back()._IsObject)
  {
    BeginChild();
    _Output.Put('-');
  }
  _Output.Put(' ');
  if (iVerbatim)
    _Output.Write(iText);
  else
    WriteScalar(iText, _Output);
  _Output.Put('\n');
}

void RixsaxYamlWriter::String(std::string_view iText) { Scalar(iText, false); }

void RixsaxYamlWriter::Bool(bool iValue) { Scalar(iValue ? "true" : "false", true); }

void RixsaxYamlWriter::Int(std::int64_t iValue)
{
  char Text[24];
  const auto Result = std::to_chars(Text, Text + sizeof Text, iValue);
  Scalar(std::string_view(Text, static_cast<std::size_t>(Result.ptr - Text)), true);
}

void RixsaxYamlWriter::Null() { Scalar("null", true); }
