#include "KelAllocationFailure.h"

namespace
{
// Trivially destructible: its first use registers nothing and cannot fail.
thread_local bool tAllocationFailed = false;
}  // namespace

void KelNoteAllocationFailure() noexcept { tAllocationFailed = true; }

bool KelAllocationFailed() noexcept { return tAllocationFailed; }

void KelClearAllocationFailure() noexcept { tAllocationFailed = false; }
