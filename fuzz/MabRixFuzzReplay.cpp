// Replays fuzz inputs (files, or folders of them) through the fuzz target,
// without libFuzzer: the corpus runs under any compiler and sanitizer.
//   mabrix_fuzz_replay INPUT...              replay
//   mabrix_fuzz_replay --seeds SOURCE OUT    write seed inputs made from the
//                                            response files of the source tree
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "MabRixFuzzHandlers.h"
#include "MabRixResponseFiles.h"

namespace
{
namespace fs = std::filesystem;

int WriteSeeds(const char* iSource, const char* iOut)
{
  fs::create_directories(iOut);
  const std::vector<MabRixHandlerEntry>& Table = MabRixHandlerTable();
  int Count = 0;
  for (const MabRixResponseFile& File : MabRixResponseFiles(iSource))
  {
    const std::size_t Handler = static_cast<std::size_t>(File._pEntry - Table.data());
    const std::string Stem = File._pEntry->_Name + "-" + fs::path(File._Path).stem().string();
    // Stop, go on, and a mixed pattern fed in small pieces.
    const std::vector<std::pair<std::string, std::vector<std::uint8_t>>> Seeds = {
        {"stop", MabRixFuzzInput(Handler, 0, File._Text, {1, 2, 3})},
        {"goon", MabRixFuzzInput(Handler, 1, File._Text, {4, 5, 6})},
        {"mixed", MabRixFuzzInput(Handler, 2, File._Text, {7, 8, 9}, 0x5A5A5A5Au, 1, 0x07030501u)},
    };
    for (const auto& [Name, Bytes] : Seeds)
    {
      std::ofstream Out(fs::path(iOut) / (Stem + "-" + Name), std::ios::binary);
      Out.write(reinterpret_cast<const char*>(Bytes.data()), static_cast<std::streamsize>(Bytes.size()));
      ++Count;
    }
  }
  std::printf("wrote %d seeds\n", Count);
  return Count > 0 ? 0 : 1;
}
}  // namespace

int main(int iArgc, char** iArgv)
{
  if (iArgc == 4 && std::strcmp(iArgv[1], "--seeds") == 0)
    return WriteSeeds(iArgv[2], iArgv[3]);
  std::vector<fs::path> Inputs;
  for (int i = 1; i < iArgc; ++i)
  {
    const fs::path Path(iArgv[i]);
    if (fs::is_directory(Path))
    {
      for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Path))
        if (Entry.is_regular_file())
          Inputs.push_back(Entry.path());
    }
    else
      Inputs.push_back(Path);
  }
  for (const fs::path& Input : Inputs)
  {
    std::ifstream Stream(Input, std::ios::binary);
    const std::vector<char> Bytes((std::istreambuf_iterator<char>(Stream)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(Bytes.data()), Bytes.size());
  }
  std::printf("replayed %zu inputs\n", Inputs.size());
  return Inputs.empty() ? 1 : 0;
}
