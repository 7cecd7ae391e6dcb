/// The dictionaries the handlers fill, named by value type then key type. See @ref conventions. @file
#ifndef KelDicos_h
#define KelDicos_h

#include "KelDico.h"
#include "KelUnicodeStringList.h"
#include "KelVar.h"

typedef KelDico<KelUnicodeString> KelUnicodeStringKelUnicodeStringDico;
typedef KelDico<KelUnicodeStringList> KelUnicodeStringListKelUnicodeStringDico;
typedef KelDico<KelBaseUnknown_var> KelBaseUnknown_varKelUnicodeStringDico;

#endif
