// An active state that differs in the tree is the host's own flag of the effect.

#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesActive = StackTest;

TEST_F(LayerEffectChangesActive, AnEffectIsSwitchedOffByItsFlag)
{
    const TracedStack traced = Make("A B", EveryGroupShows()).Traced();
    TracedStack switched = traced;
    switched.At("B").flags = 0;
    ExpectChange(
        "A B!",
        Sequence({traced.AfterReading({{"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                                        "Effect 1 AEGP_SetEffectFlags(effect B, 1, 0)",
                                        "Effect 1 AEGP_DisposeEffect(effect B)"}}),
                  switched.AfterReading({switched.OrderInPlace("")})}),
        "A B!", "[Switch Effect Off][]");
}

TEST_F(LayerEffectChangesActive, ASwitchHoldsSuitesOfItsOwn)
{
    (void)Make("A").ChangeTo("A!");

    EXPECT_THAT(scene->CallsWithSuites(),
                ::testing::HasSubstr("Effect 1 AEGP_SetEffectFlags(effect A, 1, 0)\n"
                                     "Effect 1 AEGP_DisposeEffect(effect A)\n"
                                     "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                     "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
                                     "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
                                     "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"));
}

TEST_F(LayerEffectChangesActive, SwitchesFollowTheOrderOfTheTree)
{
    Make("A B").host.Effect("A").flags = 0;
    const TracedStack first = scene->Traced();
    TracedStack second = first;
    second.At("B").flags = 0;
    TracedStack third = second;
    third.At("A").flags = 1;
    ExpectChange("B! A!",
                 Sequence({first.AfterReading({first.SwitchTo("B", 0)}),
                           second.AfterReading({second.SwitchTo("A", 1)}),
                           third.AfterReading({third.Order("", "B 1>0 A 1>1")})}),
                 "B! A", "[Switch Effect Off][Switch Effect On][]");
}

TEST_F(LayerEffectChangesActive, AnyStateButZeroSwitchesOn)
{
    for (const int active : {2, -1, 256})
    {
        LabelledStack& stack = Make("A");
        stack.host.Effect("A").flags = 0;
        Items tree = stack.Tree("A");
        tree[0].active = active;

        (void)stack.Change(tree);

        EXPECT_THAT(stack.CallList(), ::testing::Contains("Effect 1 AEGP_SetEffectFlags(effect A, 1, 1)"));
        EXPECT_EQ(stack.host.Effect("A").flags, effectActive) << active;
    }
}

TEST_F(LayerEffectChangesActive, TheOtherFlagsOfTheEffectStay)
{
    LabelledStack& stack = Make("A");
    stack.host.Effect("A").flags = effectActive | effectAudioToo;

    (void)stack.ChangeTo("A!");

    EXPECT_EQ(stack.host.Effect("A").flags, effectAudioToo);
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.host.Effect("A").flags, effectActive | effectAudioToo);
}

TEST_F(LayerEffectChangesActive, AnEffectThatLeftLeavesTheOrderUnnamed)
{
    LabelledStack& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    const Items tree = stack.Tree("A B!");
    stack.host.User().Delete("B");

    (void)stack.ChangeTo(before, tree);

    const TracedStack left = stack.Traced();
    ExpectCalls(left.AfterReading({{}, left.OrderInPlace("")}));
    EXPECT_EQ(stack.Steps(), "[Delete Effect][]");
}

TEST_F(LayerEffectChangesActive, ANullLayerIsAskedForItsEffects)
{
    LabelledStack& stack = Make("A");
    stack.host.Expect("null-reference", "AEGP_GetLayerNumEffects", "this step does not ask for a layer");

    EXPECT_EQ(stack.ChangeOn(nullptr, stack.LayerItems(), stack.Tree("A!")).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer null) = 3\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n");
    EXPECT_EQ(stack.Text(), "A");
}
} // namespace
} // namespace standin
