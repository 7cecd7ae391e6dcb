/// Result of reading a saved query: its identity and the record of the query itself. The value
/// provides the record; whoever needs another record (a store of its own, a test double)
/// replaces _spQueryRecord before reading. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSavedQueryResultValue_h
#define MabRixSavedQueryResultValue_h

#include "KelClassMacros.h"
#include "MabIRixSavedQueryRecord.h"
#include "MabIRixValue.h"
#include "MabRixSavedQueryID.h"

class MabRixSavedQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  /// Starts with an empty MabRixSavedQueryRecord.
  MabRixSavedQueryResultValue();

  MabIRixSavedQueryRecord* GetQueryRecord() const { return _spQueryRecord.Get(); }

  MabRixSavedQueryID _SavedQueryID;
  MabIRixSavedQueryRecord_var _spQueryRecord;
};

#endif
