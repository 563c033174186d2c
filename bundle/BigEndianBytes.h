#pragma once
// A run of bytes that grows at its end, numbers in big-endian order: the form of a resource file.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class BigEndianBytes
{
public:
    const std::vector<std::uint8_t>& Bytes() const { return bytes; }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes.size()); }

    void Append8(std::uint32_t value);
    void Append16(std::uint32_t value);
    void Append32(std::uint32_t value);
    void AppendZeros(std::size_t count);
    void Append(const std::vector<std::uint8_t>& more);

    /// A code of exactly four characters, as in resource types and property keys.
    void AppendCode(const char (&code)[5]);

    /// A length byte followed by the text. Throws std::length_error beyond 255 characters.
    void AppendPascalString(const std::string& text);

private:
    std::vector<std::uint8_t> bytes;
};
