#include "RixsaxRunJson.h"

#include "RixsaxContextJson.h"
#include "RixsaxRegistry.h"
#include "RixsaxSession.h"
#include "RixsaxValueJson.h"

namespace
{
RixsaxJson ChecksJson(const MabRixBoundedList<RixsaxCheckRecord>& iChecks)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const RixsaxCheckRecord& Check : iChecks)
    Array.push_back({{"text", Check._Text},
                     {"file", Check._File},
                     {"line", Check._Line},
                     {"xmlLine", Check._XmlLine},
                     {"xmlColumn", Check._XmlColumn},
                     {"answer", Check._Answer}});
  return Array;
}

RixsaxJson LastErrorJson(const std::optional<RixsaxErrorRecord>& iError)
{
  if (!iError)
    return nullptr;
  return {{"key", iError->_Key},
          {"catalog", iError->_Catalog},
          {"message", iError->_Message},
          {"file", iError->_File},
          {"line", iError->_Line}};
}

RixsaxJson CallbackFailuresJson(const MabRixBoundedList<KelSAXCallbackFailure>& iFailures)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const KelSAXCallbackFailure& Failure : iFailures)
    Array.push_back({{"result", RixsaxResultText(Failure._Result)},
                     {"event", Failure._Event},
                     {"element", RixsaxToJson(Failure._Element)},
                     {"xmlLine", Failure._Line},
                     {"xmlColumn", Failure._Column}});
  return Array;
}

RixsaxJson ParseErrorJson(const std::optional<KelSAXParseError>& iError)
{
  if (!iError)
    return nullptr;
  return {{"message", RixsaxToJson(iError->_Message)}, {"xmlLine", iError->_Line}, {"xmlColumn", iError->_Column}};
}

RixsaxJson TraceJson(const MabRixBoundedList<RixsaxTraceRecord>& iTrace)
{
  RixsaxJson Array = RixsaxJson::array();
  for (const RixsaxTraceRecord& Change : iTrace)
    Array.push_back({{"handler", Change._Handler},
                     {"element", Change._Element},
                     {"xmlLine", Change._XmlLine},
                     {"xmlColumn", Change._XmlColumn}});
  return Array;
}
}  // namespace

RixsaxJson RixsaxStepJson(const RixsaxStepRecord& iStep, bool iTrace)
{
  RixsaxJson Json = RixsaxJson::object();
  Json["handler"] = iStep._pEntry->_ClassName;
  Json["file"] = iStep._File;
  Json["result"] = RixsaxResultText(iStep._Result);
  RixsaxJson Values = RixsaxJson::array();
  for (const MabIRixValue_var& Value : iStep._Values)
    Values.push_back(RixsaxValueJson(Value));
  Json["values"] = std::move(Values);
  Json["response"] = RixsaxResponseJson(iStep._spResponse);
  Json["checks"] = ChecksJson(iStep._Checks);
  Json["lastError"] = LastErrorJson(iStep._LastError);
  Json["callbackFailures"] = CallbackFailuresJson(iStep._CallbackFailures);
  Json["parseError"] = ParseErrorJson(iStep._ParseError);
  if (iTrace)
    Json["trace"] = TraceJson(iStep._Trace);
  if (iStep._HostError)
    Json["hostError"] = {{"kind", iStep._HostError->_Kind},
                         {"message", iStep._HostError->_Message},
                         {"xmlLine", iStep._HostError->_XmlLine},
                         {"xmlColumn", iStep._HostError->_XmlColumn}};
  return Json;
}

RixsaxJson RixsaxRunJson(const std::vector<RixsaxStepRecord>& iSteps, RixsaxSession& iSession)
{
  RixsaxJson Json = RixsaxJson::object();
  RixsaxJson Responses = RixsaxJson::array();
  for (const RixsaxStepRecord& Step : iSteps)
    Responses.push_back(RixsaxStepJson(Step, iSession.Options()._Trace));
  Json["responses"] = std::move(Responses);
  if (const MabRixTNRObjectContext* pContext = iSession.UsedTNRContext())
    Json["tnrContext"] = RixsaxTNRContextJson(*pContext);
  if (const MabRixCADObjectContext* pContext = iSession.UsedCADContext())
    Json["cadContext"] = RixsaxCADContextJson(*pContext);
  return Json;
}
