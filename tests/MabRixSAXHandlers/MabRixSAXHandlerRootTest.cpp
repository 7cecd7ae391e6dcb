#include <gtest/gtest.h>

#include "MabRixSAXHandlerRoot.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixValueTestSupport.h"

namespace
{
// A parser driven by a root that starts String handlers.
struct RootedParser
{
  RootedParser(const char* iStartAt, std::size_t iMaxValues)
  {
    spRoot = KelVar<MabRixSAXHandlerRoot>::Adopt(new MabRixSAXHandlerRoot(
        spISAXParser,
        [this](MabRixSAXHandlerBase& iRoot) {
          ++Calls;
          return MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(iRoot));
        },
        iStartAt, iMaxValues));
    spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spRoot.Get()));
  }
  // The parser holds its document handler until a document is over; a test
  // that parses nothing lets it go here.
  ~RootedParser() { spParser->SetDocumentHandler(KelISAXDocumentHandler_var()); }

  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
  KelISAXParser_var spISAXParser{spParser};
  KelVar<MabRixSAXHandlerRoot> spRoot;
  int Calls = 0;
};
}  // namespace

TEST(MabRixSAXHandlerRoot, IsRegisteredUnderItsOwnName)
{
  RootedParser Rooted("", 1);
  MabRixExpectRegistered<MabRixSAXHandlerRoot>(*Rooted.spRoot, "MabRixSAXHandlerRoot",
                                               {"MabRixSAXHandlerBase", "KelBaseUnknown"});
  EXPECT_EQ(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerRoot(*Rooted.spRoot),
            static_cast<MabIRixSAXHandler*>(Rooted.spRoot.Get()));
}

TEST(MabRixSAXHandlerRoot, StartsTheHandlerOnceOnTheNamedElement)
{
  RootedParser Rooted("m", 10);
  EXPECT_FALSE(Rooted.spRoot->IsStarted());
  EXPECT_EQ(Rooted.spParser->Parse("<r><x/><m>a</m><m>b</m></r>"), S_OK);
  EXPECT_TRUE(Rooted.spRoot->IsStarted());
  EXPECT_EQ(Rooted.Calls, 1);
  ASSERT_EQ(Rooted.spRoot->GetValues().size(), 1u);
  EXPECT_EQ(KelImplCast<MabRixStringValue>(Rooted.spRoot->GetValues()[0].Get())->_Value.ToUtf8(), "a");
  ASSERT_TRUE(!!Rooted.spRoot->GetHandler());
  EXPECT_STREQ(Rooted.spRoot->GetHandler()->GetImpl()->IsA(), "MabRixSAXHandlerString");
}

TEST(MabRixSAXHandlerRoot, KeepsAtMostItsLimitOfValues)
{
  RootedParser Rooted("", 0);
  EXPECT_EQ(Rooted.spParser->Parse("<m>a</m>"), S_OK);
  EXPECT_TRUE(Rooted.spRoot->GetValues().empty());
  EXPECT_EQ(Rooted.spRoot->GetValues().Omitted(), 1u);
}
