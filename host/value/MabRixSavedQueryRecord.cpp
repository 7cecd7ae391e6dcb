#include "MabRixSavedQueryRecord.h"

KelImplementClass(MabRixSavedQueryRecord, KelBaseUnknown, "KelSystem")

HRESULT MabRixSavedQueryRecord::SetName(const KelUnicodeString& iName)
{
  _Name = iName;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetDescription(const KelUnicodeString& iDescription)
{
  _Description = iDescription;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetCriteriaName(const KelUnicodeString& iName)
{
  _CriteriaName = iName;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetCriteriaRevision(const KelUnicodeString& iRevision)
{
  _CriteriaRevision = iRevision;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetCriteriaOwner(const KelUnicodeString& iOwner)
{
  _CriteriaOwner = iOwner;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetCriteriaVaults(const KelUnicodeStringList& iVaults)
{
  _CriteriaVaults = iVaults;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::SetCriteriaTypes(const KelUnicodeStringList& iTypes)
{
  _CriteriaTypes = iTypes;
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::AddBasicProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue)
{
  _BasicProperties.push_back({iName, iValue});
  return S_OK;
}

HRESULT MabRixSavedQueryRecord::AddProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue)
{
  _Properties.push_back({iName, iValue});
  return S_OK;
}
