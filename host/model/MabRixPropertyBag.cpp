#include "MabRixPropertyBag.h"

#include <cstring>
#include <utility>

const MabRixProperty* MabRixPropertyBag::Find(const char* iName) const
{
  for (const MabRixProperty& Property : _Properties)
    if (Property._Name == iName || (Property._Name[0] == iName[0] && std::strcmp(Property._Name, iName) == 0))
      return &Property;  // names are literals: the same name is often the same address
  return nullptr;
}

MabRixProperty* MabRixPropertyBag::Find(const char* iName)
{
  return const_cast<MabRixProperty*>(static_cast<const MabRixPropertyBag*>(this)->Find(iName));
}

void MabRixPropertyBag::Add(MabRixProperty&& iProperty)
{
  // Entities get a few properties each: one allocation for the first four.
  if (_Properties.empty())
    _Properties.reserve(4);
  _Properties.push_back(std::move(iProperty));
}
