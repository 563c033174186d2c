#pragma once
// Counts what a piece of code takes from the heap. A program that links the source file has its operator new
// replaced; one that is linked with the options of `counted-allocations` has malloc and its kin counted as
// well, which is where JUCE's arrays come from. What a shared library takes for itself is not seen. Only the
// calling thread is counted: JUCE's timers have one of their own.

#include <cstddef>

namespace standin
{
struct Taken
{
    std::size_t allocations = 0;
    std::size_t bytes = 0;
};

/// What this thread has allocated so far.
Taken TakenSoFar();

/// What `body` allocates.
template <class Body>
Taken TakenBy(Body body)
{
    const Taken before = TakenSoFar();
    body();
    const Taken after = TakenSoFar();
    return {after.allocations - before.allocations, after.bytes - before.bytes};
}
} // namespace standin
