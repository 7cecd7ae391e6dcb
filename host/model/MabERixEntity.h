/// Common part of the objects, major objects and minor objects of an object
/// context: the type and name the context knows the entity by, and the
/// properties set on it.
///
/// Key texts and property values live in a store (MabRixContextStore): the
/// context's for the entities it makes, or one of the entity's own for an
/// entity made alone.
///
/// Properties are declared with MabERixProperty(Type, Field), which gives
/// HRESULT _Set\<Field\>(const Type&)  sets the property (S_OK);
/// HRESULT Get\<Field\>(Type&) const   reads it; E_FAIL, out untouched,
/// while it has never been set. Ownership, threads, errors: @ref conventions.
/// An empty text is a value like any other. GetSetProperties() lists the set
/// properties under the name \<Field\>, in the order they were first set. @file
#ifndef MabERixEntity_h
#define MabERixEntity_h

#include <vector>

#include "KelBaseUnknown.h"
#include "KelClassMacros.h"
#include "KelUnicodeString.h"
#include "MabRixContextStore.h"
#include "MabRixPropertyBag.h"

#define MabERixProperty(Type, Field)                                                                                  \
  HRESULT _Set##Field(const Type& iValue) { return _Properties.Set(GetArena(), MabRixPropertyIdOf(#Field), iValue); } \
  HRESULT Get##Field(Type& oValue) const { return _Properties.Get(MabRixPropertyIdOf(#Field), oValue); }

class MabERixEntity : public KelBaseUnknown, public MabRixContextAllocated
{
  KelDeclareClass

public:
  // Made in the context's store: its operators, not KelBaseUnknown's, are
  // the ones for this class (a failure there is a std::bad_alloc).
  using MabRixContextAllocated::operator new;
  using MabRixContextAllocated::operator delete;

  MabERixEntity(const MabERixEntity&) = delete;
  MabERixEntity& operator=(const MabERixEntity&) = delete;

  /// The type and name given to the context's creation (not properties).
  const KelUnicodeString& GetKeyType() const { return *_pKeyType; }
  const KelUnicodeString& GetKeyName() const { return *_pKeyName; }

  /// The properties set so far, in the order they were first set.
  MabRixPropertyList GetSetProperties() const { return _Properties.GetSetProperties(); }

  /// The store of this entity's keys and values.
  MabRixContextStore& GetStore() const { return *_pStore; }

protected:
  /// An entity of the context that owns ioStore.
  MabERixEntity(MabRixContextStore& ioStore, const KelUnicodeString& iType, const KelUnicodeString& iName);
  /// An entity made alone, with a store of its own.
  MabERixEntity(const KelUnicodeString& iType, const KelUnicodeString& iName);
  /// An entity with the keys of iOther, already in their store.
  explicit MabERixEntity(const MabERixEntity& iOther, std::nullptr_t);
  ~MabERixEntity() override;

  /// The store's copy of iText.
  const KelUnicodeString* Intern(const KelUnicodeString& iText) const { return &_pStore->Intern(iText.View()); }
  /// Where the properties lie.
  MabRixArena& GetArena() const { return _pStore->GetArena(); }

private:
  bool _bOwnsStore;  // first: it fills the room the reference count leaves

protected:
  MabRixPropertyBag _Properties;

private:
  MabRixContextStore* _pStore;
  const KelUnicodeString* _pKeyType;
  const KelUnicodeString* _pKeyName;
};

#endif
