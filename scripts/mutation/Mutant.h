#pragma once
// Goes into every source that scripts/mutate rewrites: tells whether the mutant of a number is switched on,
// and notes that a run has come past its place.

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace mutation
{
struct State
{
    int chosen = 0;
    unsigned char* reached =
        nullptr; ///< One byte for each mutant, in a file that all processes of a run share.

    State()
    {
        if (const char* number = std::getenv("MUTANT"))
            chosen = std::atoi(number);
        const char* path = std::getenv("MUTANTS_REACHED");
        const int file = path != nullptr ? open(path, O_RDWR | O_CLOEXEC) : -1;
        if (file < 0)
            return;
        const off_t size = lseek(file, 0, SEEK_END);
        void* bytes =
            mmap(nullptr, static_cast<std::size_t>(size), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        close(file);
        if (bytes != MAP_FAILED)
            reached = static_cast<unsigned char*>(bytes);
    }
};

__attribute__((visibility("hidden"))) inline State state;

inline bool isOn(int number)
{
    if (state.reached != nullptr)
        state.reached[number] = 1;
    return state.chosen == number;
}
} // namespace mutation

#define MUTANT(number) mutation::isOn(number)
