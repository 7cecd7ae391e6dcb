/// The query a saved-query result describes: its name and description, and
/// its criteria (name, revision, owner, vaults, types and named properties,
/// basic or not). The reader of the result calls these operations as the
/// parts arrive; each returns a result code. Ownership, threads, errors: @ref conventions. @file
#ifndef MabIRixSavedQueryRecord_h
#define MabIRixSavedQueryRecord_h

#include "KelBaseUnknown.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"
#include "KelVar.h"

class MabIRixSavedQueryRecord : public virtual KelBaseUnknown
{
public:
  virtual HRESULT SetName(const KelUnicodeString& iName) = 0;
  virtual HRESULT SetDescription(const KelUnicodeString& iDescription) = 0;
  virtual HRESULT SetCriteriaName(const KelUnicodeString& iName) = 0;
  virtual HRESULT SetCriteriaRevision(const KelUnicodeString& iRevision) = 0;
  virtual HRESULT SetCriteriaOwner(const KelUnicodeString& iOwner) = 0;
  virtual HRESULT SetCriteriaVaults(const KelUnicodeStringList& iVaults) = 0;
  virtual HRESULT SetCriteriaTypes(const KelUnicodeStringList& iTypes) = 0;
  virtual HRESULT AddBasicProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue) = 0;
  virtual HRESULT AddProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue) = 0;
};

typedef KelVar<MabIRixSavedQueryRecord> MabIRixSavedQueryRecord_var;

#endif
