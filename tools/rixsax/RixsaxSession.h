// What the command layer owns for one run of rixsax and lends to the
// handlers of every step: the options as the constructors take them, the
// object contexts shared by all steps, the value formats and the
// object-details response.
#ifndef RixsaxSession_h
#define RixsaxSession_h

#include "KelDicos.h"
#include "KelUnicodeString.h"
#include "KelVar.h"
#include "MabRixCADObjectContext.h"
#include "MabRixObjectDetailsResponse.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixValueFormat.h"
#include "RixsaxOptions.h"

class RixsaxSession
{
public:
  explicit RixsaxSession(const RixsaxOptions& iOptions);
  ~RixsaxSession();
  RixsaxSession(const RixsaxSession&) = delete;
  RixsaxSession& operator=(const RixsaxSession&) = delete;

  const RixsaxOptions& Options() const { return _Options; }

  // The contexts, made on first use; null until then.
  MabRixTNRObjectContext*& TNRContext();
  MabRixCADObjectContext*& CADContext();
  const MabRixTNRObjectContext* UsedTNRContext() const { return _pTNRContext; }
  const MabRixCADObjectContext* UsedCADContext() const { return _pCADContext; }

  // The attribute handler's format: one format, or a map of them when
  // --format-for was given.
  bool HasFormatMap() const { return _FormatMap.Size() > 0; }
  MabRixValueFormat& Format() { return *_spFormat; }
  KelBaseUnknown_varKelUnicodeStringDico& FormatMap() { return _FormatMap; }

  // The object-details response; null unless --can-resolve-uuid-conflict.
  MabRixObjectDetailsResponse* ObjectDetailsResponse() { return _spObjectDetailsResponse.Get(); }

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
  MabRixTNRObjectContext* _pTNRContext = nullptr;
  MabRixCADObjectContext* _pCADContext = nullptr;
  KelVar<MabRixValueFormat> _spFormat;
  KelBaseUnknown_varKelUnicodeStringDico _FormatMap;
  MabRixObjectDetailsResponse_var _spObjectDetailsResponse;
};

#endif
