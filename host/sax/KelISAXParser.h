/// A SAX parser whose single document handler may change while a document
/// streams through it. Ownership, threads, errors: @ref conventions. @file
#ifndef KelISAXParser_h
#define KelISAXParser_h

#include "KelBaseUnknown.h"
#include "KelISAXDocumentHandler.h"
#include "KelResult.h"
#include "KelVar.h"

class KelISAXParser : public virtual KelBaseUnknown
{
public:
  /// Every later event of the document goes to iHandler.
  virtual HRESULT SetDocumentHandler(const KelISAXDocumentHandler_var& iHandler) = 0;
  virtual HRESULT GetDocumentHandler(KelISAXDocumentHandler_var& oHandler) = 0;
};

typedef KelVar<KelISAXParser> KelISAXParser_var;

#endif
