// The properties of an object-model entity that have been set, in the order
// they were first set. A property is known by its field name ("CADType",
// "LockStatus", "MinorDocumentID"...) and holds one typed value. Setting a
// property again replaces its value and keeps its place. Reading a property
// that was never set, or reading it as another type, fails.
#ifndef MabRixPropertyBag_h
#define MabRixPropertyBag_h

#include <variant>
#include <vector>

#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"
#include "MabRixDocumentID.h"
#include "MabRixPath.h"

// Value of a property: a text, a flag (FALSE/TRUE), a list of texts, a path
// or a document ID.
typedef std::variant<KelUnicodeString, unsigned char, KelUnicodeStringList, MabRixPath, MabRixDocumentID>
    MabRixPropertyValue;

struct MabRixProperty
{
  const char* _Name;  // field name, a literal of the entity class
  MabRixPropertyValue _Value;
};

class MabRixPropertyBag
{
public:
  template <class T>
  HRESULT Set(const char* iName, const T& iValue)
  {
    if (MabRixProperty* pProperty = Find(iName))
      pProperty->_Value = iValue;
    else
      Add(MabRixProperty{iName, MabRixPropertyValue(std::in_place_type<T>, iValue)});
    return S_OK;
  }

  // E_FAIL, oValue untouched, when the property is not set or holds
  // another type.
  template <class T>
  HRESULT Get(const char* iName, T& oValue) const
  {
    const MabRixProperty* pProperty = Find(iName);
    const T* pValue = pProperty ? std::get_if<T>(&pProperty->_Value) : nullptr;
    if (!pValue)
      return E_FAIL;
    oValue = *pValue;
    return S_OK;
  }

  bool IsSet(const char* iName) const { return Find(iName) != nullptr; }

  // Every property set so far, in the order of first setting.
  const std::vector<MabRixProperty>& GetSetProperties() const { return _Properties; }

private:
  MabRixProperty* Find(const char* iName);
  // Appends a property not set yet.
  void Add(MabRixProperty&& iProperty);
  const MabRixProperty* Find(const char* iName) const;

  std::vector<MabRixProperty> _Properties;
};

#endif
