#include "effects/ObjectItem.h"

#include "effects/CityHash.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr const char* uuidA = "00000000-0000-0000-0000-00000000000a";
constexpr const char* uuidB = "00000000-0000-0000-0000-00000000000b";

ObjectItem item(const char* uuid, const char* name, std::int32_t group, std::int32_t active,
                const char* tag = "")
{
    ObjectItem result;
    result.uuid = uuid;
    result.name = name;
    result.group = group;
    result.active = active;
    result.tag = tag;
    return result;
}

/// The fold written out a second time, step by step.
std::uint64_t expectedStep(std::uint64_t h, std::uint64_t v)
{
    return h ^ (v + std::uint64_t{0x9e3779b9} + (h << 6) + (h >> 2));
}

std::uint64_t city(const std::string& text) { return CityHash64(text.data(), text.size()); }
} // namespace

TEST(UuidText, OfZeroIsTheZeroIdentityText)
{
    EXPECT_STREQ(GetUUIDStr(ZeroUUID()).text, "00000000-0000-0000-0000-000000000000");
    EXPECT_STREQ(GetUUIDStr(ZeroUUID()).text, ZERO_UUID_TEXT);
}

TEST(UuidText, WritesBytesInMemoryOrderInLowerCase)
{
    const VN_UUID uuid = {
        {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0x10, 0x32, 0x54, 0x76, 0x98, 0xBA, 0xDC, 0xFE}};
    EXPECT_STREQ(GetUUIDStr(uuid).text, "01234567-89ab-cdef-1032-547698badcfe");
}

TEST(UuidText, Is36CharactersAndATerminator)
{
    EXPECT_EQ(sizeof(VN_UUIDStr), 37u);
    const VN_UUID full = {{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}};
    EXPECT_EQ(std::string(GetUUIDStr(full).text).size(), 36u);
    EXPECT_EQ(GetUUIDStr(full).text[36], '\0');
}

TEST(ObjectTypes, HaveTheFixedValuesOfTheToolbar)
{
    EXPECT_EQ(VN_OBJECT_GEOMETRY, 1);
    EXPECT_EQ(VN_OBJECT_EFFECTOR, 2);
    EXPECT_EQ(VN_OBJECT_RENDERER, 3);
    EXPECT_EQ(VN_OBJECT_VORTAN, 4);
}

TEST(ItemsHash, OfAnEmptyListIsTheSeed)
{
    EXPECT_EQ(CalcItemsHash(0, {}), 0u);
    EXPECT_EQ(CalcItemsHash(42, {}), 42u);
    EXPECT_EQ(CalcItemsHash(~0ULL, {}), ~0ULL);
}

TEST(ItemsHash, FoldsUuidNameGroupActiveInOrder)
{
    const std::uint64_t seed = 0x123456789abcdefULL;
    std::uint64_t expected = seed;
    expected = expectedStep(expected, city(uuidA));
    expected = expectedStep(expected, city("Sheets"));
    expected = expectedStep(expected, 3);
    expected = expectedStep(expected, 1);
    expected = expectedStep(expected, city(uuidB));
    expected = expectedStep(expected, city("Dots"));
    expected = expectedStep(expected, 0xffffffffffffffffULL);
    expected = expectedStep(expected, 0);
    EXPECT_EQ(CalcItemsHash(seed, {item(uuidA, "Sheets", 3, 1), item(uuidB, "Dots", -1, 0)}), expected);
}

TEST(ItemsHash, WidensGroupAndActiveWithTheirSign)
{
    const auto expected = [](std::uint64_t group, std::uint64_t active)
    {
        const std::uint64_t texts = expectedStep(expectedStep(1, city(uuidA)), city("n"));
        return expectedStep(expectedStep(texts, group), active);
    };
    EXPECT_EQ(CalcItemsHash(1, {item(uuidA, "n", 0, -1)}), expected(0, 0xffffffffffffffffULL));
    EXPECT_EQ(CalcItemsHash(1, {item(uuidA, "n", -2, 0)}), expected(0xfffffffffffffffeULL, 0));
}

TEST(ItemsHash, CoversTheBytesBehindAZeroByte)
{
    ObjectItem long1 = item(uuidA, "n", 0, 1);
    ObjectItem long2 = long1;
    long1.name = std::string("n\0one", 5);
    long2.name = std::string("n\0two", 5);
    EXPECT_NE(CalcItemsHash(1, {long1}), CalcItemsHash(1, {long2}));
    EXPECT_NE(CalcItemsHash(1, {long1}), CalcItemsHash(1, {item(uuidA, "n", 0, 1)}));
    ObjectItem longUuid = item(uuidA, "n", 0, 1);
    longUuid.uuid += std::string("\0x", 2);
    EXPECT_NE(CalcItemsHash(1, {longUuid}), CalcItemsHash(1, {item(uuidA, "n", 0, 1)}));
}

