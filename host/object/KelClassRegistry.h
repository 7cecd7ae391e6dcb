/// Which classes a program has: every class defined with KelImplementClass
/// enters this list while its binary loads and leaves it when the binary
/// unloads. Tools and tests enumerate it (e.g. every handler class a library
/// defines); nothing else writes it. Ownership, threads, errors: @ref conventions. @file
#ifndef KelClassRegistry_h
#define KelClassRegistry_h

#include <vector>

#include "KelMetaObject.h"

class KelClassRegistration
{
public:
  typedef const KelMetaObject* (*RecordFunction)();

  explicit KelClassRegistration(RecordFunction iRecord);
  ~KelClassRegistration();
  KelClassRegistration(const KelClassRegistration&) = delete;
  KelClassRegistration& operator=(const KelClassRegistration&) = delete;

  /// The records of every class registered now, in no particular order.
  static std::vector<const KelMetaObject*> RegisteredClasses();

private:
  RecordFunction _Record;
  KelClassRegistration* _pNext = nullptr;
};

#endif
