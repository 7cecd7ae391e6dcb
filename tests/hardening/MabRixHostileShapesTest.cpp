// Every handler of the table against hostile shapes of response: deep
// nesting, huge attribute lists, endless siblings, a huge text, with the
// reporter answering stop and go on. Each handler runs in a child process
// under a time-out: no crash, no hang, bounded memory.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KelCheck.h"
#include "KelError.h"
#include "KelNullVarError.h"
#include "MabRixBoundedRun.h"
#include "MabRixHandlerTable.h"
#include "MabRixTestSupport.h"

namespace
{
// Counts reports without keeping them: hostile shapes make millions.
class CountingReporter : public KelCheckReporter
{
public:
  explicit CountingReporter(int iAnswer) : _Answer(iAnswer), _Scope(*this) {}
  int OnCheckFailure(const char*, const char*, int) override { return _Answer; }

private:
  int _Answer;
  KelCheckReporterScope _Scope;
};

std::string Nested(const std::string& iName, std::size_t iDepth)
{
  std::string Open = "<" + iName + ">", Close = "</" + iName + ">", Xml;
  Xml.reserve(iDepth * (Open.size() + Close.size()));
  for (std::size_t i = 0; i < iDepth; ++i)
    Xml += Open;
  for (std::size_t i = 0; i < iDepth; ++i)
    Xml += Close;
  return Xml;
}

std::string ManyAttributes(const std::string& iName, std::size_t iCount)
{
  std::string Xml = "<r><" + iName;
  for (std::size_t i = 0; i < iCount; ++i)
    Xml += " a" + std::to_string(i) + "='v'";
  return Xml + " name='n' type='t' value='v'/></r>";
}

std::string ManySiblings(std::size_t iCount)
{
  std::string Xml = "<r>";
  for (std::size_t i = 0; i < iCount; ++i)
    Xml += "<row name='n" + std::to_string(i % 7) +
           "' oid='1'><name>k</name><value>v</value></row>"
           "<cadobject type='t' name='n'/><attribute><name>x</name><value>y</value></attribute>";
  return Xml + "</r>";
}

// Reads every shape with both answers; returns 0 when nothing escaped but
// the errors the protocol allows.
int ReadShapes(const MabRixHandlerEntry& iEntry, const std::vector<std::string>& iShapes)
{
  for (int Answer : {0, 1})
    for (const std::string& Shape : iShapes)
    {
      CountingReporter Reporter(Answer);
      MabRixThrowingFatalHandler FatalHandler;
      try
      {
        (void)MabRixReadAndDescribe(iEntry, Shape, {1, 2, 3}, 0);
      }
      catch (const KelNullVarError&)
      {
      }
      catch (const MabRixFatalErrorRaised&)
      {
      }
      KelError::KelCleanLastError();
    }
  return 0;
}

void CheckEveryHandler(const std::vector<std::string>& iShapes, long iBudgetMiB, unsigned iTimeOut)
{
  for (const MabRixHandlerEntry& Entry : MabRixHandlerTable())
  {
    const MabRixBoundedResult Run = MabRixRunBounded([&] { return ReadShapes(Entry, iShapes); }, iTimeOut);
    EXPECT_TRUE(Run._Exited && Run._ExitCode == 0) << Entry._Name << ": " << Run.Describe();
    EXPECT_LT(Run._PeakKiB, MabRixMemoryBudgetKiB(iBudgetMiB)) << Entry._Name << ": " << Run.Describe();
  }
}
}  // namespace

TEST(MabRixHostileShapes, EveryHandlerSurvivesThem)
{
  const std::size_t Size = 4000;
  CheckEveryHandler(
      {Nested("cadobject", Size), Nested("row", Size), Nested("attribute", Size), ManyAttributes("cadobject", Size / 5),
       ManyAttributes("row", Size / 5), ManySiblings(Size / 10), "<r>" + std::string(Size * 50, 't') + "</r>"},
      256, 120);
}

TEST(MabRixHostileShapesHeavy, EveryHandlerSurvivesAMillionNestedElements)
{
  CheckEveryHandler({Nested("cadobject", 1000000)}, 2048, 600);
}
