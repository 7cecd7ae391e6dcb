// The handlers rixsax can read with: the library's handler catalogue, each
// factory answering the catalogue's options from the options of the run.
#ifndef RixsaxRegistry_h
#define RixsaxRegistry_h

#include <functional>
#include <string>
#include <vector>

#include "MabRixSAXHandlerBase.h"

class RixsaxSession;

typedef std::function<MabIRixSAXHandler_var(MabRixSAXHandlerBase& iParent, RixsaxSession& ioSession)>
    RixsaxHandlerFactory;

// What a handler borrows from the session besides the options.
enum RixsaxContextUse : unsigned
{
  RixsaxNoContext = 0,
  RixsaxUsesTNRContext = 1,
  RixsaxUsesCADContext = 2
};

struct RixsaxHandlerEntry
{
  const char* _Name;
  const char* _ClassName;
  const char* _Description;
  unsigned _Contexts;
  RixsaxHandlerFactory _Factory;
};

// Every handler, in the order rixsax handlers lists them.
const std::vector<RixsaxHandlerEntry>& RixsaxHandlers();
// The entry of a name; null when there is none.
const RixsaxHandlerEntry* RixsaxFindHandler(const std::string& iName);

#endif
