// A name that differs in the tree is given to the effect's own stream group on the layer.

#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesNames = StackTest;

TEST_F(LayerEffectChangesNames, ADifferentNameIsOneStreamUndoStep)
{
    StackScene& stack = Make("A B");
    Items tree = stack.Tree("A B");
    ItemNamed(tree, "B").name = "Front";
    const std::string reading = ReadIdentities(stack, "A B");

    EXPECT_EQ(stack.Change(tree).thrown, "");

    EXPECT_EQ(stack.Calls(), reading +
                                 "Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")\n"
                                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B\n"
                                 "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) -> stream B.1\n"
                                 "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.1) -> stream B\n"
                                 "DynamicStream 2 AEGP_SetStreamName(stream B, \"Front\")\n"
                                 "Utility 3 AEGP_EndUndoGroup()\n"
                                 "Stream 7 AEGP_DisposeStream(stream B.1)\n"
                                 "Stream 7 AEGP_DisposeStream(stream B)\n"
                                 "Effect 1 AEGP_DisposeEffect(effect B)\n" +
                                 reading + "Utility 3 AEGP_StartUndoGroup(\"\")\n" + MoveEffect("A", 0, 0) +
                                 MoveEffect("B", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: Front, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
}

TEST_F(LayerEffectChangesNames, ARenameHoldsItsOwnSuites)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "Front";

    (void)stack.Change(tree);

    EXPECT_EQ(stack.CallsWithSuites(),
              "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Basic AcquireSuite(\"AEGP Layer Suite\", 5)\n"
              "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_GetEffectFlags(effect A) -> 1\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 3)\n"
              "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 5 uuid "
              "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001\n"
              "Effect 3 AEGP_DisposeEffect(effect A)\n"
              "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
              "Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Basic AcquireSuite(\"AEGP Stream Suite\", 4)\n"
              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
              "Basic AcquireSuite(\"AEGP Dynamic Stream Suite\", 2)\n"
              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
              "DynamicStream 2 AEGP_SetStreamName(stream A, \"Front\")\n"
              "Utility 3 AEGP_EndUndoGroup()\n"
              "Basic AcquireSuite(\"AEGP Stream Suite\", 7)\n"
              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
              "Stream 7 AEGP_DisposeStream(stream A)\n"
              "Effect 1 AEGP_DisposeEffect(effect A)\n"
              "Basic ReleaseSuite(\"AEGP Dynamic Stream Suite\", 2)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
              "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
              "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)\n"
              "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)\n"
              "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Basic AcquireSuite(\"AEGP Layer Suite\", 5)\n"
              "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_GetEffectFlags(effect A) -> 1\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 3)\n"
              "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 5 uuid "
              "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001\n"
              "Effect 3 AEGP_DisposeEffect(effect A)\n"
              "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
              "Utility 3 AEGP_StartUndoGroup(\"\")\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_ReorderEffect(effect A, 0)\n"
              "Effect 1 AEGP_DisposeEffect(effect A)\n"
              "Utility 3 AEGP_EndUndoGroup()\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
              "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
              "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n");
}

TEST_F(LayerEffectChangesNames, TwoRenamesAreTwoStepsInTreeOrder)
{
    StackScene& stack = Make("A B C", EveryGroupShows());
    Items tree = stack.Tree("C A B");
    ItemNamed(tree, "A").name = "First on the layer";
    ItemNamed(tree, "C").name = "First in the tree";
    const std::string reading = ReadIdentities(stack, "A B C");

    (void)stack.Change(tree);

    EXPECT_EQ(stack.Calls(), reading + RenameEffect("C", 2, "First in the tree") + reading +
                                 RenameEffect("A", 0, "First on the layer") + reading +
                                 "Utility 3 AEGP_StartUndoGroup(\"\")\n" + MoveEffect("C", 2, 0) +
                                 MoveEffect("A", 1, 1) + MoveEffect("B", 2, 2) +
                                 "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)][]");
    EXPECT_TRUE(stack.host.Undo());
    EXPECT_EQ(stack.Stack(), "A B C");
    EXPECT_TRUE(stack.host.Undo());
    EXPECT_EQ(stack.host.NameOf("A"), "A");
    EXPECT_EQ(stack.host.NameOf("C"), "First in the tree");
    EXPECT_TRUE(stack.host.Undo());
    EXPECT_EQ(stack.host.NameOf("C"), "C");
}

