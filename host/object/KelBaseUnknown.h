/// Root of every object of the object model: an intrusive reference count and
/// the class identity operations. Interfaces derive virtually from it, so one
/// object has exactly one KelBaseUnknown part whatever interfaces it offers;
/// that part is the implementation object (GetImpl).
///
/// The count is not atomic: one object graph serves one parser on one thread.
/// Objects handed to several threads (a value format shared by two parses) are
/// only read through raw pointers there. Ownership, threads, errors: @ref conventions. @file
#ifndef KelBaseUnknown_h
#define KelBaseUnknown_h

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <typeinfo>

#include "KelMetaObject.h"

class KelBaseUnknown
{
public:
  KelBaseUnknown() = default;
  /// A copy is a new object: it starts with its own single reference.
  KelBaseUnknown(const KelBaseUnknown&) : _RefCount(1) {}
  KelBaseUnknown& operator=(const KelBaseUnknown&) { return *this; }
  virtual ~KelBaseUnknown();

  void AddRef() { ++_RefCount; }
  void Release()
  {
    if (--_RefCount == 0)
      delete this;
  }
  unsigned long GetRefCount() const { return _RefCount; }

  // Objects of the model are allocated here: a failure of either form is
  // recorded for the thread (KelAllocationFailure.h) before the null or
  // std::bad_alloc reaches the code that asked.
  static void* operator new(std::size_t iSize);
  static void* operator new(std::size_t iSize, const std::nothrow_t&) noexcept;
  static void operator delete(void* ipObject) noexcept;
  static void operator delete(void* ipObject, const std::nothrow_t&) noexcept;

  static const KelMetaObject* MetaObject();
  static const char* ClassId();
  static KelBaseUnknown* CreateItself();

  virtual const KelMetaObject* GetMetaObject() const;
  virtual const char* IsA() const;
  virtual int IsAKindOf(const char* iName) const;

  KelBaseUnknown* GetImpl() { return this; }
  const KelBaseUnknown* GetImpl() const { return this; }

private:
  std::uint32_t _RefCount = 1;  ///< the creator's reference; 32 bits leave a derived class room for a flag
};

/// Implementation object behind an interface, seen as class C; null when there
/// is none or it is not a C.
template <class C, class I>
C* KelImplCast(I* ipInterface)
{
  if (!ipInterface)
    return nullptr;
  auto* pImpl = ipInterface->GetImpl();
  // Most casts name the object's own class: the whole object's address is then
  // the answer, found without searching the classes it derives from.
  if (typeid(*pImpl) == typeid(C))
  {
    using Whole = std::conditional_t<std::is_const_v<std::remove_pointer_t<decltype(pImpl)>>, const void*, void*>;
    return static_cast<C*>(dynamic_cast<Whole>(pImpl));
  }
  return dynamic_cast<C*>(pImpl);
}

#endif
