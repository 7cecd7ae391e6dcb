// The document as YAML in block style, for people and for YAML tools: one
// member a line, lists as "- " items, empty lists and maps as [] and {}.
// A scalar is written bare only when every YAML reader takes it for the same
// text; otherwise it is double-quoted with YAML escapes.
#ifndef RixsaxYamlWriter_h
#define RixsaxYamlWriter_h

#include <string>
#include <vector>

#include "RixsaxOutput.h"
#include "RixsaxWriter.h"

class RixsaxYamlWriter : public RixsaxWriter
{
public:
  explicit RixsaxYamlWriter(RixsaxOutput& ioOutput);

  void BeginObject() override { Open(true); }
  void EndObject() override { Close(); }
  void BeginArray() override { Open(false); }
  void EndArray() override { Close(); }
  void Key(std::string_view iKey) override;
  void String(std::string_view iText) override;
  void Bool(bool iValue) override;
  void Int(std::int64_t iValue) override;
  void Null() override;
  using RixsaxWriter::String;

  // A text as a YAML scalar: bare when that is safe, quoted otherwise.
  static void WriteScalar(std::string_view iText, RixsaxOutput& ioOutput);

private:
  struct Frame
  {
    bool _IsObject;
    bool _IsItem;  // an item of a list: its first member goes after the "- "
    std::size_t _Count;
  };
  void Open(bool iIsObject);
  void Close();
  // Starts the line of the next child of the innermost container.
  void BeginChild();
  // A scalar value: after "key:" or as a list item.
  void Scalar(std::string_view iText, bool iVerbatim);
  void Indent(std::size_t iDepth);

  RixsaxOutput& _Output;
  std::vector<Frame> _Frames;
};

#endif
