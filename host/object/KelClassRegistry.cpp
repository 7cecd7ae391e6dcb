#include "KelClassRegistry.h"

#include <mutex>

namespace
{
// The list is written only while binaries load and unload (static
// initialisation and destruction); the lock covers a library loaded on one
// thread while another enumerates.
struct ClassList
{
  std::mutex _Lock;
  KelClassRegistration* _pFirst = nullptr;
};

ClassList& Classes()
{
  static ClassList List;
  return List;
}
}  // namespace

KelClassRegistration::KelClassRegistration(RecordFunction iRecord) : _Record(iRecord)
{
  ClassList& List = Classes();
  const std::lock_guard<std::mutex> Guard(List._Lock);
  _pNext = List._pFirst;
  List._pFirst = this;
}

KelClassRegistration::~KelClassRegistration()
{
  ClassList& List = Classes();
  const std::lock_guard<std::mutex> Guard(List._Lock);
  for (KelClassRegistration** ppLink = &List._pFirst; *ppLink; ppLink = &(*ppLink)->_pNext)
    if (*ppLink == this)
    {
      *ppLink = _pNext;
      return;
    }
}

std::vector<const KelMetaObject*> KelClassRegistration::RegisteredClasses()
{
  ClassList& List = Classes();
  const std::lock_guard<std::mutex> Guard(List._Lock);
  std::vector<const KelMetaObject*> Records;
  for (const KelClassRegistration* pRegistration = List._pFirst; pRegistration; pRegistration = pRegistration->_pNext)
    Records.push_back(pRegistration->_Record());
  return Records;
}
