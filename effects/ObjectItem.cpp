#include "effects/ObjectItem.h"

#include "effects/CityHash.h"

#include <cstring>

namespace
{
/// The two digits of each byte, one after the other.
struct HexDigits
{
    constexpr HexDigits()
    {
        constexpr char digits[] = "0123456789abcdef";
        for (std::size_t byte = 0; byte < 256; ++byte)
        {
            text[2 * byte] = digits[byte >> 4];
            text[2 * byte + 1] = digits[byte & 15];
        }
    }
    char text[512] = {};
};
constexpr HexDigits hexDigits;

struct DisplayNameRow
{
    const char* defaultName;
    const char* shownAs;
};

/// The header for authors of effects has the same; tests/sdk/Header_test.cpp compares the two.
constexpr DisplayNameRow displayNames[] = {
    {"Vortan Sheets Object", "Sheets"},
    {"Vortan Route Object", "Routes"}, // Kept: the singular name is shown in the plural.
    {"Vortan GEO Object", "GEO"},
    {"Vortan Solids Object", "Solids"},
    {"Vortan Copies Object", "Copies"},
    {"Vortan Cutter Object", "Cutter"},
    {"Vortan Round Zone", "Round Zone"},
    {"Vortan Jitter Effector", "Jitter"},
    {"Vortan Enclosure", "Enclosure"},
    {"Vortan Placement", "Placement"},
    {"Vortan Tint Table", "Tint Table"},
    {"Vortan Dimmer Effector", "Dimmer Effector"},
    {"Vortan Pulse Effector", "Pulse Effector"},
    {"Vortan Dots Renderer", "Dots"},
    {"Vortan Strokes Renderer", "Strokes"},
    {"Vortan Tiling Renderer", "Tiling"}, // Kept: its match name says "Tiles".
    {"Vortan Rays Renderer", "Rays"},
    {"Vortan Panes Renderer", "Panes"},
    {"Vortan Elder Renderer", "Elder"},
};

std::uint64_t hashText(const std::string& text) { return CityHash64(text.data(), text.size()); }

/// The same for texts that nearly always have this length.
std::uint64_t hashUuid(const std::string& text)
{
    return text.size() == UUID_TEXT_LENGTH ? CityHash64(text.data(), UUID_TEXT_LENGTH) : hashText(text);
}
} // namespace

VN_UUID ZeroUUID() { return VN_UUID{}; }

VN_UUIDStr GetUUIDStr(VN_UUID uuid)
{
    VN_UUIDStr result;
    char* out = result.text;
    for (std::size_t i = 0; i < uuid.bytes.size(); ++i)
    {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            *out++ = '-';
        std::memcpy(out, hexDigits.text + std::size_t{2} * uuid.bytes[i], 2);
        out += 2;
    }
    *out = '\0';
    return result;
}

std::uint64_t CombineHash(std::uint64_t hash, std::uint64_t value)
{
    return hash ^ (value + 0x9e3779b9ULL + (hash << 6) + (hash >> 2));
}

std::uint64_t CalcItemsHash(std::uint64_t seed, const std::vector<ObjectItem>& items)
{
    std::uint64_t hash = seed;
    for (const ObjectItem& item : items)
    {
        const std::uint64_t uuid = hashUuid(item.uuid);
        const std::uint64_t name = hashText(item.name);
        hash = CombineHash(hash, uuid);
        hash = CombineHash(hash, name);
        hash = CombineHash(hash, SignExtend(item.group));
        hash = CombineHash(hash, SignExtend(item.active));
    }
    return hash;
}

std::string GetItemDisplayString(std::string name)
{
    for (const DisplayNameRow& row : displayNames)
    {
        const std::string defaultName = row.defaultName;
        if (name.compare(0, defaultName.size(), defaultName) == 0)
            name.replace(0, defaultName.size(), row.shownAs);
    }
    return name;
}
