// Reading an object context back in tests: entities by key, and every set
// property of an entity as "Name=value" texts in the order they were set.
#ifndef MabRixObjectModelTestSupport_h
#define MabRixObjectModelTestSupport_h

#include <optional>
#include <string>
#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixTNRObjectContext.h"

// "Name=value" for each set property; flags as 0/1, lists as [a|b], paths
// as their text, document IDs as (type,name,path).
std::vector<std::string> MabRixPropertyTexts(const MabERixEntity* ipEntity);
// The value of one property as such a text; nullopt when it is not set.
std::optional<std::string> MabRixPropertyText(const MabERixEntity* ipEntity, const char* iName);
// "key=value" for each entry, in order.
std::vector<std::string> MabRixDicoTexts(const KelUnicodeStringKelUnicodeStringDico& iDico);

MabERixObject* MabRixFindObject(MabRixObjectContext& iContext, const char* iType, const char* iName);
// The major object of a type, name and key revision (no creation).
MabERixMajorObject* MabRixFindMajorObject(MabRixObjectContext& iContext, const char* iType, const char* iName,
                                          const char* iRevision);
// The CAD context's minor object of a type and name.
MabERixMinorObject* MabRixFindMinorObject(MabRixCADObjectContext& iContext, const char* iType, const char* iName);

#endif
