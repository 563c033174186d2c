#include "effects/EffectPlacement.h"

#include "tests/support/StackTest.h"

#include <map>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
class EffectPlacement : public StackTest
{
protected:
    int IndexOf(const std::string& label, Idle_Cmd cmd = Idle_Cmd_Apply)
    {
        return IndexOfKey(scene->KeyOf(label), cmd);
    }

    int IndexOfKey(int key, Idle_Cmd cmd)
    {
        return scene->InHook(
            [&]
            { return GetIndexOfNewEffectToLayer(scene->Id(), scene->Basic(), key, scene->Layer(), cmd); });
    }

    int ApplyAt(int key, int index)
    {
        const int err = scene->InHook(
            [&]
            { return ApplyEffectToLayerAtIndex(scene->Id(), scene->Basic(), key, scene->Layer(), index); });
        scene->LabelNewEffects();
        return err;
    }

    int ApplyFromPanel(int key)
    {
        const int err = scene->InHook(
            [&] { return ApplyEffectToLayerIdleFn(scene->Id(), scene->Basic(), key, scene->Layer()); });
        scene->LabelNewEffects();
        return err;
    }
};
} // namespace

// Working out a place.

TEST_F(EffectPlacement, ReadsCountThenNewNameThenEachEffect)
{
    Make("G M");
    ASSERT_EQ(scene->KeyOf("G"), 201);
    ASSERT_EQ(scene->KeyOf("R"), 240);
    ASSERT_EQ(scene->KeyOf("M"), 258);
    EXPECT_EQ(IndexOf("R"), 1);
    EXPECT_THAT(scene->host.CallTexts(),
                ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
                            "Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\"",
                            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect G",
                            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect G) -> 201",
                            "Effect 1 AEGP_GetEffectMatchName(201) -> \"QVK VORTSRC Lamps\"",
                            "Effect 1 AEGP_DisposeEffect(effect G)",
                            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect M",
                            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect M) -> 258",
                            "Effect 1 AEGP_GetEffectMatchName(258) -> \"QVK VORTAN TWO\"",
                            "Effect 1 AEGP_DisposeEffect(effect M)",
                            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(EffectPlacement, EveryFamilyEffectIsPlacedByItsKind)
{
    const std::map<std::string, int> placeOf = {{"QVK VORTSRC", 1}, {"QVK VORTEFF", 2}, {"QVK VORTREN", 3},
                                                {"QVK VORTAN", 4},  {"QVK VORTAN ", 4}, {"QVK VORTKIT", 0}};
    Make("G E R M");
    ASSERT_EQ(FamilyEffects().size(), 21u);
    for (const FamilyEffect& effect : FamilyEffects())
    {
        SCOPED_TRACE(effect.matchName);
        const std::string family = std::string(effect.matchName).substr(0, 11);
        EXPECT_EQ(IndexOfKey(scene->Key(effect.matchName), Idle_Cmd_Apply), placeOf.at(family));
    }
}

TEST_F(EffectPlacement, NewKindsMatchByPrefixWithoutWordBoundary)
{
    Make("G E R M");
    const auto indexOf = [&](const std::string& matchName)
    {
        InstalledEffect effect;
        effect.matchName = matchName;
        return IndexOfKey(scene->host.Install(effect), Idle_Cmd_Apply);
    };
    EXPECT_EQ(indexOf("QVK VORTKITCHEN"), 0);
    EXPECT_EQ(indexOf("QVK VORTANGLE"), 4);
    EXPECT_EQ(indexOf("QVK VORTRENDER"), 3);
    EXPECT_EQ(indexOf("QVK VORTEFFECT"), 2);
    EXPECT_EQ(indexOf("QVK VORTSRCE"), 1);
    EXPECT_EQ(indexOf("qvk vortkit"), 1) << "no family, since the case differs";
}

