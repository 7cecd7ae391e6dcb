#include "RixsaxRegistry.h"

#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"
#include "RixsaxSession.h"

namespace
{
// Adopts the creation reference: the caller's holder is the only owner.
template <class Handler, class... Args>
MabIRixSAXHandler_var Make(MabRixSAXHandlerBase& iParent, Args&&... iArgs)
{
  return MabIRixSAXHandler_var::Adopt(new Handler(iParent, std::forward<Args>(iArgs)...));
}

template <class Handler>
RixsaxHandlerFactory ParentOnly()
{
  return [](MabRixSAXHandlerBase& iParent, RixsaxSession&) { return Make<Handler>(iParent); };
}
}  // namespace

const std::vector<RixsaxHandlerEntry>& RixsaxHandlers()
{
  static const std::vector<RixsaxHandlerEntry> Entries = {
      {"string", "MabRixSAXHandlerString", "the text of one element as a string", RixsaxNoContext,
       ParentOnly<MabRixSAXHandlerString>()},
      {"boolean", "MabRixSAXHandlerBoolean", "the text of one element as a truth value (yes or true)",
       RixsaxNoContext, ParentOnly<MabRixSAXHandlerBoolean>()},
  };
  return Entries;
}

const RixsaxHandlerEntry* RixsaxFindHandler(const std::string& iName)
{
  for (const RixsaxHandlerEntry& Entry : RixsaxHandlers())
    if (iName == Entry._Name)
      return &Entry;
  return nullptr;
}
