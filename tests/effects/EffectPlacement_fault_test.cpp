#include "effects/EffectPlacement.h"

#include "standin/host/faults/Sweep.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/support/StackTest.h"

using ::testing::ElementsAre;

namespace standin
{

namespace
{
using Places = std::vector<int>;

class PlacementAfterError : public StackTest
{
protected:
    int Place(const std::string& label, Idle_Cmd cmd = Idle_Cmd_Apply)
    {
        return scene->InHook(
            [&]
            {
                return GetIndexOfNewEffectToLayer(scene->Id(), scene->Basic(), scene->KeyOf(label),
                                                  scene->Layer(), cmd);
            });
    }

    /// The places of a new geometry object, effector, renderer, main effect and kit effect, each worked out
    /// while the `nth` call of `function` fails.
    Places PlacesIf(const std::string& stack, const std::string& function, std::size_t nth)
    {
        Places places;
        for (const char* label : {"G", "E", "R", "M", "K"})
        {
            Make(stack).host.Faults().FailFunction(function, nth);
            places.push_back(Place(label));
            EXPECT_EQ(scene->Stack(), stack);
        }
        return places;
    }
};
} // namespace

// After an error the last effect that was read stands for those below it.

namespace
{
struct PlacesRow
{
    const char* test;
    const char* stack;
    const char* function;
    std::size_t nth;
    Places places; ///< Of a new G, E, R, M and K.
};

class PlacesAfterError : public PlacementAfterError, public ::testing::WithParamInterface<PlacesRow>
{
};

constexpr const char* fetch = "AEGP_GetLayerEffectByIndex";
constexpr const char* fetchKey = "AEGP_GetInstalledKeyFromLayerEffect";
constexpr const char* fetchName = "AEGP_GetEffectMatchName";

const PlacesRow placesRows[] = {
    {"CountThatFailsIsAnEmptyStack", "G E R M", "AEGP_GetLayerNumEffects", 1, {0, 0, 0, 0, 0}},
    {"FailedNewNameIsNoFamilyWhenUnread", "G E R M", fetchName, 1, {0, 0, 0, 0, 0}},
    {"FirstEffectThatFailsLeavesNothingThatCounts", "G E R M", fetch, 1, {0, 0, 0, 4, 0}},
    {"FirstKeyThatFailsLeavesNothingThatCounts", "G E R M", fetchKey, 1, {0, 0, 0, 4, 0}},
    {"FirstNameThatFailsLeavesNothingThatCounts", "G E R M", fetchName, 2, {0, 0, 0, 4, 0}},
    {"FailedSecondEffectRepeatsTheOneAbove", "G E R M", fetch, 2, {4, 0, 0, 4, 0}},
    {"FailedThirdEffectRepeatsTheOneAbove", "G E R M", fetch, 3, {1, 4, 0, 4, 0}},
    {"FailedFourthEffectRepeatsTheOneAbove", "G E R M", fetch, 4, {1, 2, 4, 4, 0}},
    {"FailedKeyRepeatsTheOneAbove", "G E R M", fetchKey, 3, {1, 4, 0, 4, 0}},
    {"FailedNameRepeatsTheOneAbove", "G E R M", fetchName, 4, {1, 4, 0, 4, 0}},
    {"FailedDisposalRepeatsItsOwnEffect", "G E R M", "AEGP_DisposeEffect", 2, {1, 4, 0, 4, 0}},
    {"FailedLastDisposalRepeatsNothing", "G E R M", "AEGP_DisposeEffect", 4, {1, 2, 3, 4, 0}},
    {"RepeatedMainEffectAnchorsAtItsOwnPlace", "X M G", fetch, 3, {1, 1, 1, 3, 0}},
    {"RepeatedOutsiderAnchorsNothing", "R X G M", fetch, 3, {0, 0, 1, 4, 0}},
};

void PrintTo(const PlacesRow& row, std::ostream* out) { *out << row.function << " " << row.nth; }
} // namespace

TEST_P(PlacesAfterError, AreThese)
{
    const PlacesRow& row = GetParam();
    EXPECT_EQ(PlacesIf(row.stack, row.function, row.nth), row.places);
}

INSTANTIATE_TEST_SUITE_P(If, PlacesAfterError, ::testing::ValuesIn(placesRows),
                         [](const auto& row) { return row.param.test; });

TEST_F(PlacementAfterError, FailedCountOrNewNameEndsTheReading)
{
    (void)PlacesIf("G", "AEGP_GetLayerNumEffects", 1);
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) = 1"));
    (void)PlacesIf("G", "AEGP_GetEffectMatchName", 1);
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1",
                                               "Effect 1 AEGP_GetEffectMatchName(261) = 1"));
}

TEST_F(PlacementAfterError, ReadingStopsAndTheReferenceIsDisposedOf)
{
    Make("G M").host.Faults().FailFunction("AEGP_GetInstalledKeyFromLayerEffect", 1, FaultLength::once, 4);
    EXPECT_EQ(Place("G"), 0);
    EXPECT_THAT(scene->CallList(),
                ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
                            "Effect 1 AEGP_GetEffectMatchName(201) -> \"QVK VORTSRC Lamps\"",
                            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect G",
                            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect G) = 4",
                            "Effect 1 AEGP_DisposeEffect(effect G)"));
}

