// A group that differs in the tree is told to the effect, and to no other, by message.

#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesGroups = StackTest;

TEST_F(LayerEffectChangesGroups, ADifferenceIsLineMessageUnnamedStep)
{
    const TracedStack traced = Make("A B", EveryGroupShows()).Traced();
    EXPECT_EQ(
        ExpectChange("A B@4",
                     traced.AfterReading(
                         {{"Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                           "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
                           "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                           "Effect 1 AEGP_GetEffectFlags(effect B) -> 1",
                           "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 3 group 4)",
                           "Effect 3 AEGP_DisposeEffect(effect B)"},
                          traced.OrderInPlace("")}),
                     "A B@4", "[Change Group][]"),
        "Setting Group: B\n");
}

TEST_F(LayerEffectChangesGroups, AChangeHoldsTheMessagesThreeSuites)
{
    (void)Make("A").ChangeTo("A@4");

    EXPECT_EQ(scene->TakePrinted(), "Setting Group: A\n");
    EXPECT_THAT(scene->CallsWithSuites(),
                ::testing::HasSubstr(
                    "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 3 group 4)\n"
                    "Effect 3 AEGP_DisposeEffect(effect A)\n"
                    "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                    "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
                    "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
                    "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"));
}

TEST_F(LayerEffectChangesGroups, EachDifferenceIsALineInTreeOrder)
{
    const TracedStack traced = Make("A B C").Traced();
    EXPECT_EQ(ExpectChange("C@3 A@3 B",
                           traced.AfterReading({traced.TellGroup("C", 3), traced.TellGroup("A", 3),
                                                traced.Order("", "C 2>0 A 1>1 B 2>2")}),
                           "C@3 A@3 B", "[Change Group][Change Group][]"),
              "Setting Group: C\nSetting Group: A\n");
}

TEST_F(LayerEffectChangesGroups, TheLineShowsTheTreesName)
{
    LabelledStack& stack = Make("A");
    Items tree = stack.Tree("A@1");
    tree[0].name = "50% %s\xFF";
    (void)stack.ChangeTo(stack.LayerItems(), tree);
    EXPECT_EQ(stack.TakePrinted(), "Setting Group: 50% %s\xFF\n");
}

TEST_F(LayerEffectChangesGroups, AnEmptyNameLeavesTheLineEmpty)
{
    (void)Make("A").ChangeTo("A=@1");
    EXPECT_EQ(scene->TakePrinted(), "Setting Group: \n");
}

TEST_F(LayerEffectChangesGroups, MinusOneMeansTheTopLevel)
{
    Make("A").host.Effect("A").family.group = 2;
    const TracedStack traced = scene->Traced();
    EXPECT_EQ(ExpectChange("A@-1", traced.AfterReading({traced.TellGroup("A", -1), traced.OrderInPlace("")}),
                           "A", "[Change Group]"),
              "Setting Group: A\n");
    EXPECT_EQ(scene->Text(), "A@2") << "after an undo";
}

TEST_F(LayerEffectChangesGroups, AnEffectThatStoresMinusOneIsTold)
{
    HostOptions options;
    options.groupMinusOne = GroupMinusOne::isStored;
    options.groupUndo = GroupUndo::isNotUndoable;

    (void)Make("A", options).ChangeTo("A@-1");

    EXPECT_EQ(scene->TakePrinted(), "Setting Group: A\n");
    EXPECT_EQ(scene->Text(), "A@-1");
    EXPECT_EQ(scene->Steps(), "");
}

TEST_F(LayerEffectChangesGroups, ARigidEffectKeepsItsGroup)
{
    LabelledStack& stack = Make("A");
    stack.host.Effect("A").family.rigidity = Rigidity::rigid;
    ASSERT_EQ(stack.LayerItems()[0].group, -1);

    (void)stack.ChangeTo("A@3");

    EXPECT_EQ(stack.TakePrinted(), "Setting Group: A\n");
    EXPECT_EQ(stack.host.RuntimeOf(stack.host.Effect("A").id).messages, 3)
        << "asked for its identity, told its group, asked for its identity";
    ASSERT_EQ(stack.LayerItems()[0].group, -1);
}

TEST_F(LayerEffectChangesGroups, ANullLayerPrintsLinesAndCallsNobody)
{
    LabelledStack& stack = Make("A");
    const Items layerItems = stack.LayerItems();
    const Items tree = stack.Tree("A@3");

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.ChangeOn(nullptr, layerItems, tree).thrown, ""); }),
              "Setting Group: A\nLayerH is NULL\n");

    EXPECT_EQ(stack.CallsWithSuites(), "");
}

TEST_F(LayerEffectChangesGroups, ALostEffectIsPrintedButNotTold)
{
    LabelledStack& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    const Items tree = stack.Tree("B@3 A");
    stack.host.User().Delete("B");
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "the missing effect keeps its place");

    (void)stack.ChangeTo(before, tree);

    const TracedStack left = stack.Traced();
    EXPECT_EQ(stack.TakePrinted(), "Setting Group: B\n");
    ExpectCalls(left.AfterReading({{}, left.Order("", "A 0>1=3")}));
}

TEST_F(LayerEffectChangesGroups, AFailedMessageStopsNothingAfterIt)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").behaviour = AnswersAndFailsWith(errGeneric);

    EXPECT_EQ(stack.ChangeTo("B@5 A@5").thrown, "");

    EXPECT_EQ(stack.TakePrinted(), "Setting Group: B\nSetting Group: A\n");
    EXPECT_EQ(stack.Text(), "B@5 A@5");
}
} // namespace
} // namespace standin
