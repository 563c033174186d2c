// The sequences in which the hidden flags are switched, by suite version, and what they leave behind.

#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using EffectSelectionFlags = StackTest;

/// The part of the trace from the start of the first undo group on.
std::string sweepOf(StackScene& stack)
{
    const std::string calls = stack.Calls();
    const std::size_t start = calls.find("Utility 3 AEGP_StartUndoGroup");
    return start == std::string::npos ? "" : calls.substr(start);
}

TEST_F(EffectSelectionFlags, HidingUsesTheNewerTable)
{
    StackScene& stack = Make("A");

    (void)stack.Select(true, false, {});

    EXPECT_EQ(sweepOf(stack), "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
                              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
                              "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0\n"
                              "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)\n"
                              "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 1)\n"
                              "Utility 3 AEGP_EndUndoGroup()\n"
                              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
                              "Stream 7 AEGP_DisposeStream(stream A)\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hidden\n");
}

TEST_F(EffectSelectionFlags, ShowingPulsesTheParameterByTheOlderTable)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").groupHidden = true;

    (void)stack.Select(true, false, stack.Tree("A"));

    EXPECT_EQ(sweepOf(stack), "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
                              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
                              "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)\n"
                              "Utility 3 AEGP_EndUndoGroup()\n"
                              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
                              "Stream 7 AEGP_DisposeStream(stream A)\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n");
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\n");
    EXPECT_EQ(stack.host.ViewLog(), (ViewEvents{"reveal A", "open A", "reveal A.1"}));
    EXPECT_TRUE(stack.host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, TwirlingOpenPulsesTheFirstParameter)
{
    StackScene& stack = Make("A");

    (void)stack.Select(false, false, stack.Tree("A"));

    EXPECT_EQ(sweepOf(stack), "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
                              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)\n"
                              "Utility 3 AEGP_EndUndoGroup()\n"
                              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
                              "Stream 7 AEGP_DisposeStream(stream A)\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n");
    EXPECT_TRUE(stack.host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, TwirlingClosedPulsesTheGroup)
{
    StackScene& stack = Make("A");
    (void)stack.Select(false, false, stack.Tree("A"));
    ASSERT_TRUE(stack.host.IsOpen("A"));

    (void)stack.Select(false, false, {});

    EXPECT_EQ(sweepOf(stack), "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
                              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 1)\n"
                              "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)\n"
                              "Utility 3 AEGP_EndUndoGroup()\n"
                              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
                              "Stream 7 AEGP_DisposeStream(stream A)\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n");
    EXPECT_FALSE(stack.host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, SequencesRunEvenIfNothingHasToChange)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").groupHidden = true;
    const std::string expected = HideCalls(stack, "A", 0) + ShowCalls(stack, "B", 1);

    (void)stack.Select(true, false, stack.Tree("B"));
    EXPECT_EQ(sweepOf(stack), expected);

    (void)stack.Select(true, false, stack.Tree("B"));
    EXPECT_EQ(sweepOf(stack), expected);
}

TEST_F(EffectSelectionFlags, AHiddenParameterStaysHiddenAfterAShow)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").parameters.at(1).hidden = true;

    (void)stack.Select(true, false, stack.Tree("A"));

    const std::string calls = sweepOf(stack);
    EXPECT_NE(calls.find("DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 2\n"
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)\n"
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)\n"
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)\n"
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)\n"
                         "Utility 3 AEGP_EndUndoGroup()\n"),
              std::string::npos)
        << calls;
    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hides 1\n");
}

TEST_F(EffectSelectionFlags, AHiddenParameterShowsAfterATwirlOpen)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").parameters.at(1).hidden = true;

    (void)stack.Select(false, false, stack.Tree("A"));

    EXPECT_EQ(stack.Report(), "A: A, group 0, on\n");
}

TEST_F(EffectSelectionFlags, AHiddenParameterSurvivesHideAndTwirlClosed)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").parameters.at(1).hidden = true;

    (void)stack.Select(true, false, {});
    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hidden, hides 1\n");

    (void)stack.Select(false, false, {});
    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hides 1\n") << "a twirl leaves the group's flag clear";
}

TEST_F(EffectSelectionFlags, ATwirlOpenLeavesAHiddenGroupHidden)
{
    StackScene& stack = Make("A");
    stack.host.Effect("A").groupHidden = true;

    (void)stack.Select(false, false, stack.Tree("A"));

    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hidden\n");
}

TEST_F(EffectSelectionFlags, TheOtherParametersKeepTheirFlags)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").parameters.at(2).hidden = true;
    stack.host.Effect("B").parameters.at(2).hidden = true;

    (void)stack.Select(true, false, stack.Tree("B"));

    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hidden, hides 2\nB: B, group 0, on, hides 2\n");
}

