#include <gtest/gtest.h>

#include <thread>

#include "KelError.h"
#include "KelExpatParser.h"
#include "KelSAXHandlerBase.h"
#include "MabRixTestSupport.h"

TEST(KelError, KeepsKeyCatalogAndParameters)
{
  KelBaseUnknown_var spHolder = KelBaseUnknown_var::Adopt(new MabRixError("Unexpected", "MabRixIntegration"));
  MabRixError* pError = KelImplCast<MabRixError>(spHolder.Get());
  ASSERT_NE(pError, nullptr);
  EXPECT_EQ(pError->GetMessageKey(), "Unexpected");
  EXPECT_EQ(pError->GetMessageCatalog(), "MabRixIntegration");
  EXPECT_EQ(pError->GetParameters().Size(), 0);
  pError->SetParameters(KelUnicodeStringList{"p"});
  EXPECT_EQ(pError->GetParameters(), KelUnicodeStringList{"p"});
}

TEST(KelError, MessageComesFromTheCatalog)
{
  MabRixError Unexpected("Unexpected", "MabRixIntegration");
  EXPECT_EQ(Unexpected.GetNLSMessage(), "An unexpected error occurred while reading the server response.");
  MabRixError Parse("ParseFailed", "MabRixIntegration");
  Parse.SetParameters(KelUnicodeStringList{"bad tag"});
  EXPECT_EQ(Parse.GetNLSMessage(), "The server response could not be read: bad tag");
  MabRixError Unknown("Missing", "Nowhere");
  EXPECT_EQ(Unknown.GetNLSMessage(), "Nowhere.Missing");
}

TEST(KelError, GetReturnOfKindOneIsSuccessAndRecordsNothing)
{
  KelError::KelCleanLastError();
  MabRixError Error("Unexpected", "MabRixIntegration");
  EXPECT_EQ(KelError::GetReturn(1, &Error, nullptr, "f", 1), S_OK);
  EXPECT_EQ(KelError::KelGetLastError(E_FAIL), nullptr);
  EXPECT_EQ(Error.GetRefCount(), 1u);
}

TEST(KelError, GetReturnOfKindTwoRecordsTheLastErrorAndFails)
{
  KelError::KelCleanLastError();
  MabRixError* pError = new MabRixError("Unexpected", "MabRixIntegration");
  const HRESULT hr = KelError::GetReturn(2, pError, nullptr, "some/source", 42);
  pError->Release();
  EXPECT_EQ(hr, E_FAIL);
  const MabRixLastError Last = MabRixGetLastError();
  ASSERT_TRUE(Last._Present);
  EXPECT_EQ(Last._Key, "Unexpected");
  EXPECT_EQ(Last._Catalog, "MabRixIntegration");
  EXPECT_EQ(Last._Message, "An unexpected error occurred while reading the server response.");
  EXPECT_EQ(Last._File, "some/source");
  EXPECT_EQ(Last._Line, 42);
  EXPECT_EQ(Last._Code, E_FAIL);
  KelError::KelCleanLastError();
  EXPECT_FALSE(MabRixGetLastError()._Present);
}

TEST(KelError, LastErrorIsGivenOnlyForAFailedResultAndStaysRecorded)
{
  KelError::KelCleanLastError();
  MabRixError* pError = new MabRixError("Unexpected", "MabRixIntegration");
  KelError::GetReturn(2, pError, nullptr, "f", 1);
  EXPECT_EQ(KelError::KelGetLastError(S_OK), nullptr);
  KelError* pFirst = KelError::KelGetLastError(E_FAIL);
  ASSERT_EQ(pFirst, pError);
  pFirst->Release();
  KelError* pSecond = KelError::KelGetLastError(E_UNEXPECTED);
  EXPECT_EQ(pSecond, pError);
  pSecond->Release();
  EXPECT_EQ(pError->GetRefCount(), 2u);  // the record's and the creator's
  pError->Release();
  KelError::KelCleanLastError();
}

TEST(KelError, ANewErrorReplacesTheRecordedOne)
{
  KelError::KelCleanLastError();
  int Destroyed = 0;
  struct CountedError : MabRixError
  {
    explicit CountedError(int& ioDestroyed) : MabRixError("Unexpected", "MabRixIntegration"), _Destroyed(ioDestroyed) {}
    ~CountedError() override { ++_Destroyed; }
    int& _Destroyed;
  };
  CountedError* pFirst = new CountedError(Destroyed);
  KelError::GetReturn(2, pFirst, nullptr, "f", 1);
  pFirst->Release();
  MabRixError* pSecond = new MabRixError("Other", "MabRixIntegration");
  KelError::GetReturn(2, pSecond, nullptr, "g", 2);
  pSecond->Release();
  EXPECT_EQ(Destroyed, 1);
  EXPECT_EQ(MabRixGetLastError()._Key, "Other");
  KelError::KelCleanLastError();
}

