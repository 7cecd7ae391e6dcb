/// Result of a user-interface element query: the elements in the order of
/// the rows, and the element that is the default of each key. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixUIElementQueryResultValue_h
#define MabRixUIElementQueryResultValue_h

#include "KelClassMacros.h"
#include "MabIRixValue.h"
#include "MabRixUIElementID.h"
#include "MabRixUIElementIDList.h"

class MabRixUIElementQueryResultValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixUIElementQueryResultValue() = default;
  MabRixUIElementIDList _UIElementIDs;
  MabRixUIElementIDKelUnicodeStringDico _DefaultUIElementIDs;  ///< default key to element
};

#endif
