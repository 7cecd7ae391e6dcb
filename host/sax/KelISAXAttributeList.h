// Attributes of the element being started, read by name or by position
// (from 0, in document order). A failure result means there is no such
// attribute; the output is then left as it was.
#ifndef KelISAXAttributeList_h
#define KelISAXAttributeList_h

#include "KelBaseUnknown.h"
#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelVar.h"

class KelISAXAttributeList : public virtual KelBaseUnknown
{
public:
  virtual HRESULT GetLength(unsigned int& oLength) = 0;
  virtual HRESULT GetName(unsigned int iPosition, KelUnicodeString& oName) = 0;
  virtual HRESULT GetValue(unsigned int iPosition, KelUnicodeString& oValue) = 0;
  virtual HRESULT GetValue(const KelUnicodeString& iName, KelUnicodeString& oValue) = 0;
};

typedef KelVar<KelISAXAttributeList> KelISAXAttributeList_var;

#endif
