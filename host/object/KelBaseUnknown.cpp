#include "KelBaseUnknown.h"

#include <cstring>

#include "KelAllocationFailure.h"
#include "KelNullVarError.h"

bool KelMetaObject::IsAKindOf(const char* iName) const
{
  if (!iName)
    return false;
  for (const KelMetaObject* pRecord = this; pRecord; pRecord = pRecord->_pBase)
    if (std::strcmp(pRecord->_Name, iName) == 0)
      return true;
  return false;
}

KelBaseUnknown::~KelBaseUnknown() = default;

void* KelBaseUnknown::operator new(std::size_t iSize)
{
  if (void* pObject = ::operator new(iSize, std::nothrow))
    return pObject;
  KelNoteAllocationFailure();
  throw std::bad_alloc();
}

void* KelBaseUnknown::operator new(std::size_t iSize, const std::nothrow_t&) noexcept
{
  void* pObject = ::operator new(iSize, std::nothrow);
  if (!pObject)
    KelNoteAllocationFailure();
  return pObject;
}

void KelBaseUnknown::operator delete(void* ipObject) noexcept { ::operator delete(ipObject); }

void KelBaseUnknown::operator delete(void* ipObject, const std::nothrow_t&) noexcept { ::operator delete(ipObject); }

const KelMetaObject* KelBaseUnknown::MetaObject()
{
  static const KelMetaObject Record{"KelBaseUnknown", nullptr, "KelSystem", "Kelnull"};
  return &Record;
}

const char* KelBaseUnknown::ClassId() { return "KelBaseUnknown"; }

KelBaseUnknown* KelBaseUnknown::CreateItself() { return nullptr; }

const KelMetaObject* KelBaseUnknown::GetMetaObject() const { return MetaObject(); }

const char* KelBaseUnknown::IsA() const { return GetMetaObject()->_Name; }

int KelBaseUnknown::IsAKindOf(const char* iName) const { return GetMetaObject()->IsAKindOf(iName) ? 1 : 0; }

KelNullVarError::KelNullVarError() : std::logic_error("null counted reference used") {}

void ThrowErrorNullVar() { throw KelNullVarError(); }
