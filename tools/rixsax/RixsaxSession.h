// What the command layer owns for one run of rixsax and lends to the
// handlers of every step: the options as the constructors take them, the
// object contexts shared by all steps, and the value formats.
#ifndef RixsaxSession_h
#define RixsaxSession_h

#include "KelUnicodeString.h"
#include "RixsaxOptions.h"

class RixsaxSession
{
public:
  explicit RixsaxSession(const RixsaxOptions& iOptions);
  ~RixsaxSession();
  RixsaxSession(const RixsaxSession&) = delete;
  RixsaxSession& operator=(const RixsaxSession&) = delete;

  const RixsaxOptions& Options() const { return _Options; }

  // Separators and names, kept as the handlers' constructors borrow them.
  KelUnicodeString _FirstSeparator;
  KelUnicodeString _SecondSeparator;
  KelUnicodeString _ListSeparator;
  KelUnicodeString _Item;
  KelUnicodeString _Key;
  KelUnicodeString _Value;
  KelUnicodeString _ElementKind;

private:
  RixsaxOptions _Options;
};

#endif
