// An active state that differs in the tree is the host's own flag of the effect.

#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesActive = StackTest;

TEST_F(LayerEffectChangesActive, AnEffectIsSwitchedOffByItsFlag)
{
    StackScene& stack = Make("A B", EveryGroupShows());
    Items tree = stack.Tree("A B");
    ItemNamed(tree, "B").active = 0;
    std::string expected = ReadIdentities(stack, "A B");

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.Change(tree).thrown, ""); }), "");

    expected += "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B\n"
                "Effect 1 AEGP_SetEffectFlags(effect B, 1, 0)\n"
                "Effect 1 AEGP_DisposeEffect(effect B)\n";
    expected += ReadIdentities(stack, "A B") + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                MoveEffect("A", 0, 0) + MoveEffect("B", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n";
    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, off\n");
    EXPECT_EQ(stack.Steps(), "[Switch Effect Off][]") << "no group of ours around the switch";
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
}

TEST_F(LayerEffectChangesActive, ASwitchHoldsSuitesOfItsOwn)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].active = 0;

    (void)stack.Change(tree);

    const std::string switchedAndGivenBack = "Effect 1 AEGP_SetEffectFlags(effect A, 1, 0)\n"
                                             "Effect 1 AEGP_DisposeEffect(effect A)\n"
                                             "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                             "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
                                             "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
                                             "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n";
    EXPECT_NE(stack.CallsWithSuites().find(switchedAndGivenBack), std::string::npos)
        << stack.CallsWithSuites();
}

TEST_F(LayerEffectChangesActive, SwitchesFollowTheOrderOfTheTree)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").flags = 0;
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "A").active = 1;
    ItemNamed(tree, "B").active = 0;
    std::string expected = ReadIdentities(stack, "A B") + SwitchEffect("B", 1, 0);

    (void)stack.Change(tree);

    stack.host.Effect("A").flags = 0; // As it was when the second switch asked.
    expected += ReadIdentities(stack, "A B") + SwitchEffect("A", 0, 1);
    stack.host.Effect("A").flags = effectActive;
    expected += ReadIdentities(stack, "A B") + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                MoveEffect("B", 1, 0) + MoveEffect("A", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n";
    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "B: B, group 0, off\nA: A, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "[Switch Effect Off][Switch Effect On][]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesActive, AnyStateButZeroSwitchesOn)
{
    for (const int active : {2, -1, 256})
    {
        StackScene& stack = Make("A");
        stack.host.Effect("A").flags = 0;
        Items tree = stack.Tree("A");
        tree[0].active = active;

        (void)stack.Change(tree);

        EXPECT_NE(stack.Calls().find("Effect 1 AEGP_SetEffectFlags(effect A, 1, 1)\n"), std::string::npos)
            << active;
        EXPECT_EQ(stack.host.Effect("A").flags, effectActive) << active;
        EXPECT_EQ(stack.host.FindingsReport(), "");
    }
}

TEST_F(LayerEffectChangesActive, TheOtherFlagsOfTheEffectStay)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").flags = effectActive | effectAudioToo;
    Items tree = stack.Tree("A");
    tree[0].active = 0;

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.Effect("A").flags, effectAudioToo);
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.host.Effect("A").flags, effectActive | effectAudioToo);
}

TEST_F(LayerEffectChangesActive, AnEffectThatLeftLeavesTheOrderUnnamed)
{
    StackScene& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    Items tree = stack.Tree("A B");
    ItemNamed(tree, "B").active = 0;
    stack.host.User().Delete("B");
    const std::string reading = ReadIdentities(stack, "A");

    (void)stack.Change(before, tree);

    EXPECT_EQ(stack.Calls(), reading + reading + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                                 MoveEffect("A", 0, 0) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Steps(), "[Delete Effect][]");
}

TEST_F(LayerEffectChangesActive, ANullLayerIsAskedForItsEffects)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].active = 0;
    const Items layerItems = stack.LayerItems();
    stack.host.Expect("null-reference", "AEGP_GetLayerNumEffects", "this step does not ask for a layer");

    EXPECT_EQ(stack.ChangeOn(nullptr, layerItems, tree).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer null) = 3\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\n");
}
} // namespace
} // namespace standin
