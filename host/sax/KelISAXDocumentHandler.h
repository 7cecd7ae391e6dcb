/// Receiver of the parser's document events. A negative result is a failure
/// reported to the parser. Ownership, threads, errors: @ref conventions. @file
#ifndef KelISAXDocumentHandler_h
#define KelISAXDocumentHandler_h

#include "KelBaseUnknown.h"
#include "KelISAXAttributeList.h"
#include "KelISAXLocator.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelVar.h"

class KelISAXDocumentHandler : public virtual KelBaseUnknown
{
public:
  virtual HRESULT StartDocument() = 0;
  virtual HRESULT EndDocument() = 0;
  virtual HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) = 0;
  virtual HRESULT EndElement(const KelUnicodeString& iName) = 0;
  virtual HRESULT Characters(const KelUnicodeString& iCharacters) = 0;
  virtual HRESULT IgnorableWhiteSpace(const KelUnicodeString& iCharacters) = 0;
  virtual HRESULT ProcessingInstruction(const KelUnicodeString& iTarget, const KelUnicodeString& iData) = 0;
  virtual HRESULT SetDocumentLocator(const KelISAXLocator_var& iLocator) = 0;
};

typedef KelVar<KelISAXDocumentHandler> KelISAXDocumentHandler_var;

#endif