TEST_F(PlacementAfterError, OnceKnowsOnlyTheKeysRead)
{
    const auto once = [&](const char* label, const char* function, std::size_t nth)
    {
        Make("G E R M").host.Faults().FailFunction(function, nth);
        return Place(label, Idle_Cmd_ApplyOnce);
    };
    EXPECT_EQ(once("E", "AEGP_GetLayerEffectByIndex", 3), -1);
    EXPECT_EQ(once("R", "AEGP_GetLayerEffectByIndex", 3), 0);
    EXPECT_EQ(once("R", "AEGP_GetInstalledKeyFromLayerEffect", 3), 0);
    EXPECT_EQ(once("R", "AEGP_GetEffectMatchName", 4), -1) << "the key was read, the name was not";
    EXPECT_EQ(once("M", "AEGP_GetEffectMatchName", 4), 4);
}

TEST_F(PlacementAfterError, UninstalledEffectCountsLikeTheOneAbove)
{
    Make("G X R M");
    scene->host.Effect("X").key = 4711;
    scene->host.Effect("X").flags = effectMissing;
    scene->host.Expect("unknown-key", "AEGP_GetEffectMatchName", "the layer holds an effect that is missing");
    EXPECT_EQ(Place("G"), 4);
    EXPECT_EQ(Place("R"), 0);
}

// An effect that cannot be moved.

TEST_F(PlacementAfterError, UnmovableEffectStaysWhereTheHostPutIt)
{
    const auto stackIf = [&](ApplyPlace place)
    {
        HostOptions options;
        options.applyPlace = place;
        Make("G E R M", options);
        scene->host.User().SelectEffect("G");
        scene->host.Faults().FailFunction("AEGP_ReorderEffect");
        const int key = scene->KeyOf("R");
        EXPECT_EQ(scene->InHook(
                      [&] { return ApplyEffectToLayerAtIndex(7, scene->Basic(), key, scene->Layer(), 3); }),
                  1);
        scene->LabelNewEffects();
        return scene->Stack();
    };
    EXPECT_EQ(stackIf(ApplyPlace::end), "G E R M new");
    EXPECT_EQ(stackIf(ApplyPlace::afterSelected), "G new E R M");
    EXPECT_EQ(stackIf(ApplyPlace::start), "new G E R M");
}

TEST_F(PlacementAfterError, ApplyingsErrorComesBeforeTheDisposals)
{
    const auto errorIf = [&](const char* function, const char* another)
    {
        Make("G");
        scene->host.Faults().FailFunction(function, 1, FaultLength::once, 4);
        scene->host.Faults().FailFunction(another, 1, FaultLength::once, 5);
        const int key = scene->KeyOf("R");
        return scene->InHook(
            [&] { return ApplyEffectToLayerAtIndex(7, scene->Basic(), key, scene->Layer(), 0); });
    };
    EXPECT_EQ(errorIf("AEGP_ApplyEffect", "AEGP_ReorderEffect"), 4);
    EXPECT_EQ(errorIf("AEGP_ReorderEffect", "AEGP_DisposeEffect"), 4);
    EXPECT_EQ(errorIf("AEGP_DisposeEffect", "no function"), 4);
}

// Every call of adding a renderer to a small stack, failed in turn.

namespace
{
struct AddingRow
{
    const char* call;    ///< As it reads in the clean run.
    const char* outcome; ///< If it fails once, or its function from then on; and the stack then.
    const char* stack;
    const char* outcomeOfAll; ///< The same if everything fails from this call on.
    const char* stackOfAll;
};

constexpr const char* fine = "returned 0";
constexpr const char* missing = "threw 516";
constexpr const char* unchanged = "G E R M";
constexpr const char* atTop = "new G E R M";
constexpr const char* atEnd = "G E R M new";
constexpr const char* inPlace = "G E R new M";

constexpr AddingRow addingRows[] = {
    {"Basic AcquireSuite(\"AEGP Layer Suite\", 5)", missing, unchanged, missing, unchanged},
    {"Layer 5 AEGP_GetLayerID(layer 1) -> 1", fine, unchanged, fine, unchanged},
    {"Basic AcquireSuite(\"AEGP Effect Suite\", 1)", missing, unchanged, missing, unchanged},
    {"Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 4", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\"", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect G", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect G) -> 201", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetEffectMatchName(201) -> \"QVK VORTSRC Lamps\"", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_DisposeEffect(effect G)", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect E", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect E) -> 222", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetEffectMatchName(222) -> \"QVK VORTEFF Jitter\"", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_DisposeEffect(effect E)", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect R", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect R) -> 240", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\"", fine, atTop, missing, unchanged},
    {"Effect 1 AEGP_DisposeEffect(effect R)", fine, atEnd, missing, unchanged},
    {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 3) -> effect M", fine, atEnd, missing, unchanged},
    {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect M) -> 258", fine, atEnd, missing, unchanged},
    {"Effect 1 AEGP_GetEffectMatchName(258) -> \"QVK VORTAN TWO\"", fine, atEnd, missing, unchanged},
    {"Effect 1 AEGP_DisposeEffect(effect M)", fine, inPlace, missing, unchanged},
    {"Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", fine, inPlace, missing, unchanged},
    {"Basic AcquireSuite(\"AEGP Effect Suite\", 1)", missing, unchanged, missing, unchanged},
    {"Effect 1 AEGP_ApplyEffect(id 7, layer 1, 240) -> effect e5", fine, unchanged, fine, unchanged},
    {"Effect 1 AEGP_ReorderEffect(effect e5, 3)", fine, atEnd, fine, atEnd},
    {"Effect 1 AEGP_DisposeEffect(effect e5)", fine, inPlace, fine, inPlace},
    {"Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", fine, inPlace, fine, inPlace},
    {"Basic ReleaseSuite(\"AEGP Layer Suite\", 5)", fine, inPlace, fine, inPlace},
};

