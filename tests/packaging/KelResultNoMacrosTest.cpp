// Every header of the library leaves the result names free of macros; a
// platform header that defines them afterwards takes them over.
#include "MabRixEveryHeader.h"

#if defined(S_OK) || defined(S_FALSE) || defined(E_FAIL) || defined(E_UNEXPECTED) || defined(E_OUTOFMEMORY) || \
    defined(E_INVALIDARG) || defined(SUCCEEDED) || defined(FAILED) || defined(TRUE) || defined(FALSE)
#error a header of the library defines a result name as a macro
#endif

static_assert(S_OK == 0 && S_FALSE == 1 && FAILED(E_FAIL) && FAILED(E_UNEXPECTED) && FAILED(E_OUTOFMEMORY) &&
              FAILED(E_INVALIDARG) && SUCCEEDED(S_OK) && SUCCEEDED(S_FALSE) && !FAILED(S_FALSE));
static_assert(TRUE == 1 && FALSE == 0);

#include "ForeignResultMacros.h"
#include "MabRixReadObjectList.h"

#include <gtest/gtest.h>

TEST(KelResultNoMacros, APlatformHeaderIncludedAfterTheLibraryTakesTheNamesOver)
{
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  EXPECT_EQ(S_OK, MabRixReadObjectList(MabRixOneObjectList, pContext));
  EXPECT_EQ(1u, pContext->GetMinorObjects().size());
  pContext->Release();
}
