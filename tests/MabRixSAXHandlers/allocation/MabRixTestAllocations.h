// Allocations of the calling thread, counted and failed on demand: this
// executable replaces the global operator new and delete. Disarmed, they
// pass every request to malloc and free.
#ifndef MabRixTestAllocations_h
#define MabRixTestAllocations_h

#include <cstddef>

namespace MabRixTestAllocations
{
// Allocations made by this thread so far.
std::size_t Count();
// The allocation after iSkipped more ones fails (a throwing new throws
// std::bad_alloc, a nothrow new yields null); the ones after it succeed.
void FailOne(std::size_t iSkipped = 0);
// No allocation of this thread fails any more.
void Disarm();
}  // namespace MabRixTestAllocations

#endif
