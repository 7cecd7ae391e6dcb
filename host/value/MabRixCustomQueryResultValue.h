/// Result of a custom query: the objects, major objects and minor objects of
/// its rows, in a type/name/revision object context that the value creates
/// and owns. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixCustomQueryResultValue_h
#define MabRixCustomQueryResultValue_h

#include "KelClassMacros.h"
#include "KelVar.h"
#include "MabIRixValue.h"
#include "MabRixTNRObjectContext.h"

class MabRixCustomQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  /// Starts with a new, empty context.
  MabRixCustomQueryResultValue();

  MabRixTNRObjectContext* GetObjectContext() const { return _spObjectContext.Get(); }

  KelVar<MabRixTNRObjectContext> _spObjectContext;
};

#endif
