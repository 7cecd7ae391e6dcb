// Runs a piece of a test in a child process, under a time-out, and measures
// the memory it used: a hang or a blow-up shows as a failure of the test
// instead of taking the machine down.
#ifndef MabRixBoundedRun_h
#define MabRixBoundedRun_h

#include <functional>
#include <string>

struct MabRixBoundedResult
{
  bool _Exited = false;  // the body returned (else it crashed or timed out)
  int _ExitCode = -1;    // what the body returned
  int _Signal = 0;       // the signal that ended the child, if any
  bool _TimedOut = false;
  long _PeakKiB = 0;    // peak resident memory of the child beyond the parent's at fork
  std::string _Output;  // what the body wrote through MabRixBoundedSay

  std::string Describe() const;
};

// Runs iBody in a forked child; its result is the child's exit code (0 for
// success). The child is killed after iTimeoutSeconds.
MabRixBoundedResult MabRixRunBounded(const std::function<int()>& iBody, unsigned iTimeoutSeconds);

// Inside a body: a line of explanation sent back to the test.
void MabRixBoundedSay(const std::string& iText);

// Memory budgets are written for a plain build; sanitizers multiply them.
long MabRixMemoryBudgetKiB(long iPlainMiB);

#endif
