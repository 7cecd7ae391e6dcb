// The host's strings, lists and dictionaries written through a RixsaxWriter.
// Texts are UTF-8 as the host holds them; dictionaries are written as
// objects in their insertion order, each key once, in one pass.
#ifndef RixsaxJsonBasics_h
#define RixsaxJsonBasics_h

#include <cstdio>
#include <string>

#include "KelDicos.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"
#include "RixsaxWriter.h"

inline void RixsaxWrite(RixsaxWriter& ioWriter, const KelUnicodeString& iText) { ioWriter.String(iText); }

inline void RixsaxWrite(RixsaxWriter& ioWriter, const KelUnicodeStringList& iList)
{
  ioWriter.BeginArray();
  for (const KelUnicodeString& Item : iList)
    ioWriter.String(Item);
  ioWriter.EndArray();
}

// A dictionary as an object, each value written by iWrite(ioWriter, value).
template <class V, class Writer>
void RixsaxWrite(RixsaxWriter& ioWriter, const KelDico<V>& iDico, Writer iWrite)
{
  ioWriter.BeginObject();
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
  {
    ioWriter.Key(It.GetKey().View());
    iWrite(ioWriter, *It);
  }
  ioWriter.EndObject();
}

inline void RixsaxWrite(RixsaxWriter& ioWriter, const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  RixsaxWrite(ioWriter, iDico, [](RixsaxWriter& ioOut, const KelUnicodeString& iValue) { ioOut.String(iValue); });
}

inline void RixsaxWrite(RixsaxWriter& ioWriter, const KelUnicodeStringListKelUnicodeStringDico& iDico)
{
  RixsaxWrite(ioWriter, iDico,
              [](RixsaxWriter& ioOut, const KelUnicodeStringList& iValue) { RixsaxWrite(ioOut, iValue); });
}

// A result code as 8 hex digits, e.g. "0x80004005".
inline std::string RixsaxResultText(HRESULT iResult)
{
  char Text[16];
  std::snprintf(Text, sizeof Text, "0x%08X", static_cast<unsigned>(iResult));
  return Text;
}

#endif
