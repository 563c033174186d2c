// A host that answers and returns an error as well, does neither, or counts below zero.

#include "effects/EffectCatalogue.h"
#include "effects/EffectPlacement.h"
#include "effects/EffectRemoval.h"
#include "tests/support/PatchedBasic.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Effects1 = AEGP_EffectSuite1;
using Effects3 = AEGP_EffectSuite3;

const char* const start = "Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")";
const char* const takeA = "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A";
const char* const disposeOfA = "Effect 3 AEGP_DisposeEffect(effect A)";

A_Err negativeCount(AEGP_LayerH, A_long* count)
{
    *count = -2;
    return A_Err_NONE;
}

void countBelowZero(Effects1& suite) { suite.AEGP_GetLayerNumEffects = negativeCount; }

/// Runs an operation on a stack; the calls that a patch answers by itself are not in the trace.
class OddHost : public StackTest
{
protected:
    int IndexOfR(SPBasicSuite* basic)
    {
        return scene->InHook(
            [&]
            {
                return GetIndexOfNewEffectToLayer(scene->Id(), basic, scene->KeyOf("R"), scene->Layer(),
                                                  Idle_Cmd_Apply);
            });
    }

    int ApplyR(SPBasicSuite* basic)
    {
        const int err = scene->InHook(
            [&]
            { return ApplyEffectToLayerAtIndex(scene->Id(), basic, scene->KeyOf("R"), scene->Layer(), 0); });
        scene->LabelNewEffects();
        return err;
    }

    int ApplyRFromPanel(SPBasicSuite* basic)
    {
        const int err = scene->InHook(
            [&] { return ApplyEffectToLayerIdleFn(scene->Id(), basic, scene->KeyOf("R"), scene->Layer()); });
        scene->LabelNewEffects();
        return err;
    }

    int RemoveA(SPBasicSuite* basic)
    {
        return scene->InHook(
            [&]
            { return RemoveMultipleEffectsByUUID(scene->Id(), basic, {scene->Uuid("A")}, scene->Layer()); });
    }

    int Find(SPBasicSuite* basic, const char* prefix)
    {
        return scene->InHook([&] { return FindEffectKeys(AEGP_SuiteHandler(basic), keys, prefix); });
    }

    std::vector<int> keys;
};

TEST_F(OddHost, InstalledEffectsBelowZeroAreNoWalk)
{
    PatchedBasic<Effects1> basic(Make("").host,
                                 [](Effects1& suite)
                                 {
                                     suite.AEGP_GetNumInstalledEffects = [](A_long* count)
                                     {
                                         *count = -3;
                                         return A_Err{A_Err_NONE};
                                     };
                                 });
    EXPECT_EQ(Find(basic.Basic(), "QVK VORTREN"), 0);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_EQ(scene->InHook([&] { return GetEffectKeyFromMatchName(basic.Basic(), "QVK VORTREN"); }), 0);
    EXPECT_THAT(scene->CallList(), IsEmpty());
}

TEST_F(OddHost, CountWithErrorIsWalkedWithoutStep)
{
    Make("").host.Expect("unknown-key", "AEGP_GetEffectMatchName", "the walk stays at the key 0");
    PatchedBasic<Effects1> basic(scene->host, AnswersWithError<&Effects1::AEGP_GetNumInstalledEffects>(4));
    EXPECT_EQ(Find(basic.Basic(), "ADBE"), 4);
    EXPECT_THAT(keys, IsEmpty());
    Calls names = scene->CallList();
    ASSERT_GT(names.size(), 2u);
    names.erase(names.begin());
    EXPECT_THAT(names, Each("Effect 1 AEGP_GetEffectMatchName(0) = 3"));
}

TEST_F(OddHost, NameWithErrorServesAWalk)
{
    (void)Make("");
    ASSERT_EQ(Find(scene->Basic(), "QVK VORTREN"), 0);
    const std::vector<int> sound = keys;
    ASSERT_GT(sound.size(), 1u);
    keys.clear();
    PatchedBasic<Effects1> basic(scene->host, AnswersWithError<&Effects1::AEGP_GetEffectMatchName>(4));
    EXPECT_EQ(Find(basic.Basic(), "QVK VORTREN"), 0);
    EXPECT_EQ(keys, sound);
    EXPECT_EQ(scene->InHook([&] { return GetEffectKeyFromMatchName(basic.Basic(), "QVK VORTREN"); }),
              sound.front());
}

TEST_F(OddHost, NegativeCountIsAnEmptyStackForAdding)
{
    PatchedBasic<Effects1> basic(Make("A B").host, countBelowZero);
    EXPECT_EQ(IndexOfR(basic.Basic()), 0);
    EXPECT_THAT(scene->CallList(),
                ElementsAre("Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\""));
}

