#include "RixsaxRunJson.h"

#include "RixsaxContextJson.h"
#include "RixsaxJsonBasics.h"
#include "RixsaxRegistry.h"
#include "RixsaxSession.h"
#include "RixsaxValueJson.h"

namespace
{
void WriteChecks(RixsaxWriter& ioWriter, const MabRixBoundedList<RixsaxCheckRecord>& iChecks)
{
  ioWriter.Key("checks");
  ioWriter.BeginArray();
  for (const RixsaxCheckRecord& Check : iChecks)
  {
    ioWriter.BeginObject();
    ioWriter.Member("text", Check._Text);
    ioWriter.Member("file", Check._File);
    ioWriter.MemberInt("line", Check._Line);
    ioWriter.MemberInt("xmlLine", Check._XmlLine);
    ioWriter.MemberInt("xmlColumn", Check._XmlColumn);
    ioWriter.MemberInt("answer", Check._Answer);
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}

void WriteLastError(RixsaxWriter& ioWriter, const std::optional<RixsaxErrorRecord>& iError)
{
  ioWriter.Key("lastError");
  if (!iError)
  {
    ioWriter.Null();
    return;
  }
  ioWriter.BeginObject();
  ioWriter.Member("key", iError->_Key);
  ioWriter.Member("catalog", iError->_Catalog);
  ioWriter.Member("message", iError->_Message);
  ioWriter.Member("file", iError->_File);
  ioWriter.MemberInt("line", iError->_Line);
  ioWriter.EndObject();
}

void WriteCallbackFailures(RixsaxWriter& ioWriter, const MabRixBoundedList<KelSAXCallbackFailure>& iFailures)
{
  ioWriter.Key("callbackFailures");
  ioWriter.BeginArray();
  for (const KelSAXCallbackFailure& Failure : iFailures)
  {
    ioWriter.BeginObject();
    ioWriter.Member("result", RixsaxResultText(Failure._Result));
    ioWriter.Member("event", Failure._Event);
    ioWriter.Member("element", Failure._Element);
    ioWriter.MemberInt("xmlLine", Failure._Line);
    ioWriter.MemberInt("xmlColumn", Failure._Column);
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}

void WriteParseError(RixsaxWriter& ioWriter, const std::optional<KelSAXParseError>& iError)
{
  ioWriter.Key("parseError");
  if (!iError)
  {
    ioWriter.Null();
    return;
  }
  ioWriter.BeginObject();
  ioWriter.Member("message", iError->_Message);
  ioWriter.MemberInt("xmlLine", iError->_Line);
  ioWriter.MemberInt("xmlColumn", iError->_Column);
  ioWriter.EndObject();
}

// Past --max-records a list is cut; the count left out follows it.
void WriteOmitted(RixsaxWriter& ioWriter, const char* iName, std::size_t iOmitted)
{
  if (iOmitted > 0)
    ioWriter.MemberInt(iName, static_cast<std::int64_t>(iOmitted));
}

void WriteTrace(RixsaxWriter& ioWriter, const MabRixBoundedList<RixsaxTraceRecord>& iTrace)
{
  ioWriter.Key("trace");
  ioWriter.BeginArray();
  for (const RixsaxTraceRecord& Change : iTrace)
  {
    ioWriter.BeginObject();
    ioWriter.Member("handler", Change._Handler);
    ioWriter.Member("element", Change._Element);
    ioWriter.MemberInt("xmlLine", Change._XmlLine);
    ioWriter.MemberInt("xmlColumn", Change._XmlColumn);
    ioWriter.EndObject();
  }
  ioWriter.EndArray();
}
}  // namespace

void RixsaxWriteStep(RixsaxWriter& ioWriter, const RixsaxStepRecord& iStep, bool iTrace)
{
  ioWriter.BeginObject();
  ioWriter.Member("handler", iStep._pEntry->_ClassName);
  ioWriter.Member("file", iStep._File);
  ioWriter.Member("result", RixsaxResultText(iStep._Result));
  ioWriter.Key("values");
  ioWriter.BeginArray();
  for (const MabIRixValue_var& Value : iStep._Values)
    RixsaxWriteValue(ioWriter, Value);
  ioWriter.EndArray();
  WriteOmitted(ioWriter, "valuesOmitted", iStep._Values.Omitted());
  ioWriter.Key("response");
  RixsaxWriteResponse(ioWriter, iStep._spResponse);
  WriteChecks(ioWriter, iStep._Checks);
  WriteOmitted(ioWriter, "checksOmitted", iStep._Checks.Omitted());
  WriteLastError(ioWriter, iStep._LastError);
  WriteCallbackFailures(ioWriter, iStep._CallbackFailures);
  WriteOmitted(ioWriter, "callbackFailuresOmitted", iStep._CallbackFailures.Omitted());
  WriteParseError(ioWriter, iStep._ParseError);
  if (iTrace)
  {
    WriteTrace(ioWriter, iStep._Trace);
    WriteOmitted(ioWriter, "traceOmitted", iStep._Trace.Omitted());
  }
  if (iStep._HostError)
  {
    ioWriter.Key("hostError");
    ioWriter.BeginObject();
    ioWriter.Member("kind", iStep._HostError->_Kind);
    ioWriter.Member("message", iStep._HostError->_Message);
    ioWriter.MemberInt("xmlLine", iStep._HostError->_XmlLine);
    ioWriter.MemberInt("xmlColumn", iStep._HostError->_XmlColumn);
    ioWriter.EndObject();
  }
  if (iStep._AllocationFailed)
    ioWriter.MemberBool("incomplete", true);
  ioWriter.EndObject();
}

void RixsaxWriteRunStart(RixsaxWriter& ioWriter)
{
  ioWriter.BeginObject();
  ioWriter.Key("responses");
  ioWriter.BeginArray();
}

void RixsaxWriteRunEnd(RixsaxWriter& ioWriter, const RixsaxSession& iSession)
{
  ioWriter.EndArray();
  if (const MabRixTNRObjectContext* pContext = iSession.UsedTNRContext())
  {
    ioWriter.Key("tnrContext");
    RixsaxWriteTNRContext(ioWriter, *pContext);
  }
  if (const MabRixCADObjectContext* pContext = iSession.UsedCADContext())
  {
    ioWriter.Key("cadContext");
    RixsaxWriteCADContext(ioWriter, *pContext);
  }
  ioWriter.EndObject();
}
