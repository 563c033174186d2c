// The sweep's own operator new, which fails where the plan says so.

#include "standin/host/faults/AllocationPlan.h"

#include <cstdlib>
#include <new>

namespace
{
void* block(std::size_t size)
{
    void* given = standin::MustAllocationFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (given == nullptr)
        throw std::bad_alloc();
    return given;
}
} // namespace

void* operator new(std::size_t size) { return block(size); }
void* operator new[](std::size_t size) { return block(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
