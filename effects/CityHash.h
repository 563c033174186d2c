#pragma once
// CityHash64, release 1.1, unseeded: a fast 64-bit hash of a run of bytes, after the published algorithm.
// It stands in the header so that a caller who knows the length gets the code for that length alone.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

// Little-endian loads are plain copies on both supported processors.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "loads below assume a little-endian machine");

namespace city_hash
{
using u32 = std::uint32_t;
using u64 = std::uint64_t;

// Primes between 2^63 and 2^64.
constexpr u64 k0 = 0xc3a5c85c97cb3127ULL;
constexpr u64 k1 = 0xb492b66fbe98f273ULL;
constexpr u64 k2 = 0x9ae16a3b2f90404fULL;

inline u64 load64(const char* p)
{
    u64 value = 0;
    std::memcpy(&value, p, sizeof value);
    return value;
}

inline u32 load32(const char* p)
{
    u32 value = 0;
    std::memcpy(&value, p, sizeof value);
    return value;
}

inline u64 rotate(u64 value, int shift)
{
    return shift == 0 ? value : (value >> shift) | (value << (64 - shift));
}

inline u64 shiftMix(u64 value) { return value ^ (value >> 47); }

inline u64 byteSwap(u64 value) { return __builtin_bswap64(value); }

inline u64 hash16(u64 u, u64 v, u64 mul)
{
    u64 a = (u ^ v) * mul;
    a ^= a >> 47;
    u64 b = (v ^ a) * mul;
    b ^= b >> 47;
    return b * mul;
}

inline u64 hash16(u64 u, u64 v) { return hash16(u, v, 0x9ddfea08eb382d69ULL); }

inline u64 hash0to16(const char* s, std::size_t length)
{
    if (length >= 8)
    {
        const u64 mul = k2 + length * 2;
        const u64 a = load64(s) + k2;
        const u64 b = load64(s + length - 8);
        const u64 c = rotate(b, 37) * mul + a;
        const u64 d = (rotate(a, 25) + b) * mul;
        return hash16(c, d, mul);
    }
    if (length >= 4)
    {
        const u64 mul = k2 + length * 2;
        const u64 a = load32(s);
        return hash16(length + (a << 3), load32(s + length - 4), mul);
    }
    if (length > 0)
    {
        const auto a = static_cast<std::uint8_t>(s[0]);
        const auto b = static_cast<std::uint8_t>(s[length >> 1]);
        const auto c = static_cast<std::uint8_t>(s[length - 1]);
        const u32 y = static_cast<u32>(a) + (static_cast<u32>(b) << 8);
        const u32 z = static_cast<u32>(length) + (static_cast<u32>(c) << 2);
        return shiftMix(y * k2 ^ z * k0) * k2;
    }
    return k2;
}

inline u64 hash17to32(const char* s, std::size_t length)
{
    const u64 mul = k2 + length * 2;
    const u64 a = load64(s) * k1;
    const u64 b = load64(s + 8);
    const u64 c = load64(s + length - 8) * mul;
    const u64 d = load64(s + length - 16) * k2;
    return hash16(rotate(a + b, 43) + rotate(c, 30) + d, a + rotate(b + k2, 18) + c, mul);
}

inline u64 hash33to64(const char* s, std::size_t length)
{
    const u64 mul = k2 + length * 2;
    u64 a = load64(s) * k2;
    u64 b = load64(s + 8);
    const u64 c = load64(s + length - 24);
    const u64 d = load64(s + length - 32);
    const u64 e = load64(s + 16) * k2;
    const u64 f = load64(s + 24) * 9;
    const u64 g = load64(s + length - 8);
    const u64 h = load64(s + length - 16) * mul;
    const u64 u = rotate(a + g, 43) + (rotate(b, 30) + c) * 9;
    const u64 v = ((a + g) ^ d) + f + 1;
    const u64 w = byteSwap((u + v) * mul) + h;
    const u64 x = rotate(e + f, 42) + c;
    const u64 y = (byteSwap((v + w) * mul) + g) * mul;
    const u64 z = e + f + c;
    a = byteSwap((x + z) * mul + y) + b;
    b = shiftMix((z + a) * mul + d + h) * mul;
    return b + x;
}

using Pair = std::pair<u64, u64>;

/// A 16-byte hash of 32 bytes and two seeds: quick and not thorough.
inline Pair weakHash32WithSeeds(const char* s, u64 a, u64 b)
{
    const u64 w = load64(s);
    const u64 x = load64(s + 8);
    const u64 y = load64(s + 16);
    const u64 z = load64(s + 24);
    a += w;
    b = rotate(b + a + z, 21);
    const u64 c = a;
    a += x;
    a += y;
    b += rotate(a, 44);
    return {a + z, b + c};
}

/// Out of line, where it takes no registers from the short runs, which are the rule.
[[gnu::noinline]] inline u64 hashLong(const char* s, std::size_t length)
{
    // 56 bytes of running state, seeded from the end of the run.
    u64 x = load64(s + length - 40);
    u64 y = load64(s + length - 16) + load64(s + length - 56);
    u64 z = hash16(load64(s + length - 48) + length, load64(s + length - 24));
    Pair v = weakHash32WithSeeds(s + length - 64, length, z);
    Pair w = weakHash32WithSeeds(s + length - 32, y + k1, x);
    x = x * k1 + load64(s);

    for (std::size_t left = (length - 1) & ~static_cast<std::size_t>(63); left != 0; left -= 64, s += 64)
    {
        x = rotate(x + y + v.first + load64(s + 8), 37) * k1;
        y = rotate(y + v.second + load64(s + 48), 42) * k1;
        x ^= w.second;
        y += v.first + load64(s + 40);
        z = rotate(z + w.first, 33) * k1;
        v = weakHash32WithSeeds(s, v.second * k1, x + w.first);
        w = weakHash32WithSeeds(s + 32, z + w.second, y + load64(s + 16));
        std::swap(z, x);
    }
    return hash16(hash16(v.first, w.first) + shiftMix(y) * k1 + z, hash16(v.second, w.second) + x);
}
} // namespace city_hash

/// `bytes` may be null if `length` is 0. Reads nothing outside the run and needs no alignment.
inline std::uint64_t CityHash64(const char* bytes, std::size_t length)
{
    if (length <= 16)
        return city_hash::hash0to16(bytes, length);
    if (length <= 32)
        return city_hash::hash17to32(bytes, length);
    if (length <= 64)
        return city_hash::hash33to64(bytes, length);
    return city_hash::hashLong(bytes, length);
}
