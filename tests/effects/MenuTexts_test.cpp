#include "effects/EffectCatalogue.h"
#include "effects/NameBuffer.h"
#include "standin/host/family/Family.h"
#include "tests/effects/CatalogueTest.h"

#include <cstring>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
// The texts of a menu.

TEST_F(Catalogue, MenuTextsFollowTheKeys)
{
    Install({{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}, {13, "QVK VORTSRC GEO"}});
    EXPECT_THAT(Popup({13, 11, 12}, src_match_name_array, src_display_array),
                ElementsAre("GEO", "Sheets", "Routes"));
    EXPECT_THAT(host.CallTexts(),
                ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                            "Effect 1 AEGP_GetEffectMatchName(13) -> \"QVK VORTSRC GEO\"",
                            "Effect 1 AEGP_GetEffectMatchName(11) -> \"QVK VORTSRC Lamps\"",
                            "Effect 1 AEGP_GetEffectMatchName(12) -> \"QVK VORTSRC Routes\"",
                            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(Catalogue, NoKeysGiveNoTextsAndNoCall)
{
    EXPECT_THAT(Popup({}, src_match_name_array, src_display_array), IsEmpty());
    EXPECT_THAT(host.CallTexts(), IsEmpty());
}

TEST_F(Catalogue, UnreadableNameGivesNotFoundFromThere)
{
    Install({{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}, {13, "QVK VORTSRC GEO"}});
    host.Faults().FailFunction("AEGP_GetEffectMatchName", 2);
    EXPECT_THAT(Popup({11, 12, 13}, src_match_name_array, src_display_array),
                ElementsAre("Sheets", "Not Found", "Not Found"));
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetEffectMatchName(11) -> \"QVK VORTSRC Lamps\"",
                                        "Effect 1 AEGP_GetEffectMatchName(12) = 1"));
}

TEST_F(Catalogue, OnlyASecondRowInstalledIsNotFound)
{
    Install({{12, "QVK VORTSRC Routes"}});
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(12));
    EXPECT_THAT(Popup(keys, src_match_name_array, src_display_array), ElementsAre("Not Found"));
}

TEST_F(Catalogue, PartOfAFamilyFindsOnlyEarlyRows)
{
    Install({{15, "QVK VORTEFF Tint Table"}, {11, "QVK VORTEFF Round Zone"}, {13, "QVK VORTEFF Enclosure"}});
    EXPECT_EQ(Find("QVK VORTEFF"), 0);
    EXPECT_THAT(Popup(keys, eff_match_name_array, eff_display_array),
                ElementsAre("Not Found", "Round Zone", "Enclosure"));
}

TEST_F(Catalogue, LongerNamePassesPrefixFailsTable)
{
    Install({{11, "QVK VORTSRC Lamps Extra"}});
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(11));
    EXPECT_THAT(Popup(keys, src_match_name_array, src_display_array), ElementsAre("Not Found"));
}

TEST_F(Catalogue, MoreEffectsThanRowsEndTheSearch)
{
    Install({{11, "QVK VORTREN Panes"}});
    for (int i = 0; i < 9; ++i)
        Install({{20 + i, "QVK VORTREN Extra " + std::to_string(i)}});
    EXPECT_EQ(Find("QVK VORTREN"), 0);
    EXPECT_THAT(Popup(keys, ren_match_name_array, ren_display_array),
                ElementsAre("Panes", "Not Found", "Not Found", "Not Found", "Not Found", "Not Found",
                            "Not Found", "Not Found", "Not Found", "Not Found"));
}

// The whole family.

TEST_F(Catalogue, WholeFamilyGivesEveryMenuItsTexts)
{
    InstallFamily(host);
    std::vector<int> effectors;
    std::vector<int> geometry;
    std::vector<int> renderers;
    InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EXPECT_EQ(FindEffectKeys(suites, effectors, EFFECTOR_PREFIX), 0);
            EXPECT_EQ(FindEffectKeys(suites, geometry, GEOMETRY_PREFIX), 0);
            EXPECT_EQ(FindEffectKeys(suites, renderers, RENDERER_PREFIX), 0);
        });
    EXPECT_THAT(Popup(geometry, src_match_name_array, src_display_array),
                ElementsAre("Sheets", "Routes", "GEO", "Solids", "Copies", "Cutter"));
    EXPECT_THAT(Popup(effectors, eff_match_name_array, eff_display_array),
                ElementsAre("Round Zone", "Jitter", "Enclosure", "Placement", "Tint Table", "Dimmer Effector",
                            "Pulse Effector"));
    EXPECT_THAT(Popup(renderers, ren_match_name_array, ren_display_array),
                ElementsAre("Dots", "Strokes", "Tiling", "Rays", "Panes"));
    EXPECT_EQ(KeyOf(MAIN_MATCH_NAME), host.FindInstalled("QVK VORTAN TWO")->key);
}

TEST_F(Catalogue, NoneInstalledGivesEmptyMenus)
{
    InstallOutsiders(host);
    EXPECT_EQ(Find("QVK VORTEFF"), 0);
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_EQ(Find("QVK VORTREN"), 0);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
}

TEST_F(Catalogue, LegacyEffectIsNotAmongTheRenderers)
{
    Install({{11, "QVK VORTAN"}, {12, "QVK VORTREN Dots"}});
    EXPECT_EQ(Find("QVK VORTREN"), 0);
    EXPECT_THAT(keys, ElementsAre(12));
}

TEST(NameBuffer, IsEmptyAndAlwaysTerminated)
{
    NameBuffer name;
    EXPECT_STREQ(name.text, "");
    std::memset(name.text, 'x', 128);
    EXPECT_EQ(std::string(name.text, sizeof(name.text)), std::string(128, 'x') + '\0');
}
} // namespace standin
