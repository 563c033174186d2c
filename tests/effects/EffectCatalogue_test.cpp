#include "effects/EffectCatalogue.h"

#include "tests/effects/CatalogueTest.h"
#include "tests/support/PatchedBasic.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
// Finding the effects of a family.

TEST_F(Catalogue, FindsAPrefixInTheHostsOrder)
{
    Install({{31, "QVK VORTSRC Solids"}, {11, "ADBE Fill"}, {21, "QVK VORTSRC Lamps"}});
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(31, 21));
    EXPECT_THAT(host.CallTexts(),
                ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                            "Effect 1 AEGP_GetNumInstalledEffects() -> 3",
                            "Effect 1 AEGP_GetNextInstalledEffect(0) -> 31",
                            "Effect 1 AEGP_GetEffectMatchName(31) -> \"QVK VORTSRC Solids\"",
                            "Effect 1 AEGP_GetNextInstalledEffect(31) -> 11",
                            "Effect 1 AEGP_GetEffectMatchName(11) -> \"ADBE Fill\"",
                            "Effect 1 AEGP_GetNextInstalledEffect(11) -> 21",
                            "Effect 1 AEGP_GetEffectMatchName(21) -> \"QVK VORTSRC Lamps\"",
                            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(Catalogue, AppendsToTheKeysThatAreThereAlready)
{
    Install({{11, "QVK VORTREN Dots"}});
    keys = {5, 11};
    EXPECT_EQ(Find("QVK VORTREN"), 0);
    EXPECT_THAT(keys, ElementsAre(5, 11, 11));
}

TEST_F(Catalogue, MatchesAPrefixByCaseIgnoringWordBoundaries)
{
    Install({{11, "QVK VORTAN"},
             {12, "QVK VORTAN TWO"},
             {13, "QVK VORTANGLE"},
             {14, "qvk vortan"},
             {15, "QVK VORTA"},
             {16, "My QVK VORTAN"}});
    EXPECT_EQ(Find("QVK VORTAN"), 0);
    EXPECT_THAT(keys, ElementsAre(11, 12, 13));
}

TEST_F(Catalogue, NothingInstalledCostsTheCountAndNoWalk)
{
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() -> 0"));
}

TEST_F(Catalogue, SearchEndsWithTheErrorOfTheCount)
{
    Install({{11, "QVK VORTSRC Lamps"}});
    host.Faults().FailFunction("AEGP_GetNumInstalledEffects", 1, FaultLength::once, 4);
    EXPECT_EQ(Find("QVK VORTSRC"), 4);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() = 4"));
}

TEST_F(Catalogue, WalkNeverStepsPastTheLastEffect)
{
    host.Options().walkEnd = WalkEnd::isError;
    Install({{11, "ADBE Fill"}, {12, "QVK VORTSRC Lamps"}});
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(12));
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
}

TEST_F(Catalogue, FailedStepRepeatsTheLastKey)
{
    Install(
        {{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}, {13, "ADBE Fill"}, {14, "QVK VORTSRC GEO"}});
    host.Faults().FailFunction("AEGP_GetNextInstalledEffect", 3, FaultLength::once, 4);
    EXPECT_EQ(Find("QVK VORTSRC"), 4);
    EXPECT_THAT(keys, ElementsAre(11, 12, 12, 12));
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() -> 4",
                                        "Effect 1 AEGP_GetNextInstalledEffect(0) -> 11",
                                        "Effect 1 AEGP_GetEffectMatchName(11) -> \"QVK VORTSRC Lamps\"",
                                        "Effect 1 AEGP_GetNextInstalledEffect(11) -> 12",
                                        "Effect 1 AEGP_GetEffectMatchName(12) -> \"QVK VORTSRC Routes\"",
                                        "Effect 1 AEGP_GetNextInstalledEffect(12) = 4",
                                        "Effect 1 AEGP_GetEffectMatchName(12) -> \"QVK VORTSRC Routes\"",
                                        "Effect 1 AEGP_GetEffectMatchName(12) -> \"QVK VORTSRC Routes\""));
}

TEST_F(Catalogue, FailedStepIgnoresTheKeyTheHostNames)
{
    Install({{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}, {13, "QVK VORTSRC GEO"}});
    static int steps;
    steps = 0;
    PatchedBasic<AEGP_EffectSuite1> basic(host,
                                          AnswersWithError<&AEGP_EffectSuite1::AEGP_GetNextInstalledEffect>(
                                              4, [] { return ++steps % 2 == 0; }));
    int key = -1;
    const HookResult result = host.RunInHook(
        [&]
        {
            EXPECT_EQ(FindEffectKeys(AEGP_SuiteHandler(basic.Basic()), keys, "QVK VORTSRC"), 4);
            key = GetEffectKeyFromMatchName(basic.Basic(), "QVK VORTSRC Routes");
        });
    EXPECT_EQ(result.thrown, "");
    EXPECT_THAT(keys, ElementsAre(11, 11, 11));
    EXPECT_EQ(key, 0);
}

