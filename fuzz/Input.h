#pragma once
// What a fuzzed program is: one function over bytes of any kind, which reads from them what to do and checks
// what came of it. libFuzzer calls it with bytes that it makes up; Replay.cpp with those that are kept in
// corpus/.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// The function that each program defines. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace standin
{
/// Decisions and values out of the bytes. Past their end come zeros.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : bytes(data), left(size) {}

    bool IsUsedUp() const { return left == 0; }

    std::uint8_t Byte()
    {
        if (left == 0)
            return 0;
        --left;
        return *bytes++;
    }

    /// From 0 to `count` - 1.
    int Below(int count) { return Byte() % count; }

    std::int16_t Short()
    {
        const unsigned low = Byte();
        return static_cast<std::int16_t>(low | static_cast<unsigned>(Byte()) << 8);
    }

    /// One byte says how many follow; no more than `longest` are taken.
    std::string Text(std::size_t longest) { return take(std::min<std::size_t>(Byte(), longest)); }

    std::string Rest() { return take(left); }

private:
    std::string take(std::size_t count)
    {
        const std::size_t taken = std::min(count, left);
        std::string text(reinterpret_cast<const char*>(bytes), taken);
        bytes += taken;
        left -= taken;
        return text;
    }

    const std::uint8_t* bytes;
    std::size_t left;
};

/// What is found ends the program, so that the fuzzer keeps the bytes that led to it.
[[noreturn]] inline void Found(const std::string& sentence)
{
    (void)std::fprintf(stderr, "FOUND: %s\n", sentence.c_str());
    std::abort();
}

/// `sentence` says what should be so.
inline void Require(bool holds, const char* sentence)
{
    if (!holds)
        Found(sentence);
}
} // namespace standin
