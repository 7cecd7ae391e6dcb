#include "RixsaxJsonText.h"

#include "RixsaxContextJson.h"
#include "RixsaxJsonWriter.h"
#include "RixsaxValueJson.h"

namespace
{
template <class Write>
std::string OneLine(Write iWrite)
{
  std::string Text;
  RixsaxOutput Output(Text);
  RixsaxJsonWriter Writer(Output, false);
  iWrite(Writer);
  Output.Flush();
  return Text;
}
}  // namespace

std::string RixsaxValueJsonText(const MabIRixValue_var& iValue)
{
  return OneLine([&iValue](RixsaxWriter& ioWriter) { RixsaxWriteValue(ioWriter, iValue); });
}

std::string RixsaxTNRContextJsonText(const MabRixTNRObjectContext& iContext)
{
  return OneLine([&iContext](RixsaxWriter& ioWriter) { RixsaxWriteTNRContext(ioWriter, iContext); });
}

std::string RixsaxCADContextJsonText(const MabRixCADObjectContext& iContext)
{
  return OneLine([&iContext](RixsaxWriter& ioWriter) { RixsaxWriteCADContext(ioWriter, iContext); });
}
