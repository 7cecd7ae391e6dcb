// The values handlers hand to the command layer, and the failure response,
// written through a RixsaxWriter. A value is an object with its class (the
// IsA name) and its content; a class rixsax does not know is written with
// its class only.
#ifndef RixsaxValueJson_h
#define RixsaxValueJson_h

#include <cstddef>

#include "MabIRixResponse.h"
#include "MabIRixValue.h"
#include "RixsaxWriter.h"

class MabRixTNRObjectContext;

// null for a null value.
void RixsaxWriteValue(RixsaxWriter& ioWriter, const MabIRixValue_var& iValue);
// Number of entries a value holds (items of a list, entries of a map, rows
// of a query result); 0 for a scalar.
std::size_t RixsaxValueEntryCount(const MabIRixValue_var& iValue);
// The object context a value carries (that of a custom query result); null
// for every other value.
const MabRixTNRObjectContext* RixsaxValueContext(const MabIRixValue_var& iValue);
// null for a null response.
void RixsaxWriteResponse(RixsaxWriter& ioWriter, const MabIRixResponse_var& iResponse);

#endif
