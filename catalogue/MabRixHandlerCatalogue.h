// Every handler of the library, once: its command name, its class, what it
// reads, the options it takes, the context it writes and a factory. rixsax,
// the tests, the benchmarks and the fuzz targets all build handlers from it;
// a handler the library registers and the catalogue lacks fails a test.
#ifndef MabRixHandlerCatalogue_h
#define MabRixHandlerCatalogue_h

#include <cstddef>
#include <span>
#include <string_view>

#include "MabRixHandlerOptions.h"
#include "MabRixSAXHandlerBase.h"

// The object context a handler writes into (a custom query result carries
// its own context in its value: it writes none).
enum class MabRixWrittenContext
{
  None,
  TNR,
  CAD
};

// Builds the handler with iParent as its parent; the caller's holder is the
// only owner.
typedef MabIRixSAXHandler_var (*MabRixCatalogueFactory)(MabRixSAXHandlerBase& iParent, MabRixHandlerOptions& ioOptions);

struct MabRixCatalogueEntry
{
  const char* _Name;         // the command name, e.g. "object-list"
  const char* _ClassName;    // as IsA() answers
  const char* _Description;  // one line
  unsigned _Options;         // MabRixHandlerOption bits
  MabRixWrittenContext _Context;
  MabRixCatalogueFactory _Make;
};

// Every entry, in the order rixsax lists them.
std::span<const MabRixCatalogueEntry> MabRixHandlerCatalogue();
// The entry of a command name, or of a class name; null when there is none.
const MabRixCatalogueEntry* MabRixFindCatalogueEntry(std::string_view iName);
const MabRixCatalogueEntry* MabRixFindCatalogueClass(std::string_view iClassName);

#endif
