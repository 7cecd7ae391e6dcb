#include "MabRixResponseFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

std::vector<MabRixResponseFile> MabRixResponseFiles(const std::string& iRoot)
{
  namespace fs = std::filesystem;
  std::vector<MabRixResponseFile> Files;
  for (const char* Folder : {"tests/responses", "samples"})
  {
    const fs::path Base = fs::path(iRoot) / Folder;
    std::error_code Error;
    if (!fs::is_directory(Base, Error))
      continue;
    for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Base, Error))
    {
      if (!Entry.is_regular_file() || Entry.path().extension() != ".xml")
        continue;
      // The first folder under the base names the handler.
      const fs::path Relative = fs::relative(Entry.path(), Base);
      const MabRixHandlerEntry* pHandler = MabRixFindHandler(Relative.begin()->string());
      if (!pHandler)
        continue;
      std::ifstream Stream(Entry.path(), std::ios::binary);
      std::ostringstream Text;
      Text << Stream.rdbuf();
      Files.push_back({pHandler, Entry.path().string(), Text.str()});
    }
  }
  std::sort(Files.begin(), Files.end(),
            [](const MabRixResponseFile& a, const MabRixResponseFile& b) { return a._Path < b._Path; });
  return Files;
}
