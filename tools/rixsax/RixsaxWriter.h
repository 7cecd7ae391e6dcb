// The events of a document as rixsax produces it, written out as they come:
// no tree of the whole document is ever built. RixsaxJsonWriter and
// RixsaxYamlWriter turn the events into text.
#ifndef RixsaxWriter_h
#define RixsaxWriter_h

#include <cstdint>
#include <string_view>

#include "KelUnicodeString.h"

class RixsaxWriter
{
public:
  virtual ~RixsaxWriter() = default;

  virtual void BeginObject() = 0;
  virtual void EndObject() = 0;
  virtual void BeginArray() = 0;
  virtual void EndArray() = 0;
  // The name of the next member of the current object.
  virtual void Key(std::string_view iKey) = 0;
  virtual void String(std::string_view iText) = 0;
  virtual void Bool(bool iValue) = 0;
  virtual void Int(std::int64_t iValue) = 0;
  virtual void Null() = 0;

  void String(const KelUnicodeString& iText) { String(iText.View()); }
  void Member(std::string_view iKey, std::string_view iText)
  {
    Key(iKey);
    String(iText);
  }
  void Member(std::string_view iKey, const char* iText)
  {
    Key(iKey);
    String(std::string_view(iText));
  }
  void Member(std::string_view iKey, const KelUnicodeString& iText)
  {
    Key(iKey);
    String(iText.View());
  }
  void MemberBool(std::string_view iKey, bool iValue)
  {
    Key(iKey);
    Bool(iValue);
  }
  void MemberInt(std::string_view iKey, std::int64_t iValue)
  {
    Key(iKey);
    Int(iValue);
  }
  void MemberNull(std::string_view iKey)
  {
    Key(iKey);
    Null();
  }
};

#endif