TEST_F(EffectPlacement, KindsOnTheLayerMatchByPrefixToo)
{
    struct Row
    {
        const char* onTheLayer; ///< Below an effect from outside.
        const char* added;
        int index;
    };
    const Row rows[] = {
        {"QVK VORTSRCE", "G", 2},      {"QVK VORTEFFECT", "E", 2},        {"QVK VORTEFFECT", "G", 1},
        {"QVK VORTRENDER", "R", 2},    {"QVK VORTRENDER", "E", 1},        {"QVK VORTAN TWOFOLD", "R", 1},
        {"qvk vortren dots", "R", 0},  {"My QVK VORTREN Dots", "R", 0},   {"QVK VORTRE", "R", 0},
        {"qvk vortan two", "R", 0},    {"Some QVK VORTAN TWO", "R", 0},   {"QVK VORTAN TW", "R", 0},
        {"qvk vortsrc lamps", "G", 0}, {"The QVK VORTSRC Lamps", "G", 0}, {"QVK VORTSR", "G", 0},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(std::string(row.added) + " beside " + row.onTheLayer);
        Make("X");
        InstalledEffect effect;
        effect.matchName = row.onTheLayer;
        (void)scene->host.Install(effect);
        (void)scene->Add(row.onTheLayer, "N");
        EXPECT_EQ(IndexOf(row.added), row.index);
    }
}

TEST_F(EffectPlacement, EffectWithUnterminatedNameIsPlaced)
{
    Make("G E");
    InstalledEffect endless;
    endless.matchName = "QVK VORTSRC " + std::string(116, 'x');
    endless.matchNameEnding = InstalledEffect::MatchNameEnding::notTerminated;
    const A_long key = scene->host.Install(endless);
    EXPECT_EQ(ApplyFromPanel(key), 0);
    EXPECT_EQ(scene->Stack(), "G new E");
    EXPECT_EQ(IndexOfKey(key, Idle_Cmd_Apply), 2);
}

TEST_F(EffectPlacement, NothingWantedHasNoPlaceAndNoCall)
{
    EXPECT_EQ(Idle_Cmd_None, 0);
    EXPECT_EQ(Idle_Cmd_Apply, 1);
    EXPECT_EQ(Idle_Cmd_ApplyOnce, 2);
    Make("G M");
    EXPECT_EQ(IndexOf("R", Idle_Cmd_None), -1);
    EXPECT_THAT(scene->host.CallTexts(), IsEmpty());
}

TEST_F(EffectPlacement, KeyZeroHasNoPlaceAndNoCall)
{
    Make("G M");
    EXPECT_EQ(IndexOfKey(0, Idle_Cmd_Apply), -1);
    EXPECT_THAT(scene->host.CallTexts(), IsEmpty());
}

TEST_F(EffectPlacement, NullLayerHasNoPlaceAndNoCall)
{
    const int key = Make("G M").KeyOf("R");
    EXPECT_EQ(GetIndexOfNewEffectToLayer(scene->Id(), scene->Basic(), key, nullptr, Idle_Cmd_Apply), -1);
    EXPECT_THAT(scene->host.CallTexts(), IsEmpty());
}

// Once only.

TEST_F(EffectPlacement, OnceHasNoPlaceIfTheKeyExists)
{
    Make("G E R M");
    EXPECT_EQ(IndexOf("E", Idle_Cmd_ApplyOnce), -1);
    EXPECT_EQ(IndexOf("M", Idle_Cmd_ApplyOnce), -1);
    EXPECT_EQ(IndexOf("E", Idle_Cmd_Apply), 2);
    EXPECT_EQ(ApplyAt(scene->KeyOf("E"), IndexOf("E", Idle_Cmd_ApplyOnce)), 0);
    EXPECT_EQ(scene->Stack(), "G E R M");
}

TEST_F(EffectPlacement, OnceHasAPlaceIfOnlyOthersExist)
{
    Make("G E R M");
    EXPECT_EQ(IndexOfKey(scene->Key("QVK VORTEFF Round Zone"), Idle_Cmd_ApplyOnce), 2);
    EXPECT_EQ(IndexOfKey(scene->Key("QVK VORTAN"), Idle_Cmd_ApplyOnce), 4);
}

