// Handlers share nothing between readings: eight threads reading different
// responses at once get exactly what one thread reading them alone gets.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "MabRixFailureResponse.h"
#include "MabRixHandlerTable.h"
#include "MabRixResponseFiles.h"
#include "MabRixResponseReader.h"
#include "MabRixSAXHandlerFailure.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixTNRObjectContext.h"
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

// One reader per thread, each with a context of its own: the check reports,
// values and objects of one thread's reads never show in another's.
TEST(MabRixConcurrentReading, OneReaderPerThreadReadsLikeOne)
{
  const std::string Objects = std::string(MABRIX_SOURCE_DIR) + "/samples/object-list/objects.xml";
  const std::string Failure = "<failure success=\"false\" errorcode=\"9\"><reason>r</reason></failure>";
  const auto ReadBoth = [&](std::size_t iChunk) {
    MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
    MabRixResponseReader::Options Options;
    Options._Parser._ChunkSize = iChunk;
    const MabRixResponseReader ListReader(
        [&pContext](MabRixSAXHandlerBase& iRoot) {
          return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerObjectList(iRoot, pContext));
        },
        Options);
    const MabRixResponseReader FailureReader(
        [](MabRixSAXHandlerBase& iRoot) { return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerFailure(iRoot)); },
        Options);
    const MabRixReadResult List = ListReader.ReadFile(Objects);
    const MabRixReadResult Failed = FailureReader.ReadBuffer(Failure);
    std::string Text = std::to_string(List.Succeeded()) + " " + std::to_string(pContext->GetMinorObjects().size()) +
                       " " + std::to_string(Failed._Checks.size()) + " " +
                       (Failed.GetFailureResponse() ? Failed.GetFailureResponse()->GetErrorCode().ToUtf8() : "-");
    for (const MabRixReadResult::CheckReport& Check : Failed._Checks)
      Text += " " + Check._Text;
    pContext->Release();
    return Text;
  };
  const std::string Expected = ReadBoth(64 * 1024);
  ASSERT_NE(Expected.find("1 3 1 9"), std::string::npos) << Expected;

  std::vector<std::string> Got(4);
  std::vector<std::thread> Workers;
  for (std::size_t t = 0; t < Got.size(); ++t)
    Workers.emplace_back([&, t] {
      for (int Round = 0; Round < 50 && Got[t].empty(); ++Round)
        if (const std::string Text = ReadBoth(1 + (t + static_cast<std::size_t>(Round)) % 7 * 13); Text != Expected)
          Got[t] = Text;
    });
  for (std::thread& Worker : Workers)
    Worker.join();
  for (std::size_t t = 0; t < Got.size(); ++t)
    EXPECT_EQ(Got[t], "") << "thread " << t;
}
