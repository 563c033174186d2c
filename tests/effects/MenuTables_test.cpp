#include "effects/EffectCatalogue.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
using Rows = std::vector<std::pair<std::string, std::string>>;

/// The rows in front of the null entry that ends both tables.
Rows rowsOf(const char** matchNames, const char** displayNames)
{
    Rows rows;
    int row = 0;
    for (; matchNames[row] != nullptr; ++row)
        rows.emplace_back(matchNames[row], displayNames[row]);
    EXPECT_EQ(displayNames[row], nullptr);
    return rows;
}
} // namespace

TEST(MenuTables, NameTheGeometryObjects)
{
    EXPECT_EQ(rowsOf(src_match_name_array, src_display_array), (Rows{{"QVK VORTSRC Lamps", "Sheets"},
                                                                     {"QVK VORTSRC Routes", "Routes"},
                                                                     {"QVK VORTSRC GEO", "GEO"},
                                                                     {"QVK VORTSRC Solids", "Solids"},
                                                                     {"QVK VORTSRC Copies", "Copies"},
                                                                     {"QVK VORTSRC Scanner", "Cutter"}}));
}

TEST(MenuTables, NameTheEffectors)
{
    EXPECT_EQ(rowsOf(eff_match_name_array, eff_display_array),
              (Rows{{"QVK VORTEFF Round Zone", "Round Zone"},
                    {"QVK VORTEFF Jitter", "Jitter"},
                    {"QVK VORTEFF Enclosure", "Enclosure"},
                    {"QVK VORTEFF Placement", "Placement"},
                    {"QVK VORTEFF Tint Table", "Tint Table"},
                    {"QVK VORTEFF Dimmer Effector", "Dimmer Effector"},
                    {"QVK VORTEFF Pulse Effector", "Pulse Effector"}}));
}

TEST(MenuTables, NameTheRenderersAndLastTheLegacyEffect)
{
    EXPECT_EQ(rowsOf(ren_match_name_array, ren_display_array), (Rows{{"QVK VORTREN Dots", "Dots"},
                                                                     {"QVK VORTREN Strokes", "Strokes"},
                                                                     {"QVK VORTREN Tiles", "Tiling"},
                                                                     {"QVK VORTREN Rays", "Rays"},
                                                                     {"QVK VORTREN Panes", "Panes"},
                                                                     {"QVK VORTAN", "Elder"}}));
}

TEST(MenuTables, FamiliesHaveTheseMatchNames)
{
    EXPECT_STREQ(GEOMETRY_PREFIX, "QVK VORTSRC");
    EXPECT_STREQ(EFFECTOR_PREFIX, "QVK VORTEFF");
    EXPECT_STREQ(RENDERER_PREFIX, "QVK VORTREN");
    EXPECT_STREQ(MAIN_MATCH_NAME, "QVK VORTAN TWO");
    EXPECT_STREQ(LEGACY_MATCH_NAME, "QVK VORTAN");
    EXPECT_STREQ(KIT_MATCH_NAME, "QVK VORTKIT");
}

TEST(MenuTables, PrefixMatchesWholeAndByCase)
{
    EXPECT_TRUE(StartsWith("QVK VORTAN TWO", "QVK VORTAN"));
    EXPECT_TRUE(StartsWith("QVK VORTAN", "QVK VORTAN"));
    EXPECT_TRUE(StartsWith("QVK VORTANGLE", "QVK VORTAN"));
    EXPECT_FALSE(StartsWith("QVK VORTA", "QVK VORTAN"));
    EXPECT_FALSE(StartsWith("QVK VORTAN", "QVK VORTAN TWO"));
    EXPECT_FALSE(StartsWith("qvk vortan", "QVK VORTAN"));
    EXPECT_FALSE(StartsWith("", "QVK VORTAN"));
}

TEST(DisplayName, IsTheTextOfTheFirstEqualRow)
{
    const char* matchNames[] = {"A", "B", "B", nullptr};
    const char* displayNames[] = {"first", "second", "third", nullptr};
    EXPECT_EQ(GetDisplayName("A", 3, matchNames, displayNames), "first");
    EXPECT_EQ(GetDisplayName("B", 3, matchNames, displayNames), "second");
    EXPECT_EQ(GetDisplayName("B", 2, matchNames, displayNames), "second");
}

TEST(DisplayName, IsNotFoundPastTheCountedRows)
{
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Routes", 1, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Routes", 2, src_match_name_array, src_display_array), "Routes");
}

TEST(DisplayName, IsNotFoundForNoRows)
{
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Lamps", 0, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Lamps", -1, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Lamps", 0, nullptr, nullptr), "Not Found");
}

TEST(DisplayName, IsNotFoundUnlessNamesAreEqual)
{
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Lamps 2", 6, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Lamp", 6, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("qvk vortsrc lamps", 6, src_match_name_array, src_display_array), "Not Found");
    EXPECT_EQ(GetDisplayName("", 6, src_match_name_array, src_display_array), "Not Found");
}

TEST(DisplayName, IsNotFoundBehindTheTablesEnd)
{
    EXPECT_EQ(GetDisplayName("QVK VORTSRC Extra", 1000, src_match_name_array, src_display_array),
              "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTEFF Extra", 1000, eff_match_name_array, eff_display_array),
              "Not Found");
    EXPECT_EQ(GetDisplayName("QVK VORTREN Extra", 1000, ren_match_name_array, ren_display_array),
              "Not Found");
}

TEST(DisplayName, OfTheLegacyEffectIsElder)
{
    EXPECT_EQ(GetDisplayName("QVK VORTAN", 6, ren_match_name_array, ren_display_array), "Elder");
    EXPECT_EQ(GetDisplayName("QVK VORTAN", 5, ren_match_name_array, ren_display_array), "Not Found");
}
