// Steps the handlers that raise errors share, written once. Reading an
// attribute a start tag must carry: while all went well the attribute is
// read; a failed result before, a missing attribute list or a missing
// attribute raise the unexpected error. Macros, so that the raised error
// names the handler's own file and line.
#ifndef MabRixHandlerSteps_h
#define MabRixHandlerSteps_h

#include "KelCheck.h"
#include "KelISAXAttributeList.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "MabRixSAXHandlerBase.h"

// The result after the read: iResult when it had failed (the pending error
// passed on), the raised error's result when the read failed or, with
// iNonEmpty, gave an empty text; else the read's result.
HRESULT MabRixReadRequiredAttribute(HRESULT iResult, const KelISAXAttributeList_var& iAttributes, const char* iName,
                                    KelUnicodeString& oValue, bool iNonEmpty, const char* iFile, int iLine);

#define MabRixRequireAttribute(iResult, iAttributes, iName, oValue) \
  MabRixReadRequiredAttribute(iResult, iAttributes, iName, oValue, false, KEL_CHECK_FILE, __LINE__)
// The same, and an empty text raises too.
#define MabRixRequireText(iResult, iAttributes, iName, oValue) \
  MabRixReadRequiredAttribute(iResult, iAttributes, iName, oValue, true, KEL_CHECK_FILE, __LINE__)

// The start of an element in a handler that writes into an object context:
// the base's start (which counts nested elements of the handler's own name),
// then the context; each failure raises, at the caller's file and line.
HRESULT MabRixStartContextElement(MabRixSAXHandlerBase& ioHandler, const void* ipContext, const KelUnicodeString& iName,
                                  const KelISAXAttributeList_var& iAttributes, const char* iFile, int iLine);
#define MabRixStartInContext(ipContext, iName, iAttributes) \
  MabRixStartContextElement(*this, ipContext, iName, iAttributes, KEL_CHECK_FILE, __LINE__)

#endif
