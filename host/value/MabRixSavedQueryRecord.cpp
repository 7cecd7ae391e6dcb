#include "MabRixSavedQueryRecord.h"

KelImplementClass(MabRixSavedQueryRecord, KelBaseUnknown, "KelSystem")

namespace
{
template <class T>
HRESULT Keep(std::optional<T>& oField, const T& iValue)
{
  oField = iValue;
  return S_OK;
}

HRESULT Append(std::vector<MabRixSavedQueryRecord::Property>& ioList, const KelUnicodeString& iName,
               const KelUnicodeString& iValue)
{
  ioList.push_back({iName, iValue});
  return S_OK;
}
}  // namespace

HRESULT MabRixSavedQueryRecord::SetName(const KelUnicodeString& iName) { return Keep(_Name, iName); }
HRESULT MabRixSavedQueryRecord::SetDescription(const KelUnicodeString& iDescription)
{
  return Keep(_Description, iDescription);
}
HRESULT MabRixSavedQueryRecord::SetCriteriaName(const KelUnicodeString& iName) { return Keep(_CriteriaName, iName); }
HRESULT MabRixSavedQueryRecord::SetCriteriaRevision(const KelUnicodeString& iRevision)
{
  return Keep(_CriteriaRevision, iRevision);
}
HRESULT MabRixSavedQueryRecord::SetCriteriaOwner(const KelUnicodeString& iOwner)
{
  return Keep(_CriteriaOwner, iOwner);
}
HRESULT MabRixSavedQueryRecord::SetCriteriaVaults(const KelUnicodeStringList& iVaults)
{
  return Keep(_CriteriaVaults, iVaults);
}
HRESULT MabRixSavedQueryRecord::SetCriteriaTypes(const KelUnicodeStringList& iTypes)
{
  return Keep(_CriteriaTypes, iTypes);
}
HRESULT MabRixSavedQueryRecord::AddBasicProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue)
{
  return Append(_BasicProperties, iName, iValue);
}
HRESULT MabRixSavedQueryRecord::AddProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue)
{
  return Append(_Properties, iName, iValue);
}
