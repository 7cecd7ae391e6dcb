/// Attributes of the element being started, read by name or by position
/// (from 0, in document order). A failure result means there is no such
/// attribute; the output is then left as it was.
///
/// The view operations read the list's own text without copying it: a view
/// stays valid only while the element's StartElement is being delivered, so
/// a handler copies what it keeps. Ownership, threads, errors: @ref conventions. @file
#ifndef KelISAXAttributeList_h
#define KelISAXAttributeList_h

#include <string_view>

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
  virtual HRESULT GetNameView(unsigned int iPosition, std::string_view& oName) = 0;
  virtual HRESULT GetValueView(unsigned int iPosition, std::string_view& oValue) = 0;
  virtual HRESULT GetValueView(std::string_view iName, std::string_view& oValue) = 0;
};

typedef KelVar<KelISAXAttributeList> KelISAXAttributeList_var;

#endif
