#include "tree/NameText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace
{
// A byte b that is not text travels as the character `escapeBase` + b, in the second private plane.
// A name that really holds such a character has its four bytes escaped one by one, so that no two
// names share a text.
constexpr std::uint32_t escapeBase = 0x10fe00;

/// The first byte of an escape's UTF-8, which few other characters begin with.
constexpr int leadOfEscapes = 0xf4;

constexpr int longestShown = 4000;

// A word of 65536 characters or more makes the editor lose count of its own text.
constexpr int longestEdited = 32000;

bool isEscape(std::uint32_t character) { return character >= escapeBase && character < escapeBase + 256; }

void appendUtf8(std::string& out, std::uint32_t character)
{
    const auto append = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
    if (character < 0x80)
        return append(character);
    if (character < 0x800)
        append(0xc0 | character >> 6);
    else
    {
        if (character < 0x10000)
            append(0xe0 | character >> 12);
        else
        {
            append(0xf0 | character >> 18);
            append(0x80 | (character >> 12 & 0x3f));
        }
        append(0x80 | (character >> 6 & 0x3f));
    }
    append(0x80 | (character & 0x3f));
}

std::size_t sequenceLength(std::uint8_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead < 0xe0)
        return 2;
    if (lead >= 0xe0 && lead < 0xf0)
        return 3;
    return lead >= 0xf0 && lead < 0xf5 ? 4 : 0;
}

/// The length of the valid character at `at`, or 0 if what stands there has to be escaped.
std::size_t validCharacterAt(const std::string& bytes, std::size_t at)
{
    const auto byteAt = [&bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::size_t length = sequenceLength(byteAt(at));
    if (length < 2)
        return byteAt(at) == 0 ? 0 : length;
    if (at + length > bytes.size())
        return 0;

    std::uint32_t character = byteAt(at) & (0xffu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i)
    {
        if ((byteAt(at + i) & 0xc0) != 0x80)
            return 0;
        character = character << 6 | (byteAt(at + i) & 0x3fu);
    }
    const std::uint32_t smallest = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    const bool isSurrogate = character >= 0xd800 && character < 0xe000;
    return character < smallest || character > 0x10ffff || isSurrogate || isEscape(character) ? 0 : length;
}

juce::String fromUtf8(const std::string& utf8)
{
    return juce::String(juce::CharPointer_UTF8(utf8.data()),
                        juce::CharPointer_UTF8(utf8.data() + utf8.size()));
}

/// `text` with each character replaced by what `replace` makes of it, cut after `longest` characters.
template <class Replace>
juce::String replaced(const juce::String& text, int longest, Replace replace)
{
    std::string utf8;
    auto at = text.getCharPointer();
    for (int i = 0; i < longest && !at.isEmpty(); ++i)
        appendUtf8(utf8, replace(static_cast<std::uint32_t>(at.getAndAdvance())));
    return fromUtf8(utf8);
}
} // namespace

juce::String TextFromBytes(const std::string& bytes)
{
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return c > 0; }))
        return fromUtf8(bytes);
    std::string utf8;
    utf8.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();)
    {
        const std::size_t length = validCharacterAt(bytes, at);
        if (length == 0)
            appendUtf8(utf8, escapeBase + static_cast<std::uint8_t>(bytes[at++]));
        else
            utf8.append(bytes, at, length);
        at += length;
    }
    return fromUtf8(utf8);
}

std::string BytesFromText(const juce::String& text)
{
    const char* const utf8 = text.toRawUTF8();
    const std::size_t length = text.getNumBytesAsUTF8();
    if (std::memchr(utf8, leadOfEscapes, length) == nullptr)
        return {utf8, length};
    std::string bytes;
    bytes.reserve(length);
    for (auto at = text.getCharPointer(); !at.isEmpty();)
    {
        const auto character =
            static_cast<std::uint32_t>(at.getAndAdvance()); // NOLINT: no char, whatever its sign.
        if (isEscape(character))
            bytes += static_cast<char>(character - escapeBase);
        else
            appendUtf8(bytes, character);
    }
    return bytes;
}

juce::String ShownText(const juce::String& text)
{
    return replaced(text, longestShown, [](std::uint32_t c) { return isEscape(c) ? 0xfffdu : c; });
}

juce::String EditableText(const juce::String& text)
{
    return replaced(text, longestEdited, [](std::uint32_t c) { return c == '\r' || c == '\n' ? ' ' : c; });
}