TEST(ItemsHash, ShiftsLogicallyAndWraps)
{
    // A seed with its top bit set tells a logical shift from an arithmetic one.
    const std::uint64_t seed = 0x8000000000000000ULL;
    EXPECT_EQ(CombineHash(seed, 0), seed ^ (0x9e3779b9ULL + 0x2000000000000000ULL));
    EXPECT_EQ(CombineHash(~0ULL, ~0ULL),
              ~0ULL ^ (~0ULL + 0x9e3779b9ULL + 0xffffffffffffffc0ULL + 0x3fffffffffffffffULL));
}

TEST(ItemsHash, DoesNotCoverTheTag)
{
    EXPECT_EQ(CalcItemsHash(1, {item(uuidA, "n", 0, 1, "QVK VORTSRC Routes")}),
              CalcItemsHash(1, {item(uuidA, "n", 0, 1)}));
}

TEST(ItemsHash, ChangesWithEachOfTheFourFields)
{
    const std::uint64_t base = CalcItemsHash(1, {item(uuidA, "n", 0, 1)});
    EXPECT_NE(CalcItemsHash(1, {item(uuidB, "n", 0, 1)}), base);
    EXPECT_NE(CalcItemsHash(1, {item(uuidA, "m", 0, 1)}), base);
    EXPECT_NE(CalcItemsHash(1, {item(uuidA, "n", -1, 1)}), base);
    EXPECT_NE(CalcItemsHash(1, {item(uuidA, "n", 0, 0)}), base);
}

TEST(ItemsHash, ChangesWhenTwoItemsAreSwapped)
{
    const ObjectItem a = item(uuidA, "a", 0, 1);
    const ObjectItem b = item(uuidB, "b", 0, 1);
    EXPECT_NE(CalcItemsHash(0, {a, b}), CalcItemsHash(0, {b, a}));
}

TEST(ItemsHash, DependsOnAnOutsideEffect)
{
    const ObjectItem a = item(uuidA, "a", 0, 1);
    const ObjectItem outside = item(ZERO_UUID_TEXT, "Blur", -1, 1);
    EXPECT_NE(CalcItemsHash(0, {outside, a}), CalcItemsHash(0, {a}));
}

TEST(DisplayName, ShortensEachDefaultName)
{
    // Written out, so that neither the product's table nor the kit's can lead the test astray.
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"Vortan Sheets Object", "Sheets"},
        {"Vortan Route Object", "Routes"},
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
        {"Vortan Tiling Renderer", "Tiling"},
        {"Vortan Rays Renderer", "Rays"},
        {"Vortan Panes Renderer", "Panes"},
        {"Vortan Elder Renderer", "Elder"},
    };
    for (const auto& [defaultName, shown] : rows)
    {
        EXPECT_EQ(GetItemDisplayString(defaultName), shown);
        EXPECT_EQ(GetItemDisplayString(defaultName + " 2"), shown + " 2");
        EXPECT_EQ(GetItemDisplayString("My " + defaultName), "My " + defaultName);
        EXPECT_EQ(GetItemDisplayString(defaultName.substr(0, defaultName.size() - 1)),
                  defaultName.substr(0, defaultName.size() - 1));
    }
}

TEST(DisplayName, OfTheEmptyTextIsTheEmptyText) { EXPECT_EQ(GetItemDisplayString(""), ""); }

TEST(DisplayName, KnowsNoWordBoundary)
{
    EXPECT_EQ(GetItemDisplayString("Vortan Placementer"), "Placementer");
}

TEST(DisplayName, NeedsTheWholeDefaultName)
{
    EXPECT_EQ(GetItemDisplayString("Vortan Cutter"), "Vortan Cutter");
}

TEST(DisplayName, IsCaseSensitive)
{
    EXPECT_EQ(GetItemDisplayString("vortan enclosure"), "vortan enclosure");
}

TEST(DisplayName, LeavesCustomNamesAndTheMainEffectAlone)
{
    EXPECT_EQ(GetItemDisplayString("My favourite"), "My favourite");
    EXPECT_EQ(GetItemDisplayString("Vortan"), "Vortan");
}

TEST(DisplayName, KeepsBytesThatAreNotText)
{
    EXPECT_EQ(GetItemDisplayString(std::string("Vortan Enclosure\xff\x00\xfe", 19)),
              std::string("Enclosure\xff\x00\xfe", 12));
}

TEST(ItemsHash, CoversAnIdentityOfAnyLength)
{
    const std::uint64_t base = CalcItemsHash(1, {item("short", "n", 0, 1)});
    EXPECT_NE(CalcItemsHash(1, {item("other", "n", 0, 1)}), base);
    EXPECT_NE(CalcItemsHash(1, {item("", "n", 0, 1)}), base);
    EXPECT_NE(CalcItemsHash(1, {item((std::string(uuidA) + "0").c_str(), "n", 0, 1)}),
              CalcItemsHash(1, {item((std::string(uuidA) + "1").c_str(), "n", 0, 1)}));
}

TEST(Item, HasNoPartInGroupingAtFirst)
{
    const ObjectItem made;
    EXPECT_EQ(made.group, -1);
    EXPECT_EQ(made.active, 0);
    EXPECT_EQ(made.uuid + made.name + made.tag, "");
}
