/// Counted reference to an object through interface T. Converting from
/// another type queries the object: the result is null when the object does
/// not implement T. Using a null reference through -> raises the host's
/// null-reference error. Ownership, threads, errors: @ref conventions. @file
#ifndef KelVar_h
#define KelVar_h

#include <cstddef>
#include <type_traits>
#include <utility>

#include "KelBaseUnknown.h"
#include "KelNullVarError.h"

template <class T, class U>
T* KelQueryInterface(U* ipObject)
{
  if constexpr (std::is_convertible_v<U*, T*>)
    return ipObject;
  else
    return dynamic_cast<T*>(ipObject);
}

template <class T>
class KelVar
{
public:
  KelVar() = default;
  KelVar(std::nullptr_t) {}

  /// Takes a new reference: the caller keeps its own.
  template <class U>
  KelVar(U* ipObject) : _p(KelQueryInterface<T>(ipObject))
  {
    if (_p)
      _p->AddRef();
  }
  KelVar(const KelVar& iOther) : _p(iOther._p)
  {
    if (_p)
      _p->AddRef();
  }
  template <class U>
  KelVar(const KelVar<U>& iOther) : KelVar(iOther.Get())
  {
  }
  KelVar(KelVar&& ioOther) noexcept : _p(ioOther._p) { ioOther._p = nullptr; }
  ~KelVar()
  {
    if (_p)
      _p->Release();
  }

  KelVar& operator=(const KelVar& iOther)
  {
    KelVar(iOther).Swap(*this);
    return *this;
  }
  KelVar& operator=(KelVar&& ioOther) noexcept
  {
    KelVar(std::move(ioOther)).Swap(*this);
    return *this;
  }
  template <class U>
  KelVar& operator=(const KelVar<U>& iOther)
  {
    KelVar(iOther).Swap(*this);
    return *this;
  }
  template <class U>
  KelVar& operator=(U* ipObject)
  {
    KelVar(ipObject).Swap(*this);
    return *this;
  }
  KelVar& operator=(std::nullptr_t)
  {
    KelVar().Swap(*this);
    return *this;
  }

  T* operator->() const
  {
    if (!_p)
      ThrowErrorNullVar();
    return _p;
  }
  T& operator*() const { return *operator->(); }
  bool operator!() const { return _p == nullptr; }
  explicit operator bool() const { return _p != nullptr; }

  T* Get() const { return _p; }

  /// Adopts a reference the caller already holds (a creation reference).
  static KelVar Adopt(T* ipObject)
  {
    KelVar Result;
    Result._p = ipObject;
    return Result;
  }

  void Swap(KelVar& ioOther) noexcept { std::swap(_p, ioOther._p); }

private:
  T* _p = nullptr;
};

template <class T, class U>
bool operator==(const KelVar<T>& iLeft, const KelVar<U>& iRight)
{
  return static_cast<const void*>(iLeft.Get() ? iLeft.Get()->GetImpl() : nullptr) ==
         static_cast<const void*>(iRight.Get() ? iRight.Get()->GetImpl() : nullptr);
}

typedef KelVar<KelBaseUnknown> KelBaseUnknown_var;

#endif
