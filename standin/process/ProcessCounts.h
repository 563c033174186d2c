#pragma once
// What this process holds of the system, as numbers that can be compared over time.

#include <cstddef>

namespace standin::process
{
/// What is taken from the heap and not given back. A sanitizer's own count where there is one.
std::size_t BytesInUse();

int OpenDescriptors();
int RunningThreads();
} // namespace standin::process
