/// Splitting of delimited text into lists and maps.
///
/// GetList: empty text gives an empty list; an empty separator gives the whole
/// text as one item; otherwise the pieces between successive separators,
/// empty pieces kept ("a,,b" gives a, "", b; "a," gives a, "").
/// GetMap: iFirst cuts the entries (GetList's rule), each entry is cut into
/// key and value at its first iSecond; an entry without iSecond is a key with
/// an empty value; empty entries and empty keys are skipped; the first entry
/// of a key wins. GetListMap: as GetMap, each value then cut by GetList with
/// iThird. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixStringUtils_h
#define MabRixStringUtils_h

#include "KelDicos.h"

class MabRixStringUtils
{
public:
  static KelUnicodeStringList GetList(const KelUnicodeString& iText, const KelUnicodeString& iSeparator);
  static KelUnicodeStringKelUnicodeStringDico GetMap(const KelUnicodeString& iText, const KelUnicodeString& iFirst,
                                                     const KelUnicodeString& iSecond);
  static KelUnicodeStringListKelUnicodeStringDico GetListMap(const KelUnicodeString& iText,
                                                             const KelUnicodeString& iFirst,
                                                             const KelUnicodeString& iSecond,
                                                             const KelUnicodeString& iThird);
};

#endif
