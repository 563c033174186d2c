#pragma once
// An object whose memory is overwritten when it ends: whatever still refers to it then is seen at once.

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

namespace standin
{
template <class T>
class Erased
{
public:
    template <class... Arguments>
    explicit Erased(Arguments&&... arguments) : object(new (memory) T(std::forward<Arguments>(arguments)...))
    {
    }

    ~Erased() { end(); }
    Erased(const Erased&) = delete;
    Erased& operator=(const Erased&) = delete;

    T* operator->() { return object; }

    void end()
    {
        if (object == nullptr)
            return;
        std::exchange(object, nullptr)->~T();
        std::memset(memory, 0, sizeof memory);
        // So that the compiler does not leave out what nobody reads.
        asm volatile("" : : "r"(memory) : "memory");
    }

private:
    alignas(T) std::byte memory[sizeof(T)];
    T* object;
};
} // namespace standin
