// Common part of the objects, major objects and minor objects of an object
// context: the type and name the context knows the entity by, and the
// properties set on it.
//
// Properties are declared with MabERixProperty(Type, Field), which gives
//   HRESULT _Set<Field>(const Type&)  sets the property (S_OK);
//   HRESULT Get<Field>(Type&) const   reads it; E_FAIL, out untouched,
//                                     while it has never been set.
// An empty text is a value like any other. GetSetProperties() lists the set
// properties under the name <Field>, in the order they were first set.
#ifndef MabERixEntity_h
#define MabERixEntity_h

#include <vector>

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelUnicodeString.h"
#include "MabRixPropertyBag.h"

#define MabERixProperty(Type, Field)                                                  \
  HRESULT _Set##Field(const Type& iValue) { return _Properties.Set(#Field, iValue); } \
  HRESULT Get##Field(Type& oValue) const { return _Properties.Get(#Field, oValue); }

class MabERixEntity : public KelBaseUnknown
{
  KelDeclareClass

public:
  MabERixEntity(const MabERixEntity&) = delete;
  MabERixEntity& operator=(const MabERixEntity&) = delete;

  // The type and name given to the context's creation (not properties).
  const KelUnicodeString& GetKeyType() const { return _KeyType; }
  const KelUnicodeString& GetKeyName() const { return _KeyName; }

  // The properties set so far, in the order they were first set.
  const std::vector<MabRixProperty>& GetSetProperties() const { return _Properties.GetSetProperties(); }

protected:
  MabERixEntity(const KelUnicodeString& iType, const KelUnicodeString& iName) : _KeyType(iType), _KeyName(iName) {}

  MabRixPropertyBag _Properties;

private:
  KelUnicodeString _KeyType;
  KelUnicodeString _KeyName;
};

#endif
