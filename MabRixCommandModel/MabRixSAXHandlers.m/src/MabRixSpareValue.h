// A handler that hands a value up may build its next value in the same
// object when no one kept it: no one can see the difference.
#ifndef MabRixSpareValue_h
#define MabRixSpareValue_h

#include <typeinfo>

// Keeps ipValue in iopSpare (one reference) when the spare is free, ipValue is
// of exactly class Value and the caller's reference is the only one left.
// The caller then empties it.
template <class Value>
bool MabRixKeepIfUnheld(Value* ipValue, Value*& iopSpare)
{
  if (iopSpare || ipValue->GetRefCount() != 1 || typeid(*ipValue) != typeid(Value))
    return false;
  ipValue->AddRef();
  iopSpare = ipValue;
  return true;
}

#endif
