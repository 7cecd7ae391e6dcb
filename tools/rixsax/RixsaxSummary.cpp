#include "RixsaxSummary.h"

#include "RixsaxJsonBasics.h"
#include "RixsaxRegistry.h"
#include "RixsaxValueJson.h"

std::string RixsaxSummary(const std::vector<RixsaxStepRecord>& iSteps)
{
  std::string Text;
  for (const RixsaxStepRecord& Step : iSteps)
  {
    std::size_t Entries = 0;
    for (const MabIRixValue_var& Value : Step._Values)
      Entries += RixsaxValueEntryCount(Value);
    const RixsaxContextCounts& Counts = Step._ContextCounts;
    Text += std::string(Step._pEntry->_Name) + " " + Step._File + ": result " + RixsaxResultText(Step._Result) +
            ", values " + std::to_string(Step._Values.size()) + ", checks " + std::to_string(Step._Checks.size()) +
            ", objects " + std::to_string(Counts._Objects) + ", major objects " + std::to_string(Counts._MajorObjects) +
            ", minor objects " + std::to_string(Counts._MinorObjects) + ", relationships " +
            std::to_string(Counts._Relationships) + ", relations " + std::to_string(Counts._Relations) + ", entries " +
            std::to_string(Entries) + "\n";
  }
  return Text;
}
