#include "RixsaxSummary.h"

#include "RixsaxJsonBasics.h"
#include "RixsaxRegistry.h"
#include "RixsaxValueJson.h"

std::string RixsaxSummaryLine(const RixsaxStepRecord& iStep)
{
  std::size_t Entries = 0;
  for (const MabIRixValue_var& Value : iStep._Values)
    Entries += RixsaxValueEntryCount(Value);
  const RixsaxContextCounts& Counts = iStep._ContextCounts;
  std::string Text = std::string(iStep._pEntry->_Name) + " " + iStep._File + ": result " +
                     RixsaxResultText(iStep._Result) + (FAILED(iStep._Result) ? " (failed)" : "") + ", values " +
                     std::to_string(iStep._Values.Total()) + ", checks " + std::to_string(iStep._Checks.Total()) +
                     ", failed callbacks " + std::to_string(iStep._CallbackFailures.Total()) + ", objects " +
                     std::to_string(Counts._Objects) + ", major objects " + std::to_string(Counts._MajorObjects) +
                     ", minor objects " + std::to_string(Counts._MinorObjects) + ", relationships " +
                     std::to_string(Counts._Relationships) + ", relations " + std::to_string(Counts._Relations) +
                     ", entries " + std::to_string(Entries);
  if (iStep._ParseError)
  {
    Text += iStep._ParseError->_OutOfMemory ? "; out of memory" : "; parse error";
    if (iStep._ParseError->_Line > 0)
      Text += " at " + std::to_string(iStep._ParseError->_Line) + ":" + std::to_string(iStep._ParseError->_Column);
    Text += ": " + iStep._ParseError->_Message.ToUtf8();
  }
  if (iStep._HostError)
    Text += "; " + iStep._HostError->_Kind + " at " + std::to_string(iStep._HostError->_XmlLine) + ":" +
            std::to_string(iStep._HostError->_XmlColumn) + ": " + iStep._HostError->_Message;
  if (iStep._AllocationFailed && !iStep._HostError && !iStep._ParseError)
    Text += "; incomplete result: an allocation failed while reading";
  if (!iStep._Started && !iStep._HostError && !iStep._ParseError)
    Text += "; the handler never started";
  return Text + "\n";
}
