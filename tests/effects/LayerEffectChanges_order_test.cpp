// Every effect of the tree is moved to its position in the tree, one move each, whether it stands there or
// not.

#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesOrder = StackTest;

const std::string startNamed = "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n";
const std::string endGroup = "Utility 3 AEGP_EndUndoGroup()\n";

TEST_F(LayerEffectChangesOrder, TheLastEffectComesToTheTop)
{
    StackScene& stack = Make("A B C");
    const std::string reading = ReadIdentities(stack, "A B C");

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.Change(stack.Tree("C A B")).thrown, ""); }), "");

    EXPECT_EQ(stack.Calls(), reading + "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n"
                                       "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C\n"
                                       "Effect 1 AEGP_ReorderEffect(effect C, 0)\n"
                                       "Effect 1 AEGP_DisposeEffect(effect C)\n"
                                       "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect A\n"
                                       "Effect 1 AEGP_ReorderEffect(effect A, 1)\n"
                                       "Effect 1 AEGP_DisposeEffect(effect A)\n"
                                       "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect B\n"
                                       "Effect 1 AEGP_ReorderEffect(effect B, 2)\n"
                                       "Effect 1 AEGP_DisposeEffect(effect B)\n"
                                       "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Stack(), "C A B");
    EXPECT_EQ(stack.Steps(), "[Reorder Effect(s)]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Stack(), "A B C");
}

TEST_F(LayerEffectChangesOrder, AnOutsideEffectSinksBelowTheFamily)
{
    StackScene& stack = Make("Z A B");
    const std::string reading = ReadIdentities(stack, "Z A B");

    (void)stack.Change(stack.Tree("A B"));

    EXPECT_EQ(stack.Calls(), reading + startNamed + MoveEffect("A", 1, 0) + MoveEffect("B", 2, 1) + endGroup);
    EXPECT_EQ(stack.Stack(), "A B Z");
    EXPECT_EQ(stack.Steps(), "[Reorder Effect(s)]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Stack(), "Z A B");
}

TEST_F(LayerEffectChangesOrder, AMissingObjectKeepsItsPosition)
{
    StackScene& stack = Make("A B C");
    const std::string reading = ReadIdentities(stack, "A B C");

    (void)stack.Change(stack.Tree("A ? B"));

    EXPECT_EQ(stack.Calls(), reading + startNamed + MoveEffect("A", 0, 0) + MoveEffect("B", 1, 2) + endGroup);
    EXPECT_EQ(stack.Stack(), "A C B");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, AfterAMissingPositionAnotherEffectIsTaken)
{
    // After B went to 2 the layer holds A C B D. The belief is still A B C D, so C is looked for at 2, where
    // B stands, and D at 3, where B has gone.
    StackScene& stack = Make("A B C D E");

    (void)stack.Change(stack.Tree("A ? B C D"));

    const std::string reading = ReadIdentities(stack, "A B C D E");
    EXPECT_EQ(stack.Calls(), reading + startNamed + MoveEffect("A", 0, 0) + MoveEffect("B", 1, 2) +
                                 MoveEffect("B", 2, 3) + MoveEffect("B", 3, 4) + endGroup);
    EXPECT_EQ(stack.Stack(), "A C D E B");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, AJumpOfTwoIsTrackedOneShort)
{
    // A goes from 0 to 2: the layer holds B C A, and the belief is B A C. So C is looked for at 2.
    StackScene& stack = Make("A B C D");

    (void)stack.Change(stack.Tree("? ? A C"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B C D") + startNamed + MoveEffect("A", 0, 2) +
                                 MoveEffect("A", 2, 3) + endGroup);
    EXPECT_EQ(stack.Stack(), "B C D A");
}

TEST_F(LayerEffectChangesOrder, AMoveUpPushesTheEntriesBetweenDown)
{
    StackScene& stack = Make("A B C D E");

    (void)stack.Change(stack.Tree("A E D B C"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B C D E") + startNamed + MoveEffect("A", 0, 0) +
                                 MoveEffect("E", 4, 1) + MoveEffect("D", 4, 2) + MoveEffect("B", 3, 3) +
                                 MoveEffect("C", 4, 4) + endGroup);
    EXPECT_EQ(stack.Stack(), "A E D B C");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, AStackIsTurnedAround)
{
    StackScene& stack = Make("A B C D E F G H I J");

    (void)stack.Change(stack.Tree("J I H G F E D C B A"));

    EXPECT_EQ(stack.Stack(), "J I H G F E D C B A");
    EXPECT_EQ(stack.Steps(), "[Reorder Effect(s)]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, EqualListsMoveEveryEffectInPlace)
{
    StackScene& stack = Make("A B", EveryGroupShows());

    (void)stack.Change(stack.Tree("A B"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B") + startNamed + MoveEffect("A", 0, 0) +
                                 MoveEffect("B", 1, 1) + endGroup);
    EXPECT_EQ(stack.Steps(), "[Reorder Effect(s)]");
}

TEST_F(LayerEffectChangesOrder, AnEmptyTreeMakesANamedEmptyGroup)
{
    StackScene& stack = Make("A Z", EveryGroupShows());
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");

    EXPECT_EQ(stack.Change({}).thrown, "");

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A Z") +
                                 "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n"
                                 "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Stack(), "A Z");
    EXPECT_EQ(stack.Steps(), "[Reorder Effect(s)]");
}

TEST_F(LayerEffectChangesOrder, AnEmptyTreeOnAnEmptyLayerToo)
{
    StackScene& stack = Make("");
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");

    EXPECT_EQ(stack.Change({}, {}).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0\n"
                                       "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
                                       "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n"
                                       "Utility 3 AEGP_EndUndoGroup()\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n");
}

TEST_F(LayerEffectChangesOrder, AZeroIdentityFillsAPositionMovesNobody)
{
    StackScene& stack = Make("A Z B");

    (void)stack.Change(stack.Tree("0 B"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A Z B") + startNamed + MoveEffect("B", 2, 1) + endGroup);
    EXPECT_EQ(stack.Stack(), "A B Z");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, AnEffectOutsideTheTreeIsPushedAside)
{
    StackScene& stack = Make("A B C");

    (void)stack.Change(stack.Tree("C B"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B C") + startNamed + MoveEffect("C", 2, 0) +
                                 MoveEffect("B", 2, 1) + endGroup);
    EXPECT_EQ(stack.Stack(), "C B A");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, APositionPastTheStackIsRefused)
{
    // The refused move of A is believed: A is taken to stand at the end.
    StackScene& stack = Make("A B");
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "positions count that nobody fills");

    EXPECT_EQ(stack.Change(stack.Tree("? ? ? A B")).thrown, "");

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B") + startNamed +
                                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                                 "Effect 1 AEGP_ReorderEffect(effect A, 3) = 3\n"
                                 "Effect 1 AEGP_DisposeEffect(effect A)\n"
                                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                                 "Effect 1 AEGP_ReorderEffect(effect A, 4) = 3\n"
                                 "Effect 1 AEGP_DisposeEffect(effect A)\n" +
                                 endGroup);
    EXPECT_EQ(stack.Stack(), "A B");
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerEffectChangesOrder, OfTwinsTheUpperIsMovedTwice)
{
    StackScene& stack = Make("A B C");
    stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
    stack.host.Effect("B").customName = "A";

    (void)stack.Change(stack.Tree("C A B"));

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A B C") + startNamed + MoveEffect("C", 2, 0) +
                                 MoveEffect("A", 1, 1) + MoveEffect("A", 1, 2) + endGroup);
    EXPECT_EQ(stack.Stack(), "C B A");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesOrder, TheOrderIsUnnamedAfterAnyOtherDifference)
{
    for (const std::string what : {"name", "group", "active"})
    {
        StackScene& stack = Make("A B", EveryGroupShows());
        Items tree = stack.Tree("B A");
        if (what == "name")
            ItemNamed(tree, "A").name = "Front";
        else if (what == "group")
            ItemNamed(tree, "A").group = 2;
        else
            ItemNamed(tree, "A").active = 0;

        (void)OutputOf([&] { (void)stack.Change(tree); });

        EXPECT_EQ(stack.host.UndoNames().back(), "") << what;
        EXPECT_EQ(stack.Stack(), "B A") << what;
        EXPECT_TRUE(stack.UndoBringsBackTheStart()) << what;
        EXPECT_EQ(stack.host.FindingsReport(), "") << what;
    }
}

TEST_F(LayerEffectChangesOrder, ANullLayerAcquiresNoSuite)
{
    StackScene& stack = Make("A B");
    const Items layerItems = stack.LayerItems();
    const Items tree = stack.Tree("B A");

    EXPECT_EQ(stack.ChangeOn(nullptr, layerItems, tree).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.Stack(), "A B");
}
} // namespace
} // namespace standin
