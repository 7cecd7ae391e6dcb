// A reporter that always answers go on must leave every handler consistent:
// every response of the suite is read that way without a crash or a
// sanitizer report. Where the protocol then uses a null reference, the
// host's null-reference error reaches the caller of the parse as that error.
#include <gtest/gtest.h>

#include "KelNullVarError.h"
#include "MabRixHandlerTable.h"
#include "MabRixResponseFiles.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixTestSupport.h"

namespace
{
// Reads a response with go on for every check, whole and in small pieces.
// Returns what escaped the parse: "" or the null-reference error.
std::string ReadGoingOn(const MabRixResponseFile& iFile, std::size_t iChunk)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  MabRixThrowingFatalHandler FatalHandler;
  std::string Escaped;
  try
  {
    (void)MabRixReadAndDescribe(*iFile._pEntry, iFile._Text, {}, iChunk);
  }
  catch (const KelNullVarError&)
  {
    Escaped = "null reference";
  }
  catch (const MabRixFatalErrorRaised& iError)
  {
    Escaped = std::string("fatal ") + iError.what();
  }
  KelError::KelCleanLastError();
  return Escaped;
}

}  // namespace

TEST(MabRixGoOnReading, EveryResponseReadsWithoutCrash)
{
  const std::vector<MabRixResponseFile> Files = MabRixResponseFiles(MABRIX_SOURCE_DIR);
  ASSERT_FALSE(Files.empty());
  for (const MabRixResponseFile& File : Files)
    for (std::size_t Chunk : {0u, 3u})
    {
      const std::string Escaped = ReadGoingOn(File, Chunk);
      // Fatal errors are reported, never thrown past the reader unless the
      // host's handler throws (ours does): only these two may come out.
      EXPECT_TRUE(Escaped.empty() || Escaped == "null reference" || Escaped.rfind("fatal ", 0) == 0)
          << File._Path << ": " << Escaped;
    }
}

// A root handler built around no parser makes children without one: with go
// on, a child's start uses the null parser.
TEST(MabRixGoOnReading, NullParserAfterGoOnReachesTheCallerOfTheParse)
{
  MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
  KelISAXParser_var spNoParser;
  KelVar<MabRixTestRootHandler> spRoot = KelVar<MabRixTestRootHandler>::Adopt(
      new MabRixTestRootHandler(spNoParser, MabRixMake<MabRixSAXHandlerString>(), ""));
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));
  EXPECT_THROW(spParser->Parse("<a>x</a>"), KelNullVarError);
  ASSERT_EQ(Reporter.Count("ExpressionCheck:!!_spSAXParser && !!_spParentHandler"), 1);
  EXPECT_EQ(Reporter.Reports()[0]._File, "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerBase");
  KelError::KelCleanLastError();
}
