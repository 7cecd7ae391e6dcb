// What the catalogue's factories ask for when they build a handler: the
// separators, element names, formats and objects its constructor takes. Each
// reader of the catalogue answers from its own source: rixsax from its
// command line, the tests and the fuzz targets from option bytes, the
// benchmarks from fixed choices. A factory asks only for the options its
// catalogue entry lists, in a fixed order, and at most once each.
#ifndef MabRixHandlerOptions_h
#define MabRixHandlerOptions_h

#include "KelDicos.h"
#include "KelUnicodeString.h"

class MabRixCADObjectContext;
class MabRixObjectDetailsResponse;
class MabRixTNRObjectContext;
class MabRixValueFormat;

// The options a handler takes, as bits of MabRixCatalogueEntry::_Options; the
// names are rixsax's option names.
enum MabRixHandlerOption : unsigned
{
  MabRixListSeparatorOption = 1u << 0,          // list-sep
  MabRixFirstSeparatorOption = 1u << 1,         // first-sep
  MabRixSecondSeparatorOption = 1u << 2,        // second-sep
  MabRixItemElementOption = 1u << 3,            // item
  MabRixKeyValueElementsOption = 1u << 4,       // key, value
  MabRixValueFormatOption = 1u << 5,            // value-format
  MabRixFormatMapOption = 1u << 6,              // format-for
  MabRixElementKindOption = 1u << 7,            // element-kind
  MabRixRootLevelOption = 1u << 8,              // root-level
  MabRixLockSuccessOption = 1u << 9,            // lock-success
  MabRixObjectDetailsResponseOption = 1u << 10  // can-resolve-uuid-conflict
};

class MabRixHandlerOptions
{
public:
  virtual ~MabRixHandlerOptions() = default;

  virtual KelUnicodeString ListSeparator() = 0;
  virtual KelUnicodeString FirstSeparator() = 0;
  virtual KelUnicodeString SecondSeparator() = 0;
  // The element whose texts an XML string list collects.
  virtual KelUnicodeString ItemElement() = 0;
  // True when an XML string map reads key/value element pairs, named by
  // KeyElement() and ValueElement(), asked for in that order.
  virtual bool KeyValueElements() = 0;
  virtual KelUnicodeString KeyElement() = 0;
  virtual KelUnicodeString ValueElement() = 0;
  // A format per attribute name; null when the attribute handler takes one
  // format, which Format() gives then.
  virtual KelBaseUnknown_varKelUnicodeStringDico* FormatMap() = 0;
  virtual MabRixValueFormat& Format() = 0;
  virtual KelUnicodeString ElementKind() = 0;
  virtual int RootLevel() = 0;
  // TRUE or FALSE: the outcome a lock/unlock handler reports.
  virtual unsigned char LockSuccess() = 0;
  // The contexts the handler writes, lent through a pointer that outlives it.
  virtual MabRixTNRObjectContext*& TNRContext() = 0;
  virtual MabRixCADObjectContext*& CADContext() = 0;
  // The object-details response lent to the object-details handler; null for
  // none.
  virtual MabRixObjectDetailsResponse* ObjectDetailsResponse() = 0;
};

#endif