TEST_F(LayerEffectChangesNames, RenameAndMoveAreNamedAndUnnamedSteps)
{
    StackScene& stack = Make("A B");
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "A").name = "Front";

    (void)stack.Change(tree);

    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][]");
    EXPECT_EQ(stack.Stack(), "B A");
    EXPECT_EQ(stack.host.NameOf("A"), "Front");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesNames, AnEmptyNameGoesToTheHost)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "";
    const std::string reading = ReadIdentities(stack, "A");

    (void)stack.Change(tree);

    EXPECT_EQ(stack.Calls(), reading + RenameEffect("A", 0, "") + reading +
                                 "Utility 3 AEGP_StartUndoGroup(\"\")\n" + MoveEffect("A", 0, 0) +
                                 "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.host.NameOf("A"), "");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesNames, AnEmptyNameCanBringBackTheDefault)
{
    HostOptions options;
    options.emptyName = EmptyName::resetsToDefault;
    StackScene& stack = Make("A", options);
    Items tree = stack.Tree("A");
    tree[0].name = "";

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), "Vortan Route Object");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesNames, NonUtf8BytesGoToTheHostUnchanged)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "caf\xE9 \xFF\xFE \xC3\x28 \x01\x7F";

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), "caf\xE9 \xFF\xFE \xC3\x28 \x01\x7F");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesNames, AVeryLongNameGoesUncut)
{
    StackScene& stack = Make("A");
    const std::string longName(100000, 'x');
    Items tree = stack.Tree("A");
    tree[0].name = longName;

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), longName);
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesNames, ANameEndsAtItsFirstZeroByte)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = std::string("Fro\0nt", 6);

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), "Fro");
}

TEST_F(LayerEffectChangesNames, ARenameFindsTheEffectsPresentIndex)
{
    StackScene& stack = Make("A B C");
    const Items before = stack.LayerItems();
    Items tree = stack.Tree("A B C");
    ItemNamed(tree, "A").name = "Front";
    stack.host.User().Reorder("A", 2);

    (void)stack.Change(before, tree);

    EXPECT_EQ(stack.Report(), "A: Front, group 0, on\nB: B, group 0, on\nC: C, group 0, on\n");
}

TEST_F(LayerEffectChangesNames, ReorderInsideAMessageRenamesAnotherEffect)
{
    StackScene& stack = Make("A B C");
    Items tree = stack.Tree("A B C");
    ItemNamed(tree, "B").name = "Shaker";
    // The place of B is known by then, and is A's from here on.
    stack.host.Effect("C").behaviour = ActsInMessage([](Host& host) { host.User().Reorder("C", 0); });

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), "Shaker");
    EXPECT_EQ(stack.host.NameOf("B"), "B");
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST_F(LayerEffectChangesNames, AnEffectThatLeftIsNotRenamed)
{
    StackScene& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    Items tree = stack.Tree("A B");
    ItemNamed(tree, "B").name = "Front";
    stack.host.User().Delete("B");
    const std::string reading = ReadIdentities(stack, "A");

    (void)stack.Change(before, tree);

    EXPECT_EQ(stack.Calls(), reading + reading + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                                 MoveEffect("A", 0, 0) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Steps(), "[Delete Effect][]") << "the difference was met, so the order has no name";
}

TEST_F(LayerEffectChangesNames, ANullLayerMakesNoHostCall)
{
    StackScene& stack = Make("A B");
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "A").name = "Front";

    EXPECT_EQ(stack.ChangeOn(nullptr, stack.LayerItems(), tree).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerEffectChangesNames, OtherStepsLeaveNoTraceOfARename)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "100% %s %n";

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "");

    EXPECT_EQ(stack.host.NameOf("A"), "100% %s %n");
    EXPECT_EQ(stack.host.ViewLog(), ViewEvents());
}
} // namespace
} // namespace standin
