#include "tests/support/CountedAllocations.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local standin::Taken taken;

void note(std::size_t size)
{
    ++taken.allocations;
    taken.bytes += size;
}
} // namespace

standin::Taken standin::TakenSoFar() { return taken; }

#ifdef VORTAN_COUNT_MALLOC
// The linker leads every call of malloc here, and __real_malloc to malloc.
extern "C"
{
    void* __real_malloc(std::size_t);
    void* __real_calloc(std::size_t, std::size_t);
    void* __real_realloc(void*, std::size_t);
    void* __wrap_malloc(std::size_t);
    void* __wrap_calloc(std::size_t, std::size_t);
    void* __wrap_realloc(void*, std::size_t);

    void* __wrap_malloc(std::size_t size)
    {
        note(size);
        return __real_malloc(size);
    }

    void* __wrap_calloc(std::size_t count, std::size_t size)
    {
        note(count * size);
        return __real_calloc(count, size);
    }

    void* __wrap_realloc(void* block, std::size_t size)
    {
        note(size);
        return __real_realloc(block, size);
    }
}

namespace
{
void* take(std::size_t size) { return __real_malloc(size); }
} // namespace
#else
namespace
{
void* take(std::size_t size) { return std::malloc(size); }
} // namespace
#endif

namespace
{
void* countedBlock(std::size_t size)
{
    note(size);
    if (void* block = take(size == 0 ? 1 : size))
        return block;
    throw std::bad_alloc();
}
} // namespace

void* operator new(std::size_t size) { return countedBlock(size); }
void* operator new[](std::size_t size) { return countedBlock(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
