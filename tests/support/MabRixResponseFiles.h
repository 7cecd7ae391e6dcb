// The response files of the suite: tests/responses/<handler>/*.xml and
// samples/<handler>/*.xml, where <handler> names an entry of the handler
// table.
#ifndef MabRixResponseFiles_h
#define MabRixResponseFiles_h

#include <string>
#include <vector>

#include "MabRixHandlerTable.h"

struct MabRixResponseFile
{
  const MabRixHandlerEntry* _pEntry = nullptr;
  std::string _Path;
  std::string _Text;
};

// Every response file under iRoot (the source tree), sorted by path.
std::vector<MabRixResponseFile> MabRixResponseFiles(const std::string& iRoot);

#endif
