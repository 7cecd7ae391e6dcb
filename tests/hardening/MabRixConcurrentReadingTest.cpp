// Handlers share nothing between readings: eight threads reading different
// responses at once get exactly what one thread reading them alone gets.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "MabRixHandlerTable.h"
#include "MabRixResponseFiles.h"
#include "MabRixTestSupport.h"

namespace
{
// One reading with a reporter of the thread's own: the description covers
// the checks reported too.
std::string ReadOnThisThread(const MabRixResponseFile& iFile, std::size_t iChunk)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  std::string Text = MabRixReadAndDescribe(*iFile._pEntry, iFile._Text, {}, iChunk);
  for (const MabRixCheckReport& Report : Reporter.Reports())
    Text += "\ncheck " + Report._Text + " " + Report._File + ":" + std::to_string(Report._Line);
  KelError::KelCleanLastError();
  return Text;
}
}  // namespace

TEST(MabRixConcurrentReading, EightThreadsReadLikeOne)
{
  const std::vector<MabRixResponseFile> Files = MabRixResponseFiles(MABRIX_SOURCE_DIR);
  ASSERT_FALSE(Files.empty());
  std::vector<std::string> Expected;
  for (const MabRixResponseFile& File : Files)
    Expected.push_back(ReadOnThisThread(File, 0));

  const std::size_t Threads = 8;
  const int Rounds = 100;
  std::vector<std::vector<std::string>> Mismatches(Threads);
  std::vector<std::thread> Workers;
  for (std::size_t t = 0; t < Threads; ++t)
    Workers.emplace_back([&, t] {
      // Each thread reads its own share of the responses, fed in its own pieces.
      for (int Round = 0; Round < Rounds; ++Round)
        for (std::size_t At = static_cast<std::size_t>(t); At < Files.size(); At += Threads)
        {
          const std::size_t Chunk = (t + static_cast<std::size_t>(Round)) % 4 * 5;
          const std::string Got = ReadOnThisThread(Files[At], Chunk);
          if (Got != Expected[At] && Mismatches[t].size() < 5)
            Mismatches[t].push_back(Files[At]._Path + " (chunk " + std::to_string(Chunk) + "):\n" + Got +
                                    "\nexpected:\n" + Expected[At]);
        }
    });
  for (std::thread& Worker : Workers)
    Worker.join();
  for (std::size_t t = 0; t < Threads; ++t)
    for (const std::string& Mismatch : Mismatches[t])
      ADD_FAILURE() << "thread " << t << ": " << Mismatch;
}
