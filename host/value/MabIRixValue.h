/// Interface of the value objects that handlers build and hand up. A receiver
/// tells the kind by the class name of the implementation (GetImpl()->IsA())
/// and reads that class's public members. Ownership, threads, errors: @ref conventions. @file
#ifndef MabIRixValue_h
#define MabIRixValue_h

#include "KelBaseUnknown.h"
#include "KelVar.h"

class MabIRixValue : public virtual KelBaseUnknown
{};

typedef KelVar<MabIRixValue> MabIRixValue_var;

#endif
