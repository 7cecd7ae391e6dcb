#include <gtest/gtest.h>

#include "KelExpatParser.h"
#include "KelSAXHandlerBase.h"

namespace
{
// Reads the attributes of the document element the way the object handlers
// do: into one scratch string, missing attributes included.
class ScratchReader : public KelSAXHandlerBase
{
public:
  HRESULT StartElement(const KelUnicodeString&, const KelISAXAttributeList_var& iAttributes) override
  {
    KelUnicodeString Scratch = "kept";
    _MissingResult = iAttributes->GetValue(KelUnicodeString("missing"), Scratch);
    _AfterMissing = Scratch;
    _PresentResult = iAttributes->GetValue(KelUnicodeString("present"), Scratch);
    _AfterPresent = Scratch;
    Scratch = "kept";
    _OutOfRangeResult = iAttributes->GetValue(5u, Scratch);
    _AfterOutOfRange = Scratch;
    return S_OK;
  }
  HRESULT _MissingResult = S_OK, _PresentResult = E_FAIL, _OutOfRangeResult = S_OK;
  KelUnicodeString _AfterMissing, _AfterPresent, _AfterOutOfRange;
};
}  // namespace

TEST(KelISAXAttributeList, GetValueOfAMissingAttributeFailsAndLeavesTheOutputUntouched)
{
  KelVar<KelExpatParser> spParser = KelVar<KelExpatParser>::Adopt(new KelExpatParser());
  KelVar<ScratchReader> spReader = KelVar<ScratchReader>::Adopt(new ScratchReader());
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spReader.Get()));
  ASSERT_EQ(spParser->Parse(std::string("<a present=\"v\"/>")), S_OK);
  EXPECT_TRUE(FAILED(spReader->_MissingResult));
  EXPECT_EQ(spReader->_AfterMissing, "kept");
  EXPECT_EQ(spReader->_PresentResult, S_OK);
  EXPECT_EQ(spReader->_AfterPresent, "v");
  EXPECT_TRUE(FAILED(spReader->_OutOfRangeResult));
  EXPECT_EQ(spReader->_AfterOutOfRange, "kept");
}
