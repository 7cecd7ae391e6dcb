/// The saved-query record of the host: keeps what it is given. A field that
/// was never set stays unset, which a reader can tell from an empty one.
/// Properties keep every addition, in order, repeats included. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSavedQueryRecord_h
#define MabRixSavedQueryRecord_h

#include <optional>
#include <vector>

#include "KelClassMacros.h"
#include "MabIRixSavedQueryRecord.h"

class MabRixSavedQueryRecord : public virtual MabIRixSavedQueryRecord
{
  KelDeclareClass

public:
  struct Property
  {
    KelUnicodeString _Name;
    KelUnicodeString _Value;
    bool operator==(const Property& iOther) const { return _Name == iOther._Name && _Value == iOther._Value; }
  };

  MabRixSavedQueryRecord() = default;

  HRESULT SetName(const KelUnicodeString& iName) override;
  HRESULT SetDescription(const KelUnicodeString& iDescription) override;
  HRESULT SetCriteriaName(const KelUnicodeString& iName) override;
  HRESULT SetCriteriaRevision(const KelUnicodeString& iRevision) override;
  HRESULT SetCriteriaOwner(const KelUnicodeString& iOwner) override;
  HRESULT SetCriteriaVaults(const KelUnicodeStringList& iVaults) override;
  HRESULT SetCriteriaTypes(const KelUnicodeStringList& iTypes) override;
  HRESULT AddBasicProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue) override;
  HRESULT AddProperty(const KelUnicodeString& iName, const KelUnicodeString& iValue) override;

  std::optional<KelUnicodeString> _Name;
  std::optional<KelUnicodeString> _Description;
  std::optional<KelUnicodeString> _CriteriaName;
  std::optional<KelUnicodeString> _CriteriaRevision;
  std::optional<KelUnicodeString> _CriteriaOwner;
  std::optional<KelUnicodeStringList> _CriteriaVaults;
  std::optional<KelUnicodeStringList> _CriteriaTypes;
  std::vector<Property> _BasicProperties;
  std::vector<Property> _Properties;
};

#endif