TEST(KelError, LastErrorIsPerThread)
{
  KelError::KelCleanLastError();
  MabRixError* pError = new MabRixError("Unexpected", "MabRixIntegration");
  KelError::GetReturn(2, pError, nullptr, "main", 1);
  pError->Release();
  bool OtherSawOne = true;
  std::thread Other([&] {
    OtherSawOne = MabRixGetLastError()._Present;
    // An error left recorded when the thread ends is released with it.
    MabRixError* pOwn = new MabRixError("Other", "MabRixIntegration");
    KelError::GetReturn(2, pOwn, nullptr, "other", 2);
    pOwn->Release();
  });
  Other.join();
  EXPECT_FALSE(OtherSawOne);
  EXPECT_EQ(MabRixGetLastError()._File, "main");
  KelError::KelCleanLastError();
}

TEST(KelError, SuccessInitIsSuccess) { EXPECT_EQ(RixSuccessInit(), S_OK); }

namespace
{
HRESULT RaiseFromHere(HRESULT iCode, int& oLine)
{
  oLine = __LINE__ + 1;
  return MabRixRaiseUnexpected(iCode);
}
}  // namespace

TEST(KelError, UnexpectedResultRecordsUnexpectedWithTheRaisingPlace)
{
  KelError::KelCleanLastError();
  for (HRESULT Code : {S_OK, E_UNEXPECTED, E_FAIL})
  {
    KelError::KelCleanLastError();
    int Line = 0;
    EXPECT_EQ(RaiseFromHere(Code, Line), E_FAIL);
    const MabRixLastError Last = MabRixGetLastError();
    EXPECT_EQ(Last._Key, "Unexpected");
    EXPECT_EQ(Last._Catalog, "MabRixIntegration");
    EXPECT_EQ(Last._File, __FILE__);
    EXPECT_EQ(Last._Line, Line);
  }
  KelError::KelCleanLastError();
}

TEST(KelError, UnexpectedResultPassesAPendingErrorsCodeOn)
{
  KelError::KelCleanLastError();
  MabRixError* pPending = new MabRixError("Pending", "MabRixIntegration");
  KelError::GetReturn(2, pPending, nullptr, "first", 7);
  pPending->Release();
  int Line = 0;
  EXPECT_EQ(RaiseFromHere(E_UNEXPECTED, Line), E_FAIL);
  const MabRixLastError Last = MabRixGetLastError();
  EXPECT_EQ(Last._Key, "Pending");
  EXPECT_EQ(Last._File, "first");
  KelError::KelCleanLastError();
}

namespace
{
// Fails its first element with the unexpected-error result.
class KelRaisingHandler : public KelSAXHandlerBase
{
public:
  HRESULT StartElement(const KelUnicodeString&, const KelISAXAttributeList_var&) override
  {
    _Line = __LINE__ + 1;
    return MabRixRaiseUnexpected(E_UNEXPECTED);
  }
  int _Line = 0;
};
}  // namespace

TEST(KelError, LastErrorIsReadableAfterAParse)
{
  KelError::KelCleanLastError();
  KelExpatParser_var spParser = KelExpatParser_var::Adopt(new KelExpatParser());
  KelVar<KelRaisingHandler> spHandler = KelVar<KelRaisingHandler>::Adopt(new KelRaisingHandler());
  spParser->SetDocumentHandler(KelISAXDocumentHandler_var(spHandler.Get()));
  const HRESULT hr = spParser->Parse(std::string("<a/>"));
  EXPECT_EQ(hr, E_FAIL);
  const MabRixLastError Last = MabRixGetLastError();
  ASSERT_TRUE(Last._Present);
  EXPECT_EQ(Last._Key, "Unexpected");
  EXPECT_EQ(Last._Catalog, "MabRixIntegration");
  EXPECT_EQ(Last._Message, "An unexpected error occurred while reading the server response.");
  EXPECT_EQ(Last._File, __FILE__);
  EXPECT_EQ(Last._Line, spHandler->_Line);
  KelError::KelCleanLastError();
}
