/// The reading thread's record of a failed allocation. Handlers make their
/// children and values with new (std::nothrow) and, by their rules, go on
/// without an element they could not make a handler for; the result is then
/// incomplete with nothing in it saying so. Every such failure of an object
/// of the model is recorded here, so the caller of a parse can tell an
/// incomplete result from a complete one. Ownership, threads, errors: @ref conventions. @file
#ifndef KelAllocationFailure_h
#define KelAllocationFailure_h

/// Records that an allocation failed on this thread.
void KelNoteAllocationFailure() noexcept;
/// True when an allocation failed on this thread since the last clear.
bool KelAllocationFailed() noexcept;
void KelClearAllocationFailure() noexcept;

#endif
