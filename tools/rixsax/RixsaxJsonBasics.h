// JSON of the host's strings, lists and dictionaries. Texts are UTF-8 as the
// host holds them; dictionaries keep their insertion order (an array of
// entries would lose the look of a map, so objects are written in order).
#ifndef RixsaxJsonBasics_h
#define RixsaxJsonBasics_h

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

#include "KelDicos.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"

// Objects keep the order in which members are written.
typedef nlohmann::ordered_json RixsaxJson;

inline RixsaxJson RixsaxToJson(const KelUnicodeString& iText) { return iText.ToUtf8(); }

inline RixsaxJson RixsaxToJson(const KelUnicodeStringList& iList)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const KelUnicodeString& Item : iList)
    Array.push_back(Item.ToUtf8());
  return Array;
}

// A dictionary as an object, each value written by iWrite.
template <class V, class Writer>
RixsaxJson RixsaxToJson(const KelDico<V>& iDico, Writer iWrite)
{
  RixsaxJson Object = RixsaxJson::object();
  for (auto It = iDico.begin(); It != iDico.end(); ++It)
    Object[It.GetKey().ToUtf8()] = iWrite(*It);
  return Object;
}

inline RixsaxJson RixsaxToJson(const KelUnicodeStringKelUnicodeStringDico& iDico)
{
  return RixsaxToJson(iDico, [](const KelUnicodeString& iValue) { return RixsaxToJson(iValue); });
}

inline RixsaxJson RixsaxToJson(const KelUnicodeStringListKelUnicodeStringDico& iDico)
{
  return RixsaxToJson(iDico, [](const KelUnicodeStringList& iValue) { return RixsaxToJson(iValue); });
}

// A result code as 8 hex digits, e.g. "0x80004005".
inline std::string RixsaxResultText(HRESULT iResult)
{
  char Text[16];
  std::snprintf(Text, sizeof Text, "0x%08X", static_cast<unsigned>(iResult));
  return Text;
}

#endif
