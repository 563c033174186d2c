// A group that differs in the tree is told to the effect by message, and to nobody else.

#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesGroups = StackTest;

TEST_F(LayerEffectChangesGroups, ADifferenceIsLineMessageUnnamedStep)
{
    StackScene& stack = Make("A B", EveryGroupShows());
    Items tree = stack.Tree("A B");
    ItemNamed(tree, "B").group = 4;
    const std::string reading = ReadIdentities(stack, "A B");

    const std::string output = OutputOf([&] { EXPECT_EQ(stack.Change(tree).thrown, ""); });

    EXPECT_EQ(output, "Setting Group: B\n");
    EXPECT_EQ(stack.Calls(),
              reading +
                  "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100\n"
                  "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2\n"
                  "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B\n"
                  "Effect 1 AEGP_GetEffectFlags(effect B) -> 1\n"
                  "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 3 group 4)\n"
                  "Effect 3 AEGP_DisposeEffect(effect B)\n" +
                  reading + "Utility 3 AEGP_StartUndoGroup(\"\")\n" + MoveEffect("A", 0, 0) +
                  MoveEffect("B", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 4, on\n");
    EXPECT_EQ(stack.Steps(), "[Change Group][]") << "no group of ours around the message";
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
}

TEST_F(LayerEffectChangesGroups, AChangeHoldsTheMessagesThreeSuites)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].group = 4;

    (void)OutputOf([&] { (void)stack.Change(tree); });

    const std::string toldAndGivenBack =
        "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 3 group 4)\n"
        "Effect 3 AEGP_DisposeEffect(effect A)\n"
        "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
        "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
        "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
        "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n";
    EXPECT_NE(stack.CallsWithSuites().find(toldAndGivenBack), std::string::npos) << stack.CallsWithSuites();
}

TEST_F(LayerEffectChangesGroups, EachDifferenceIsALineInTreeOrder)
{
    StackScene& stack = Make("A B C");
    Items tree = stack.Tree("C A B");
    for (ObjectItem& item : tree)
        item.group = item.name == "B" ? 0 : 3;

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: C\nSetting Group: A\n");

    EXPECT_EQ(stack.Report(), "C: C, group 3, on\nA: A, group 3, on\nB: B, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "[Change Group][Change Group][]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesGroups, TheLineShowsTheTreesName)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "50% %s\xFF";
    tree[0].group = 1;

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: 50% %s\xFF\n");
}

TEST_F(LayerEffectChangesGroups, AnEmptyNameLeavesTheLineEmpty)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = "";
    tree[0].group = 1;

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: \n");
}

TEST_F(LayerEffectChangesGroups, MinusOneMeansTheTopLevel)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").family.group = 2;
    Items tree = stack.Tree("A");
    tree[0].group = -1;
    const std::string reading = ReadIdentities(stack, "A");
    const std::string telling = TellGroup(stack, "A", 0, -1);

    (void)OutputOf([&] { (void)stack.Change(tree); });

    EXPECT_EQ(stack.Calls(), reading + telling + reading + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                                 MoveEffect("A", 0, 0) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.host.Effect("A").family.group, 0);
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.host.Effect("A").family.group, 2);
}

TEST_F(LayerEffectChangesGroups, AnEffectThatStoresMinusOneIsTold)
{
    HostOptions options;
    options.groupMinusOne = GroupMinusOne::isStored;
    options.groupUndo = GroupUndo::isNotUndoable;
    StackScene& stack = Make("A", options);
    Items tree = stack.Tree("A");
    tree[0].group = -1;

    (void)OutputOf([&] { (void)stack.Change(tree); });

    EXPECT_EQ(stack.host.Effect("A").family.group, -1);
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerEffectChangesGroups, ARigidEffectKeepsItsGroup)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").family.rigidity = Rigidity::rigid;
    Items tree = stack.Tree("A");
    ASSERT_EQ(tree[0].group, -1);
    tree[0].group = 3;

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: A\n");

    EXPECT_EQ(stack.host.RuntimeOf(stack.host.Effect("A").id).messages, 3)
        << "asked for its identity, told its group, asked for its identity";
    ASSERT_EQ(stack.LayerItems()[0].group, -1);
}

TEST_F(LayerEffectChangesGroups, ANullLayerPrintsLinesAndCallsNobody)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].group = 3;
    const Items layerItems = stack.LayerItems();

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.ChangeOn(nullptr, layerItems, tree).thrown, ""); }),
              "Setting Group: A\nLayerH is NULL\n");

    EXPECT_EQ(stack.CallsWithSuites(), "");
}

TEST_F(LayerEffectChangesGroups, ALostEffectIsPrintedButNotTold)
{
    StackScene& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "B").group = 3;
    stack.host.User().Delete("B");
    const std::string reading = ReadIdentities(stack, "A");
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "the missing effect keeps its place");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(before, tree); }), "Setting Group: B\n");

    EXPECT_EQ(stack.Calls(), reading + reading +
                                 "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                                 "Effect 1 AEGP_ReorderEffect(effect A, 1) = 3\n"
                                 "Effect 1 AEGP_DisposeEffect(effect A)\n"
                                 "Utility 3 AEGP_EndUndoGroup()\n");
}

TEST_F(LayerEffectChangesGroups, AFailedMessageStopsNothingAfterIt)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").behaviour = AnswersAndFailsWith(errGeneric);
    Items tree = stack.Tree("B A");
    for (ObjectItem& item : tree)
        item.group = 5;

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.Change(tree).thrown, ""); }),
              "Setting Group: B\nSetting Group: A\n");

    EXPECT_EQ(stack.Stack(), "B A");
    EXPECT_EQ(stack.host.Effect("B").family.group, 5);
}
} // namespace
} // namespace standin
