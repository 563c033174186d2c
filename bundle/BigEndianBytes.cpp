#include "bundle/BigEndianBytes.h"

#include <stdexcept>

void BigEndianBytes::Append8(std::uint32_t value)
{
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
}

void BigEndianBytes::Append16(std::uint32_t value)
{
    Append8(value >> 8);
    Append8(value);
}

void BigEndianBytes::Append32(std::uint32_t value)
{
    Append16(value >> 16);
    Append16(value);
}

void BigEndianBytes::AppendZeros(std::size_t count) { bytes.insert(bytes.end(), count, 0); }

void BigEndianBytes::Append(const std::vector<std::uint8_t>& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void BigEndianBytes::AppendCode(const char (&code)[5])
{
    for (std::size_t i = 0; i < 4; ++i)
        Append8(static_cast<std::uint8_t>(code[i]));
}

void BigEndianBytes::AppendPascalString(const std::string& text)
{
    if (text.size() > 255)
        throw std::length_error("a Pascal string holds 255 characters at most");
    Append8(static_cast<std::uint32_t>(text.size()));
    for (const char character : text)
        Append8(static_cast<std::uint8_t>(character));
}
