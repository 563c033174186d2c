// Every effect of the tree is moved to its position in the tree, one move each, whether it stands there or
// not.

#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
constexpr const char* step = "Reorder Effect(s)";

struct OrderRow
{
    const char* test;
    const char* stack;
    const char* tree;
    const char* moves; ///< See TracedStack::Order.
    const char* after;
};

const OrderRow rows[] = {
    {"AnOutsideEffectSinksBelowTheFamily", "X A B", "A B", "A 1>0 B 2>1", "A B X"},
    {"AMissingObjectKeepsItsPosition", "A B C", "A ? B", "A 0>0 B 1>2", "A C B"},
    // After B went to 2 the layer holds A C B D. The belief is still A B C D, so C is looked for at 2, where
    // B stands, and D at 3, where B has gone.
    {"AfterAMissingPositionAnotherEffectIsTaken", "A B C D E", "A ? B C D", "A 0>0 B 1>2 B 2>3 B 3>4",
     "A C D E B"},
    // A goes from 0 to 2: the layer holds B C A, and the belief is B A C. So C is looked for at 2.
    {"AJumpOfTwoIsTrackedOneShort", "A B C D", "? ? A C", "A 0>2 A 2>3", "B C D A"},
    {"AMoveUpPushesTheEntriesBetweenDown", "A B C D E", "A E D B C", "A 0>0 E 4>1 D 4>2 B 3>3 C 4>4",
     "A E D B C"},
    {"AStackIsTurnedAround", "A B C D E F G H I J", "J I H G F E D C B A",
     "J 9>0 I 9>1 H 9>2 G 9>3 F 9>4 E 9>5 D 9>6 C 9>7 B 9>8 A 9>9", "J I H G F E D C B A"},
    {"EqualListsMoveEveryEffectInPlace", "A B", "A B", "A 0>0 B 1>1", "A B"},
    {"AZeroIdentityFillsAPositionMovesNobody", "A X B", "0 B", "B 2>1", "A B X"},
    {"AnEffectOutsideTheTreeIsPushedAside", "A B C", "C B", "C 2>0 B 2>1", "C B A"},
};

class Order : public StackTest, public ::testing::WithParamInterface<OrderRow>
{
};

TEST_P(Order, IsMadeByTheseMoves)
{
    const OrderRow& row = GetParam();
    const TracedStack traced = Make(row.stack, EveryGroupShows()).Traced();
    EXPECT_EQ(ExpectChange(row.tree, traced.AfterReading({traced.Order(step, row.moves)}), row.after,
                           "[Reorder Effect(s)]"),
              "");
}

INSTANTIATE_TEST_SUITE_P(LayerEffectChanges, Order, ::testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.test; });

using LayerEffectChangesOrder = StackTest;

TEST_F(LayerEffectChangesOrder, TheLastEffectComesToTheTop)
{
    const TracedStack traced = Make("A B C").Traced();
    EXPECT_EQ(ExpectChange(
                  "C A B",
                  traced.AfterReading(
                      {{"Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")",
                        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C",
                        "Effect 1 AEGP_ReorderEffect(effect C, 0)", "Effect 1 AEGP_DisposeEffect(effect C)",
                        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect A",
                        "Effect 1 AEGP_ReorderEffect(effect A, 1)", "Effect 1 AEGP_DisposeEffect(effect A)",
                        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect B",
                        "Effect 1 AEGP_ReorderEffect(effect B, 2)", "Effect 1 AEGP_DisposeEffect(effect B)",
                        "Utility 3 AEGP_EndUndoGroup()"}}),
                  "C A B", "[Reorder Effect(s)]"),
              "");
}

TEST_F(LayerEffectChangesOrder, AnEmptyTreeMakesANamedEmptyGroup)
{
    LabelledStack& stack = Make("A X", EveryGroupShows());
    const TracedStack traced = stack.Traced();
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    (void)ExpectChange("", traced.AfterReading({traced.Order(step, "")}), "A X", "[Reorder Effect(s)]");
}

TEST_F(LayerEffectChangesOrder, AnEmptyTreeOnAnEmptyLayerToo)
{
    LabelledStack& stack = Make("");
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");

    EXPECT_EQ(stack.ChangeTo("").thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0\n"
                                       "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
                                       "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n"
                                       "Utility 3 AEGP_EndUndoGroup()\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n");
}

TEST_F(LayerEffectChangesOrder, APositionPastTheStackIsRefused)
{
    // The refused move of A is believed: A is taken to stand at the end.
    LabelledStack& stack = Make("A B");
    const TracedStack traced = stack.Traced();
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "positions count that nobody fills");
    (void)ExpectChange("? ? ? A B", traced.AfterReading({traced.Order(step, "A 0>3=3 A 0>4=3")}), "A B", "");
}

TEST_F(LayerEffectChangesOrder, OfTwinsTheUpperIsMovedTwice)
{
    LabelledStack& stack = Make("A B C");
    stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
    stack.host.Effect("B").customName = "A";
    const TracedStack traced = stack.Traced();
    (void)ExpectChange("C A B", traced.AfterReading({traced.Order(step, "C 2>0 A 1>1 A 1>2")}), "C B=A A",
                       "[Reorder Effect(s)]");
}

TEST_F(LayerEffectChangesOrder, TheOrderIsUnnamedAfterAnyOtherDifference)
{
    for (const char* tree : {"B A=Front", "B A@2", "B A!"})
    {
        LabelledStack& stack = Make("A B", EveryGroupShows());

        (void)stack.ChangeTo(tree);

        (void)stack.TakePrinted();
        EXPECT_EQ(stack.host.UndoNames().back(), "") << tree;
        EXPECT_EQ(stack.Text(), tree);
        EXPECT_TRUE(stack.UndoBringsBackTheStart()) << tree;
    }
}

TEST_F(LayerEffectChangesOrder, ANullLayerAcquiresNoSuite)
{
    LabelledStack& stack = Make("A B");

    EXPECT_EQ(stack.ChangeOn(nullptr, stack.LayerItems(), stack.Tree("B A")).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.Stack(), "A B");
}
} // namespace
} // namespace standin