TEST_F(EffectSelectionFlags, EachEffectIsANamelessEmptyGroup)
{
    StackScene& stack = Make("A B M", EveryGroupShows());

    (void)OutputOf([&] { (void)stack.Select(true, true, stack.Tree("B")); });

    EXPECT_EQ(stack.Steps(), "[][][]");
    const std::string after = stack.Report();
    EXPECT_EQ(after, "A: A, group 0, on, hidden\nB: B, group 0, on\nM: M, group 0, on\n");
    while (stack.host.Undo())
    {
    }
    EXPECT_EQ(stack.Report(), after) << "visibility is not undone";
}

TEST_F(EffectSelectionFlags, ShowingAfterAHideBringsTheEffectBack)
{
    StackScene& stack = Make("A B");
    (void)stack.Select(true, false, stack.Tree("B"));

    (void)stack.Select(true, false, stack.Tree("A"));

    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on, hidden\n");
    EXPECT_EQ(stack.Stack(), "A B");
    EXPECT_EQ(stack.host.NameOf("A"), "A");
}

// The stack changes between the reading of the items and the sweep.

/// The effect does this when it is asked for its identity, the last that the reading asks of it.
void meddle(StackScene& stack, const std::string& label, std::function<void(Host&)> action)
{
    stack.host.Effect(label).behaviour = ActsInMessage(std::move(action), 2);
}

TEST_F(EffectSelectionFlags, AnEffectAddedAfterReadingCountsAsOther)
{
    for (const char* matchName : {"QVK VORTSRC GEO", "ADBE Tint"})
    {
        SCOPED_TRACE(matchName);
        StackScene& stack = Make("A B");
        const int layer = stack.layerId;
        meddle(stack, "B", [=](Host& host) { (void)host.User().Apply(layer, matchName); });

        (void)stack.Select(true, false, stack.Tree("A"));

        const std::string joined = stack.host.State().FindLayer(layer)->effects.at(2).label;
        EXPECT_EQ(sweepOf(stack),
                  HideCalls(stack, "B", 1) + HideCalls(stack, joined, 2) + ShowCalls(stack, "A", 0))
            << "also if it is from outside the family";
        EXPECT_TRUE(stack.host.Effect(joined).groupHidden);
        EXPECT_EQ(stack.host.FindingsReport(), "");
    }
}

TEST_F(EffectSelectionFlags, AKitAddedAfterReadingIsLeftAlone)
{
    StackScene& stack = Make("A B");
    const int layer = stack.layerId;
    meddle(stack, "B", [=](Host& host) { (void)host.User().Apply(layer, "QVK VORTKIT"); });

    (void)stack.Select(true, false, stack.Tree("A"));

    EXPECT_EQ(sweepOf(stack), HideCalls(stack, "B", 1) + ShowCalls(stack, "A", 0));
}

TEST_F(EffectSelectionFlags, AMainAddedAfterReadingIsTouched)
{
    StackScene& stack = Make("M B");
    const int layer = stack.layerId;
    meddle(stack, "B", [=](Host& host) { (void)host.User().Apply(layer, "QVK VORTAN TWO"); });

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(true, true, {}); }), "touching main effect\n");

    const std::string joined = stack.host.State().FindLayer(layer)->effects.at(2).label;
    EXPECT_EQ(sweepOf(stack), HideCalls(stack, "B", 1) + ShowCalls(stack, joined, 2));
}

TEST_F(EffectSelectionFlags, ASelectedLostEffectLeavesItsGroupOpen)
{
    StackScene& stack = Make("A B C");
    meddle(stack, "C", [](Host& host) { host.User().Delete("C"); });
    stack.host.Expect("index-out-of-range", "AEGP_GetLayerEffectByIndex", "the read index is past the stack");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    stack.host.Expect("nested-undo-group", "AEGP_StartUndoGroup", "the next one is opened inside it");

    (void)stack.Select(true, false, stack.Tree("B C"));

    EXPECT_EQ(sweepOf(stack), HideCalls(stack, "A", 0) +
                                  "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                                  "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) = 3\n" +
                                  ShowCalls(stack, "B", 1));
}

TEST_F(EffectSelectionFlags, AnEffectWithoutParameterLeavesItsGroupOpen)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").parameters.resize(1);
    stack.host.Expect("parameter-index", "AEGP_GetNewEffectStreamByIndex", "there is no first parameter");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    stack.host.Expect("nested-undo-group", "AEGP_StartUndoGroup", "the next one is opened inside it");

    (void)stack.Select(true, false, {});

    EXPECT_EQ(sweepOf(stack), "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) = 3\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n" +
                                  HideCalls(stack, "B", 1));
}
} // namespace
} // namespace standin
