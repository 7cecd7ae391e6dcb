// The command layer's own handler, built around the parser. It waits for the
// element where the handler of the step starts (the document element, or the
// first element of a given name), creates that handler with itself as parent,
// starts it there, and keeps every value that reaches its Value.
#ifndef RixsaxRootHandler_h
#define RixsaxRootHandler_h

#include <functional>
#include <vector>

#include "MabRixSAXHandlerBase.h"

class RixsaxRootHandler : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  typedef std::function<MabIRixSAXHandler_var(MabRixSAXHandlerBase& iParent)> Factory;

  RixsaxRootHandler(KelISAXParser_var& iParser, Factory iFactory, const KelUnicodeString& iStartAt);
  ~RixsaxRootHandler() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  bool Started() const { return _Started; }
  const std::vector<MabIRixValue_var>& Values() const { return _Values; }
  // The handler of the step; null until it was created.
  const MabIRixSAXHandler_var& Handler() const { return _spChildHandler; }

private:
  Factory _Factory;
  KelUnicodeString _StartAt;
  bool _Started = false;
  std::vector<MabIRixValue_var> _Values;
};

#endif
