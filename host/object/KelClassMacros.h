/// Class registration, written once. A class declares its identity with
/// KelDeclareClass in its body and defines it with KelImplementClass in its
/// source file, which also enters it in the registry of the program's classes
/// (KelClassRegistry.h). KelBaseUnknown is the root of every chain; its record
/// names the placeholder base "Kelnull". Ownership, threads, errors: @ref conventions. @file
#ifndef KelClassMacros_h
#define KelClassMacros_h

#include "KelBaseUnknown.h"
#include "KelClassRegistry.h"
#include "KelMetaObject.h"

#define KelDeclareClass                                \
public:                                                \
  static const KelMetaObject* MetaObject();            \
  static const char* ClassId();                        \
  static KelBaseUnknown* CreateItself();               \
  const KelMetaObject* GetMetaObject() const override; \
                                                       \
private:

#define KelImplementClassRecord(Class, BaseRecord, BaseName, Framework)             \
  const KelMetaObject* Class::MetaObject()                                          \
  {                                                                                 \
    static const KelMetaObject Record{#Class, BaseRecord, Framework, BaseName};     \
    return &Record;                                                                 \
  }                                                                                 \
  const char* Class::ClassId() { return #Class; }                                   \
  KelBaseUnknown* Class::CreateItself() { return nullptr; }                         \
  const KelMetaObject* Class::GetMetaObject() const { return Class::MetaObject(); } \
  static const KelClassRegistration KelRegistrationOf##Class(&Class::MetaObject);

/// Class derived from BaseClass, registered in Framework.
#define KelImplementClass(Class, BaseClass, Framework) \
  KelImplementClassRecord(Class, BaseClass::MetaObject(), #BaseClass, Framework)

/// Classes of the handler library.
#define MabRixImplementClass(Class, BaseClass) KelImplementClass(Class, BaseClass, "MabRixCommandModel")

#endif
