#include "MabRixPropertyBag.h"

#include <cstring>

const MabRixProperty* MabRixPropertyBag::Find(const char* iName) const
{
  for (const MabRixProperty& Property : _Properties)
    if (Property._Name == iName || std::strcmp(Property._Name, iName) == 0)  // names are literals
      return &Property;
  return nullptr;
}

MabRixProperty* MabRixPropertyBag::Find(const char* iName)
{
  return const_cast<MabRixProperty*>(static_cast<const MabRixPropertyBag*>(this)->Find(iName));
}
