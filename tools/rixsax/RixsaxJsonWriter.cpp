#include "RixsaxJsonWriter.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "RixsaxUtf8.h"

RixsaxJsonWriter::RixsaxJsonWriter(RixsaxOutput& ioOutput, bool iIndented) : _Output(ioOutput), _Indented(iIndented) {}

void RixsaxJsonWriter::NewLine(std::size_t iDepth)
{
  static constexpr std::string_view Spaces = "                                                                ";
  _Output.Put('\n');
  for (std::size_t Left = 2 * iDepth; Left > 0;)
  {
    const std::size_t Some = std::min(Left, Spaces.size());
    _Output.Write(Spaces.substr(0, Some));
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
  Escape(iKey, _Output);
  _Output.Write(_Indented ? ": " : ":");
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
  bool Ascii = true;
  for (const char Character : iText)
    Ascii &= static_cast<unsigned char>(Character) < 0x80;
  for (std::size_t Position = 0; !Ascii && Position < iText.size();)
    if (RixsaxNextCharacter(iText, Position) < 0)
    {
      ioOutput.Write(nlohmann::json(std::string(iText)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
      return;
    }
  ioOutput.Put('"');
  std::size_t Plain = 0;
  for (std::size_t i = 0; i < iText.size(); ++i)
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
