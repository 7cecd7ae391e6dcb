// Values and contexts as one line of JSON in a string (nlohmann's dump(-1)
// layout): how tests and fuzz targets describe what handlers produced.
#ifndef RixsaxJsonText_h
#define RixsaxJsonText_h

#include <string>

#include "MabIRixValue.h"

class MabRixTNRObjectContext;
class MabRixCADObjectContext;

std::string RixsaxValueJsonText(const MabIRixValue_var& iValue);
std::string RixsaxTNRContextJsonText(const MabRixTNRObjectContext& iContext);
std::string RixsaxCADContextJsonText(const MabRixCADObjectContext& iContext);

#endif
