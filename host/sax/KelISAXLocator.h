/// Position of the event being delivered, for error messages. Ownership, threads, errors: @ref conventions. @file
#ifndef KelISAXLocator_h
#define KelISAXLocator_h

#include "KelBaseUnknown.h"
#include "KelResult.h"
#include "KelVar.h"

class KelISAXLocator : public virtual KelBaseUnknown
{
public:
  virtual HRESULT GetLineNumber(int& oLine) = 0;
  virtual HRESULT GetColumnNumber(int& oColumn) = 0;
};

typedef KelVar<KelISAXLocator> KelISAXLocator_var;

#endif
