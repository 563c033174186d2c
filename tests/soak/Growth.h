#pragma once
// What must not grow in a long run: counted at times when the state is the same, and compared over the run.

#include <cstddef>
#include <string>
#include <vector>

namespace standin
{
/// All that is held at one moment.
struct Holdings
{
    std::size_t bytes = 0; ///< On the heap, without what the stand-in itself keeps of a long run.
    int references = 0;    ///< Of the host, that hooks hold or have leaked.
    int suites = 0;
    int windows = 0; ///< Of the X server, or containers where there is none.
    int descriptors = 0;
    int threads = 0;
};

/// What grows from one look to the next, in words; empty if nothing does. Numbers of things may not be larger
/// in the last third of the looks than in the first, and the heap by no more than an allocator's slack.
/// Throws std::logic_error for fewer than six looks.
std::string Growth(const std::vector<Holdings>& looks);

/// As a line of a table.
std::string TextOf(const Holdings&);
} // namespace standin
