#pragma once
// The order of a number's bytes, reversed.

#include <stdint.h>

#define OSSwapInt32(value) ((uint32_t)__builtin_bswap32(value))
#define OSSwapInt64(value) ((uint64_t)__builtin_bswap64(value))
