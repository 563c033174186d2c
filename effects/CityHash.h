#pragma once
// CityHash64, release 1.1, unseeded: a fast 64-bit hash of a run of bytes, after the published algorithm.

#include <cstddef>
#include <cstdint>

/// `bytes` may be null if `length` is 0. Reads nothing outside the run and needs no alignment.
std::uint64_t CityHash64(const char* bytes, std::size_t length);