struct Adding : LabelledStack
{
    Adding() : LabelledStack("G E R M") {}

    void Run()
    {
        int returned = -1;
        const HookResult hook =
            host.RunInHook([&] { returned = ApplyEffectToLayerIdleFn(Id(), Basic(), KeyOf("R"), Layer()); });
        outcome = OutcomeText(hook, returned);
        LabelNewEffects();
    }

    std::string outcome;
};

void checkAdding(Adding& product, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    if (fault.ordinal == 0)
    {
        EXPECT_EQ(product.outcome, fine);
        EXPECT_EQ(product.Stack(), inPlace);
        EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
        return;
    }
    ASSERT_LE(fault.ordinal, std::size(addingRows));
    const AddingRow& row = addingRows[fault.ordinal - 1];
    const bool all = fault.length == FaultLength::everythingForGood;
    EXPECT_EQ(fault.call, row.call);
    EXPECT_EQ(product.outcome, all ? row.outcomeOfAll : row.outcome);
    EXPECT_EQ(product.Stack(), all ? row.stackOfAll : row.stack);
    EXPECT_EQ(product.host.UndoGroupsLeftOpen(), 0);
    EXPECT_EQ(product.host.LeakedReferences(), 0);
    EXPECT_TRUE(product.host.Alerts().empty());
    EXPECT_EQ(TakeDistinctFindingIds(product.host),
              product.outcome == missing ? FindingIds{"exception-left-hook"} : FindingIds());
}
} // namespace

TEST(AddingWhileTheHostFails, EveryCallOfItInTurn)
{
    EXPECT_EQ(SweepFaults([] { return std::make_unique<Adding>(); }, [](Adding& product) { product.Run(); },
                          checkAdding),
              28u);
}

// Suites that the host has not got.

TEST(AddingWithoutASuite, Leaves516AndTheLayerAsItWas)
{
    ForEachMissing({{"AEGP Layer Suite", 5, {}}, {"AEGP Effect Suite", 1, {}}},
                   [](const MissingSuite& suite, Withheld how)
                   {
                       Adding product;
                       product.host.Faults().Withhold(suite.name, suite.version, how);
                       product.Run();
                       EXPECT_EQ(product.outcome, missing);
                       EXPECT_EQ(product.Stack(), unchanged);
                       EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"exception-left-hook"});
                   });
}

TEST(AddingWithoutASuite, NeedsNoOtherVersionAndNoUtilities)
{
    Adding product;
    product.host.Faults().Withhold("AEGP Effect Suite", 3);
    product.host.Faults().Withhold("AEGP Utility Suite");
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_EQ(product.Stack(), inPlace);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(AddingWithoutASuite, WithoutUtilitiesThrows516EvenWithoutALayer)
{
    LabelledStack product("G");
    product.host.Faults().Withhold("AEGP Utility Suite", 3);
    const HookResult hook = product.host.RunInHook(
        [&] { (void)ApplyEffectToLayerIdleFn(product.Id(), product.Basic(), product.KeyOf("R"), nullptr); });
    EXPECT_EQ(hook.thrownNumber, 516);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"exception-left-hook"});
}

TEST(AddingWithoutASuite, NullBasicSuiteThrows516EvenWithoutKeys)
{
    LabelledStack product("G");
    const int key = product.KeyOf("R");
    EXPECT_THROW((void)GetIndexOfNewEffectToLayer(7, nullptr, key, product.Layer(), Idle_Cmd_Apply), int);
    EXPECT_THROW((void)GetIndexOfNewEffectToLayer(7, nullptr, 0, nullptr, Idle_Cmd_None), int);
    EXPECT_THROW((void)ApplyEffectToLayerAtIndex(7, nullptr, key, product.Layer(), 0), int);
    EXPECT_THROW((void)ApplyEffectToLayerIdleFn(7, nullptr, key, product.Layer()), int);
    EXPECT_TRUE(product.host.CallTexts().empty());
}
} // namespace standin
