// JSON as nlohmann's dump writes it (two-space indents, or one line), but
// straight to the output as the events come.
#ifndef RixsaxJsonWriter_h
#define RixsaxJsonWriter_h

#include <vector>

#include "RixsaxOutput.h"
#include "RixsaxWriter.h"

class RixsaxJsonWriter : public RixsaxWriter
{
public:
  // iIndented: members and items one a line; otherwise the whole document
  // on one line (a JSON Lines record).
  RixsaxJsonWriter(RixsaxOutput& ioOutput, bool iIndented);

  void BeginObject() override { Open('{'); }
  void EndObject() override { Close('}'); }
  void BeginArray() override { Open('['); }
  void EndArray() override { Close(']'); }
  void Key(std::string_view iKey) override;
  void String(std::string_view iText) override;
  void Bool(bool iValue) override;
  void Int(std::int64_t iValue) override;
  void Null() override;
  using RixsaxWriter::String;

  // A string as a JSON string, quotes included.
  static void Escape(std::string_view iText, RixsaxOutput& ioOutput);

private:
  void Open(char iBracket);
  void Close(char iBracket);
  // Before a value: the separator and indent an array item needs.
  void BeforeValue();
  void NewLine(std::size_t iDepth);

  RixsaxOutput& _Output;
  bool _Indented;
  bool _AfterKey = false;
  std::vector<std::size_t> _Counts;  // children written so far, per open container
};

#endif
