// Driving a handler by hand, without a document: an attribute list with
// scripted answers and a root parent to build the handler under. Lets a test
// call StartElement, EndElement and Value directly.
#ifndef MabRixTestDirect_h
#define MabRixTestDirect_h

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "KelISAXAttributeList.h"
#include "MabRixStringValue.h"
#include "MabRixTestSupport.h"

class MabRixTestAttributeList : public virtual KelISAXAttributeList
{
public:
  explicit MabRixTestAttributeList(std::vector<std::pair<std::string, std::string>> iAttributes = {})
      : _Attributes(std::move(iAttributes))
  {
  }

  static KelISAXAttributeList_var Make(std::vector<std::pair<std::string, std::string>> iAttributes = {})
  {
    return KelISAXAttributeList_var::Adopt(new MabRixTestAttributeList(std::move(iAttributes)));
  }

  HRESULT GetLength(unsigned int& oLength) override
  {
    if (FAILED(_LengthResult))
      return _LengthResult;
    oLength = static_cast<unsigned int>(_Attributes.size());
    return _LengthResult;
  }
  HRESULT GetName(unsigned int iPosition, KelUnicodeString& oName) override
  {
    if (iPosition >= _Attributes.size())
      return E_FAIL;
    oName = _Attributes[iPosition].first.c_str();
    return S_OK;
  }
  HRESULT GetValue(unsigned int iPosition, KelUnicodeString& oValue) override
  {
    if (iPosition >= _Attributes.size())
      return E_FAIL;
    oValue = _Attributes[iPosition].second.c_str();
    return S_OK;
  }
  HRESULT GetValue(const KelUnicodeString& iName, KelUnicodeString& oValue) override
  {
    for (const auto& Attribute : _Attributes)
      if (iName == Attribute.first.c_str())
      {
        oValue = Attribute.second.c_str();
        return S_OK;
      }
    return E_FAIL;
  }
  HRESULT GetNameView(unsigned int iPosition, std::string_view& oName) override
  {
    if (iPosition >= _Attributes.size())
      return E_FAIL;
    oName = _Attributes[iPosition].first;
    return S_OK;
  }
  HRESULT GetValueView(unsigned int iPosition, std::string_view& oValue) override
  {
    if (iPosition >= _Attributes.size())
      return E_FAIL;
    oValue = _Attributes[iPosition].second;
    return S_OK;
  }
  HRESULT GetValueView(std::string_view iName, std::string_view& oValue) override
  {
    for (const auto& Attribute : _Attributes)
      if (iName == Attribute.first)
      {
        oValue = Attribute.second;
        return S_OK;
      }
    return E_FAIL;
  }

  HRESULT _LengthResult = S_OK;  // what GetLength answers

private:
  std::vector<std::pair<std::string, std::string>> _Attributes;
};

// A parser that only holds its document handler; its SetDocumentHandler
// refuses the next _Refusals calls.
class MabRixTestParser : public virtual KelISAXParser
{
public:
  HRESULT SetDocumentHandler(const KelISAXDocumentHandler_var& iHandler) override
  {
    if (_Refusals > 0)
    {
      --_Refusals;
      return E_FAIL;
    }
    _spHandler = iHandler;
    return S_OK;
  }
  HRESULT GetDocumentHandler(KelISAXDocumentHandler_var& oHandler) override
  {
    oHandler = _spHandler;
    return S_OK;
  }

  int _Refusals = 0;

private:
  KelISAXDocumentHandler_var _spHandler;
};

// A parser and a root handler that a handler under test can take as parent.
struct MabRixTestParent
{
  explicit MabRixTestParent(KelISAXParser_var ispParser = KelISAXParser_var::Adopt(new KelExpatParser()))
      : _spParser(std::move(ispParser))
  {
    _spRoot = KelVar<MabRixTestRootHandler>::Adopt(new MabRixTestRootHandler(_spParser, nullptr, ""));
  }
  // No document ends here to make the parser let go of its handler.
  ~MabRixTestParent()
  {
    if (!!_spParser)
      _spParser->SetDocumentHandler(nullptr);
  }
  MabRixTestParent(const MabRixTestParent&) = delete;
  MabRixTestParent& operator=(const MabRixTestParent&) = delete;

  MabRixSAXHandlerBase& Root() { return *_spRoot.Get(); }
  const std::vector<MabIRixValue_var>& Values() const { return _spRoot->Values(); }

  KelISAXParser_var _spParser;
  KelVar<MabRixTestRootHandler> _spRoot;
};

// A handler built under a test parent with the given arguments after the
// parent, and started on its own element "list".
template <class Handler>
struct MabRixStartedHandler
{
  template <class... Arguments>
  explicit MabRixStartedHandler(Arguments... iArguments)
      : _spHandler(KelVar<Handler>::Adopt(new Handler(_Parent.Root(), iArguments...)))
  {
    _spHandler->StartHandlingEvents("list", MabRixTestAttributeList::Make());
  }
  Handler* operator->() const { return _spHandler.Get(); }

  MabRixTestParent _Parent;
  KelVar<Handler> _spHandler;
};

// A string value, as a text element's child hands it up.
inline MabIRixValue_var MabRixTextValue(const char* iText)
{
  MabRixStringValue* pValue = new MabRixStringValue();
  pValue->_Value = iText;
  return MabIRixValue_var::Adopt(pValue);
}

// The last error is the unexpected-error result raised in iFile.
inline void MabRixExpectUnexpectedError(const char* iFile)
{
  const MabRixLastError Error = MabRixGetLastError();
  ASSERT_TRUE(Error._Present);
  EXPECT_EQ(Error._Key, "Unexpected");
  EXPECT_EQ(Error._Catalog, "MabRixIntegration");
  EXPECT_EQ(Error._File, iFile);
  EXPECT_GT(Error._Line, 0);
  EXPECT_EQ(Error._Code, E_FAIL);
}

#endif
