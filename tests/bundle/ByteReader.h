#pragma once
// Walks over bytes, reading big-endian numbers. Throws std::runtime_error at the end of the bytes.

#include "tests/bundle/ResourceReader.h"

#include <stdexcept>

namespace standin
{
inline void Demand(bool isSo, const std::string& what)
{
    if (!isSo)
        throw std::runtime_error(what);
}

class ByteReader
{
public:
    explicit ByteReader(const Bytes& all, std::size_t start = 0) : bytes(all), position(start) {}

    std::size_t Position() const { return position; }
    bool IsAtEnd() const { return position == bytes.size(); }

    std::uint32_t Number(int size)
    {
        std::uint32_t value = 0;
        for (const std::uint8_t byte : Take(static_cast<std::size_t>(size)))
            value = value * 256 + byte;
        return value;
    }

    std::string Text(std::size_t length)
    {
        const Bytes taken = Take(length);
        return std::string(taken.begin(), taken.end());
    }

    std::string PascalString() { return Text(Number(1)); }

    Bytes Take(std::size_t length)
    {
        Demand(position <= bytes.size() && length <= bytes.size() - position, "the bytes end too early");
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(position);
        position += length;
        return Bytes(first, first + static_cast<std::ptrdiff_t>(length));
    }

    void TakeZeros(std::size_t length, const std::string& what)
    {
        Demand(Take(length) == Bytes(length, 0), what + " is not zero");
    }

private:
    const Bytes& bytes;
    std::size_t position;
};
} // namespace standin