TEST_F(OddHost, ReferenceWithErrorIsDisposedOfWhenScanning)
{
    PatchedBasic<Effects1> basic(Make("A B").host,
                                 AnswersWithError<&Effects1::AEGP_GetLayerEffectByIndex>(4));
    EXPECT_EQ(IndexOfR(basic.Basic()), 0);
    EXPECT_THAT(scene->CallList(),
                ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
                            "Effect 1 AEGP_GetEffectMatchName(240) -> \"QVK VORTREN Dots\"",
                            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                            "Effect 1 AEGP_DisposeEffect(effect A)"));
}

TEST_F(OddHost, NewEffectWithErrorIsDisposedOfUnmoved)
{
    PatchedBasic<Effects1> basic(Make("A").host, AnswersWithError<&Effects1::AEGP_ApplyEffect>(4));
    EXPECT_EQ(ApplyR(basic.Basic()), 4);
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_ApplyEffect(id 7, layer 1, 240) -> effect e2",
                                               "Effect 1 AEGP_DisposeEffect(effect e2)"));
    EXPECT_EQ(scene->Stack(), "A new");
}

TEST_F(OddHost, NewEffectWithoutReferenceIsMovedThroughNull)
{
    Make("A").host.Expect("null-reference", "AEGP_ReorderEffect", "the move does not look at the reference");
    PatchedBasic<Effects1> basic(scene->host,
                                 [](Effects1& suite)
                                 {
                                     suite.AEGP_ApplyEffect = [](AEGP_PluginID, AEGP_LayerH,
                                                                 AEGP_InstalledEffectKey, AEGP_EffectRefH*)
                                     { return A_Err{A_Err_NONE}; };
                                 });
    EXPECT_EQ(ApplyR(basic.Basic()), 3);
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_ReorderEffect(effect null, 0) = 3"));
}

TEST_F(OddHost, LayerWithTheIdZeroGetsNoEffect)
{
    PatchedBasic<AEGP_LayerSuite1> basic(Make("A").host,
                                         [](AEGP_LayerSuite1& suite)
                                         {
                                             suite.AEGP_GetLayerID = [](AEGP_LayerH, AEGP_LayerIDVal* id)
                                             {
                                                 *id = 0;
                                                 return A_Err{A_Err_NONE};
                                             };
                                         });
    EXPECT_EQ(ApplyRFromPanel(basic.Basic()), 0);
    EXPECT_THAT(scene->CallList(), IsEmpty());
}

TEST_F(OddHost, LayerIdWithErrorIsGoodEnough)
{
    PatchedBasic<AEGP_LayerSuite1> basic(Make("A").host,
                                         AnswersWithError<&AEGP_LayerSuite1::AEGP_GetLayerID>(4));
    EXPECT_EQ(ApplyRFromPanel(basic.Basic()), 0);
    EXPECT_EQ(scene->Stack(), "new A");
}

TEST_F(OddHost, NegativeCountIsAnEmptyStackForDeleting)
{
    PatchedBasic<Effects1> basic(Make("A").host, countBelowZero);
    EXPECT_EQ(RemoveA(basic.Basic()), 0);
    EXPECT_THAT(scene->CallList(), IsEmpty());
}

TEST_F(OddHost, ReferenceWithErrorIsNotMovedByDeletion)
{
    LabelledStack& stack = Make("A");
    stack.host.Expect("null-reference", "AEGP_DeleteLayerEffect", "the deletion runs through null");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    PatchedBasic<Effects3> basic(stack.host, AnswersWithError<&Effects3::AEGP_GetLayerEffectByIndex>(4));
    EXPECT_EQ(RemoveA(basic.Basic()), 4);
    EXPECT_THAT(stack.Sweep(),
                ElementsAre(start, takeA, disposeOfA, "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3"));
}

TEST_F(OddHost, ReferenceWithErrorIsDeleted)
{
    LabelledStack& stack = Make("A");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    static int fetches;
    fetches = 0;
    PatchedBasic<Effects3> basic(stack.host, AnswersWithError<&Effects3::AEGP_GetLayerEffectByIndex>(
                                                 4, [] { return ++fetches == 2; }));
    EXPECT_EQ(RemoveA(basic.Basic()), 4);
    EXPECT_THAT(stack.Sweep(),
                ElementsAre(start, takeA, "Effect 3 AEGP_ReorderEffect(effect A, 0)", disposeOfA, takeA,
                            "Effect 3 AEGP_DeleteLayerEffect(effect A)", disposeOfA));
    EXPECT_EQ(stack.Stack(), "");
}
} // namespace
} // namespace standin