TEST_F(EffectPlacement, OnceCountsKitLegacyAndOutsidersToo)
{
    Make("K X L");
    EXPECT_EQ(IndexOf("K", Idle_Cmd_ApplyOnce), -1);
    EXPECT_EQ(IndexOf("X", Idle_Cmd_ApplyOnce), -1);
    EXPECT_EQ(IndexOf("L", Idle_Cmd_ApplyOnce), -1);
    EXPECT_EQ(IndexOf("M", Idle_Cmd_ApplyOnce), 3);
}

// Carrying it out.

TEST_F(EffectPlacement, AppliesThenReordersThenDisposes)
{
    Make("G M");
    EXPECT_EQ(ApplyAt(scene->KeyOf("R"), 1), 0);
    EXPECT_EQ(scene->Stack(), "G new M");
    EXPECT_THAT(scene->host.CallTexts(),
                ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                            "Effect 1 AEGP_ApplyEffect(id 7, layer 1, 240) -> effect e3",
                            "Effect 1 AEGP_ReorderEffect(effect e3, 1)",
                            "Effect 1 AEGP_DisposeEffect(effect e3)",
                            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(EffectPlacement, AppliesNothingForKeyZeroOrNegativeIndex)
{
    Make("G M");
    EXPECT_EQ(ApplyAt(0, 1), 0);
    EXPECT_EQ(ApplyAt(scene->KeyOf("R"), -1), 0);
    EXPECT_EQ(ApplyEffectToLayerAtIndex(scene->Id(), nullptr, 0, scene->Layer(), 1), 0);
    EXPECT_EQ(ApplyEffectToLayerAtIndex(scene->Id(), nullptr, scene->KeyOf("R"), scene->Layer(), -1), 0);
    EXPECT_EQ(scene->Stack(), "G M");
    EXPECT_THAT(scene->host.CallTexts(), IsEmpty());
}

TEST_F(EffectPlacement, IndexPastTheStackLeavesTheEffectLast)
{
    Make("G M");
    scene->host.Expect("index-out-of-range", "AEGP_ReorderEffect", "the test asks for an index past the end");
    EXPECT_EQ(ApplyAt(scene->KeyOf("R"), 2), 0);
    EXPECT_EQ(scene->Stack(), "G M new");
    scene->host.Effect("new").label = "R";
    EXPECT_EQ(ApplyAt(scene->KeyOf("R"), 4), 3);
    EXPECT_EQ(scene->Stack(), "G M R new");
}

TEST_F(EffectPlacement, UninstalledKeyIsAnErrorAndAddsNothing)
{
    Make("G M");
    scene->host.Expect("unknown-key", "AEGP_ApplyEffect",
                       "the test asks for an effect that is not installed");
    EXPECT_EQ(ApplyAt(4711, 1), 3);
    EXPECT_EQ(scene->Stack(), "G M");
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_ApplyEffect(id 7, layer 1, 4711) = 3"));
}

// From the panel to the layer.

TEST_F(EffectPlacement, KeyFromThePanelUsesSuitesPerStep)
{
    Make("R");
    EXPECT_EQ(ApplyFromPanel(scene->KeyOf("G")), 0);
    EXPECT_EQ(scene->Stack(), "new R");
    EXPECT_THAT(
        scene->host.CallTexts(),
        ElementsAre(
            "Basic AcquireSuite(\"AEGP Layer Suite\", 5)", "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1",
            "Effect 1 AEGP_GetEffectMatchName(201) -> \"QVK VORTSRC Lamps\"",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect R",
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect R) -> 240",
            "Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\"",
            "Effect 1 AEGP_DisposeEffect(effect R)", "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
            "Effect 1 AEGP_ApplyEffect(id 7, layer 1, 201) -> effect e2",
            "Effect 1 AEGP_ReorderEffect(effect e2, 0)", "Effect 1 AEGP_DisposeEffect(effect e2)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)"));
}

TEST_F(EffectPlacement, WithoutALayerTheUserIsTold)
{
    Make("G M");
    const int key = scene->KeyOf("R");
    EXPECT_EQ(
        scene->InHook([&] { return ApplyEffectToLayerIdleFn(scene->Id(), scene->Basic(), key, nullptr); }),
        0);
    EXPECT_EQ(scene->Stack(), "G M");
    ASSERT_EQ(scene->host.Alerts().size(), 1u);
    EXPECT_EQ(scene->host.Alerts()[0].pluginId, 7);
    EXPECT_EQ(scene->host.Alerts()[0].text, "No Active Layer Selected");
    EXPECT_THAT(scene->host.CallTexts(),
                ElementsAre("Basic AcquireSuite(\"AEGP Utility Suite\", 3)",
                            "Utility 3 AEGP_ReportInfo(id 7, \"No Active Layer Selected\")",
                            "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)"));
}

TEST_F(EffectPlacement, WithoutALayerEvenKeyZeroIsReported)
{
    Make("");
    EXPECT_EQ(
        scene->InHook([&] { return ApplyEffectToLayerIdleFn(scene->Id(), scene->Basic(), 0, nullptr); }), 0);
    EXPECT_EQ(scene->host.Alerts().size(), 1u);
}

TEST_F(EffectPlacement, KeyZeroFromThePanelDoesNothing)
{
    Make("G M");
    EXPECT_EQ(ApplyFromPanel(0), 0);
    EXPECT_EQ(scene->Stack(), "G M");
    EXPECT_THAT(scene->host.Alerts(), IsEmpty());
    EXPECT_THAT(scene->CallList(), ElementsAre("Layer 5 AEGP_GetLayerID(layer 1) -> 1"));
}

TEST_F(EffectPlacement, TwoNewRenderersKeepTheOrderChosen)
{
    Make("G R M");
    EXPECT_EQ(ApplyFromPanel(scene->Key("QVK VORTREN Rays")), 0);
    scene->host.Effect("new").label = "Rays";
    EXPECT_EQ(ApplyFromPanel(scene->Key("QVK VORTREN Panes")), 0);
    scene->host.Effect("new").label = "Panes";
    EXPECT_EQ(scene->Stack(), "G R Rays Panes M");
}

TEST_F(EffectPlacement, LaterKeySeesTheEffectsJustAdded)
{
    Make("");
    for (const char* label : {"M", "R", "E", "G", "K"})
    {
        EXPECT_EQ(ApplyFromPanel(scene->KeyOf(label)), 0);
        scene->host.Effect("new").label = label;
    }
    EXPECT_EQ(scene->Stack(), "K G E R M");
}

// Undo.

TEST_F(EffectPlacement, AddingIsTwoStepsWithoutUndoGroup)
{
    Make("G M");
    const ProjectState before = scene->host.State();
    EXPECT_EQ(ApplyFromPanel(scene->KeyOf("R")), 0);
    EXPECT_EQ(scene->Stack(), "G new M");
    EXPECT_THAT(scene->host.UndoNames(), ElementsAre("Apply Effect", "Reorder Effect"));
    EXPECT_TRUE(scene->host.Undo());
    EXPECT_EQ(scene->Stack(), "G M e3");
    EXPECT_TRUE(scene->host.Undo());
    EXPECT_EQ(scene->host.State(), before);
}

TEST_F(EffectPlacement, TwinsInOneUndoGroupAreUndoneRight)
{
    HostOptions options;
    options.twinUndo = TwinUndo::deletesOlderTwin;
    Make("G R M", options);
    const ProjectState before = scene->host.State();
    EXPECT_EQ(ApplyFromPanel(scene->KeyOf("R")), 0);
    EXPECT_EQ(scene->Stack(), "G R new M");
    EXPECT_TRUE(scene->host.Undo());
    EXPECT_EQ(scene->Stack(), "G R M e4");
    EXPECT_TRUE(scene->host.Undo());
    EXPECT_EQ(scene->host.State(), before);
}
} // namespace standin
