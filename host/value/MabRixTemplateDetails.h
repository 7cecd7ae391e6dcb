/// One template the server offers, as a template list row describes it. See @ref conventions. @file
#ifndef MabRixTemplateDetails_h
#define MabRixTemplateDetails_h

#include "KelDico.h"
#include "KelUnicodeString.h"

class MabRixTemplateDetails
{
public:
  KelUnicodeString _Name;
  KelUnicodeString _OID;
  KelUnicodeString _Type;
  KelUnicodeString _Revision;
  KelUnicodeString _FileName;
  KelUnicodeString _Format;

  bool operator==(const MabRixTemplateDetails& iOther) const;
  bool operator!=(const MabRixTemplateDetails& iOther) const { return !(*this == iOther); }
};

typedef KelDico<MabRixTemplateDetails> MabRixTemplateDetailsKelUnicodeStringDico;

#endif
