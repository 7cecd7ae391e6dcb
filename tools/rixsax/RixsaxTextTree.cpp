#include "RixsaxTextTree.h"

namespace
{
std::string Quoted(const std::string& iText)
{
  return RixsaxJson(iText).dump(-1, ' ', false, RixsaxJson::error_handler_t::replace);
}

// A text is written bare when it cannot be misread: not empty, no blank at
// either end, no quote, backslash or control character, and not taken for
// a number, a truth value or null.
bool IsPlain(const std::string& iText)
{
  if (iText.empty() || iText.front() == ' ' || iText.back() == ' ' || iText.front() == '-')
    return false;
  if (iText == "null" || iText == "true" || iText == "false" || iText == "[]" || iText == "{}")
    return false;
  if (iText.find_first_not_of("0123456789.+-eE") == std::string::npos)
    return false;
  for (const char Character : iText)
    if (Character == '"' || Character == '\\' || static_cast<unsigned char>(Character) < 0x20)
      return false;
  return true;
}

std::string Scalar(const RixsaxJson& iJson)
{
  if (iJson.is_array())
    return "[]";
  if (iJson.is_object())
    return "{}";
  if (iJson.is_string())
  {
    const std::string& Text = iJson.get_ref<const std::string&>();
    return IsPlain(Text) ? Text : Quoted(Text);
  }
  return iJson.dump();
}

bool IsLeaf(const RixsaxJson& iJson) { return !iJson.is_structured() || iJson.empty(); }

// Keys are written bare unless they could be misread.
std::string Key(const std::string& iKey)
{
  return IsPlain(iKey) && iKey.find(':') == std::string::npos ? iKey : Quoted(iKey);
}

void Write(const RixsaxJson& iJson, const std::string& iIndent, std::string& ioText);

// " value" and the end of the line.
void WriteLeaf(const RixsaxJson& iJson, std::string& ioText)
{
  ioText += ' ';
  ioText += Scalar(iJson);
  ioText += '\n';
}

// The members of an object; the first one goes on the current line when
// iFirstInline (after a list's "- ").
void WriteMembers(const RixsaxJson& iObject, const std::string& iIndent, bool iFirstInline, std::string& ioText)
{
  bool First = true;
  for (auto It = iObject.begin(); It != iObject.end(); ++It)
  {
    if (!(First && iFirstInline))
      ioText += iIndent;
    First = false;
    ioText += Key(It.key());
    ioText += ':';
    if (IsLeaf(It.value()))
      WriteLeaf(It.value(), ioText);
    else
    {
      ioText += "\n";
      Write(It.value(), iIndent + "  ", ioText);
    }
  }
}

void WriteItems(const RixsaxJson& iArray, const std::string& iIndent, std::string& ioText)
{
  for (const RixsaxJson& Item : iArray)
  {
    ioText += iIndent;
    ioText += '-';
    if (IsLeaf(Item))
      WriteLeaf(Item, ioText);
    else if (Item.is_object())
    {
      ioText += " ";
      WriteMembers(Item, iIndent + "  ", true, ioText);
    }
    else
    {
      ioText += "\n";
      Write(Item, iIndent + "  ", ioText);
    }
  }
}

void Write(const RixsaxJson& iJson, const std::string& iIndent, std::string& ioText)
{
  if (IsLeaf(iJson))
  {
    ioText += iIndent;
    WriteLeaf(iJson, ioText);
  }
  else if (iJson.is_object())
    WriteMembers(iJson, iIndent, false, ioText);
  else
    WriteItems(iJson, iIndent, ioText);
}
}  // namespace

std::string RixsaxTextTree(const RixsaxJson& iJson)
{
  std::string Text;
  Write(iJson, "", Text);
  return Text;
}