TEST_F(Catalogue, FailedFirstStepFindsNothing)
{
    host.Expect("unknown-key", "AEGP_GetEffectMatchName", "the walk goes on at the key 0");
    Install({{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}});
    host.Faults().FailFunction("AEGP_GetNextInstalledEffect", 1, FaultLength::once, 4);
    EXPECT_EQ(Find("QVK VORTSRC"), 4);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() -> 2",
                                        "Effect 1 AEGP_GetNextInstalledEffect(0) = 4",
                                        "Effect 1 AEGP_GetEffectMatchName(0) = 3",
                                        "Effect 1 AEGP_GetEffectMatchName(0) = 3"));
}

TEST_F(Catalogue, UnreadableNameIsSkippedWithoutError)
{
    Install({{11, "QVK VORTSRC Lamps"}, {12, "QVK VORTSRC Routes"}, {13, "QVK VORTSRC GEO"}});
    host.Faults().FailFunction("AEGP_GetEffectMatchName", 2);
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(11, 13));
}

TEST_F(Catalogue, UnterminatedNameOf128CharactersIsReadSafely)
{
    InstalledEffect endless;
    endless.key = 11;
    endless.matchName = "QVK VORTSRC " + std::string(116, 'x');
    endless.matchNameEnding = InstalledEffect::MatchNameEnding::notTerminated;
    (void)host.Install(endless);
    EXPECT_EQ(Find("QVK VORTSRC"), 0);
    EXPECT_THAT(keys, ElementsAre(11));
    EXPECT_THAT(Popup(keys, src_match_name_array, src_display_array), ElementsAre("Not Found"));
}

// Finding one effect by its name.

TEST_F(Catalogue, KeyIsThatOfTheFirstMatchingPrefix)
{
    Install({{11, "ADBE Fill"}, {12, "QVK VORTAN TWO"}, {13, "QVK VORTAN TWO"}});
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 12);
    EXPECT_THAT(host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                              "Effect 1 AEGP_GetNumInstalledEffects() -> 3",
                                              "Effect 1 AEGP_GetNextInstalledEffect(0) -> 11",
                                              "Effect 1 AEGP_GetEffectMatchName(11) -> \"ADBE Fill\"",
                                              "Effect 1 AEGP_GetNextInstalledEffect(11) -> 12",
                                              "Effect 1 AEGP_GetEffectMatchName(12) -> \"QVK VORTAN TWO\"",
                                              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(Catalogue, LegacyNameFindsAnEarlierMainEffect)
{
    Install({{12, "QVK VORTAN TWO"}, {11, "QVK VORTAN"}});
    EXPECT_EQ(KeyOf("QVK VORTAN"), 12);
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 12);
}

TEST_F(Catalogue, LegacyNameFindsAnEarlierLegacyEffect)
{
    Install({{11, "QVK VORTAN"}, {12, "QVK VORTAN TWO"}});
    EXPECT_EQ(KeyOf("QVK VORTAN"), 11);
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 12);
}

TEST_F(Catalogue, NameThatNoEffectHasGivesNoKey)
{
    Install({{11, "QVK VORTAN"}, {12, "ADBE Fill"}});
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
}

TEST_F(Catalogue, NothingInstalledGivesNoKey)
{
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() -> 0"));
}

TEST_F(Catalogue, CountThatFailsGivesNoKey)
{
    Install({{12, "QVK VORTAN TWO"}});
    host.Faults().FailFunction("AEGP_GetNumInstalledEffects");
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
}

TEST_F(Catalogue, FailedStepBeforeTheEffectGivesNoKey)
{
    Install({{11, "ADBE Fill"}, {12, "QVK VORTAN TWO"}});
    host.Faults().FailFunction("AEGP_GetNextInstalledEffect", 2);
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 0);
    EXPECT_THAT(CallList(), ElementsAre("Effect 1 AEGP_GetNumInstalledEffects() -> 2",
                                        "Effect 1 AEGP_GetNextInstalledEffect(0) -> 11",
                                        "Effect 1 AEGP_GetEffectMatchName(11) -> \"ADBE Fill\"",
                                        "Effect 1 AEGP_GetNextInstalledEffect(11) = 1",
                                        "Effect 1 AEGP_GetEffectMatchName(11) -> \"ADBE Fill\""));
}

TEST_F(Catalogue, UnreadableNameIsReadAgainAfterFailedStep)
{
    Install({{12, "QVK VORTAN TWO"}, {11, "ADBE Fill"}});
    host.Faults().FailFunction("AEGP_GetEffectMatchName", 1);
    host.Faults().FailFunction("AEGP_GetNextInstalledEffect", 2);
    EXPECT_EQ(KeyOf("QVK VORTAN TWO"), 12);
}
} // namespace standin
