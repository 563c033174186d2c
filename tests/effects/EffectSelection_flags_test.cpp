// The calls that switch the hidden flags, by suite version, and their result.

#include "standin/host/family/Liars.h"
#include "tests/effects/SelectionArguments.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
class EffectSelectionFlags : public StackTest
{
protected:
    /// Selects the effects with these labels and leaves the main effect alone; gives the stack then.
    std::string Select(bool useHide, const std::string& labels)
    {
        (void)scene->Select(useHide, false, scene->Tree(labels));
        return scene->Text();
    }

    void ExpectSweep(const Calls& expected) const { EXPECT_EQ(TextOf(scene->Sweep()), TextOf(expected)); }

    /// The stack, in which the effect does this when it is asked for its identity, the last that the reading
    /// asks of it.
    LabelledStack& MakeMeddler(const std::string& labels, const std::string& label,
                               const std::function<void(Host&)>& action)
    {
        LabelledStack& stack = Make(labels);
        stack.host.Effect(label).behaviour = ActsInMessage(action, 2);
        return stack;
    }

    /// The effect that was added last.
    TracedStack TracedWith(const std::string& labels)
    {
        return TracedStackOf(*scene, Words(labels + " " + scene->Traced().effects.back().label));
    }
};

TEST_F(EffectSelectionFlags, HidingUsesTheNewerTable)
{
    (void)Make("A");
    EXPECT_EQ(Select(hideThem, ""), "A~");
    ExpectSweep({"Utility 3 AEGP_StartUndoGroup(\"\")",
                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                 "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1",
                 "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A",
                 "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0",
                 "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)",
                 "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 1)",
                 "Utility 3 AEGP_EndUndoGroup()", "Stream 7 AEGP_DisposeStream(stream A.1)",
                 "Stream 7 AEGP_DisposeStream(stream A)", "Effect 1 AEGP_DisposeEffect(effect A)"});
}

TEST_F(EffectSelectionFlags, ShowingPulsesTheParameterByTheOlderTable)
{
    Make("A").host.Effect("A").groupHidden = true;
    EXPECT_EQ(Select(hideThem, "A"), "A");
    ExpectSweep({"Utility 3 AEGP_StartUndoGroup(\"\")",
                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                 "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1",
                 "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A",
                 "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0",
                 "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)",
                 "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)",
                 "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)",
                 "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 0)",
                 "Utility 3 AEGP_EndUndoGroup()", "Stream 7 AEGP_DisposeStream(stream A.1)",
                 "Stream 7 AEGP_DisposeStream(stream A)", "Effect 1 AEGP_DisposeEffect(effect A)"});
    EXPECT_EQ(scene->host.ViewLog(), (ViewEvents{"reveal A", "open A", "reveal A.1"}));
    EXPECT_TRUE(scene->host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, TwirlingOpenPulsesTheFirstParameter)
{
    (void)Make("A");
    EXPECT_EQ(Select(twirlThem, "A"), "A");
    ExpectSweep(scene->Traced().Touch(">A"));
    EXPECT_THAT(scene->CallList(),
                ::testing::Contains("DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)"));
    EXPECT_TRUE(scene->host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, TwirlingClosedPulsesTheGroup)
{
    (void)Make("A");
    (void)Select(twirlThem, "A");
    ASSERT_TRUE(scene->host.IsOpen("A"));
    EXPECT_EQ(Select(twirlThem, ""), "A");
    ExpectSweep(scene->Traced().Touch("<A"));
    EXPECT_THAT(scene->CallList(),
                ::testing::Contains("DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 1)"));
    EXPECT_FALSE(scene->host.IsOpen("A"));
}

TEST_F(EffectSelectionFlags, SequencesRunEvenIfNothingHasToChange)
{
    Make("A B").host.Effect("A").groupHidden = true;
    for (int time = 0; time < 2; ++time)
    {
        EXPECT_EQ(Select(hideThem, "B"), "A~ B");
        ExpectSweep(scene->Traced().Touch("-A +B"));
    }
}

TEST_F(EffectSelectionFlags, AHiddenParameterStaysHiddenAfterAShow)
{
    Make("A").host.Effect("A").parameters.at(1).hidden = true;
    const Calls shown = scene->Traced().Touch("+A");
    EXPECT_EQ(Select(hideThem, "A"), "A~1");
    ExpectSweep(shown);
    EXPECT_EQ(shown.at(4), "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 2");
    EXPECT_EQ(shown.at(8), "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream A.1, 2, 0, 1)");
}

TEST_F(EffectSelectionFlags, AHiddenParameterShowsAfterATwirlOpen)
{
    Make("A").host.Effect("A").parameters.at(1).hidden = true;
    EXPECT_EQ(Select(twirlThem, "A"), "A");
}

TEST_F(EffectSelectionFlags, AHiddenParameterSurvivesHideAndTwirlClosed)
{
    Make("A").host.Effect("A").parameters.at(1).hidden = true;
    EXPECT_EQ(Select(hideThem, ""), "A~~1");
    EXPECT_EQ(Select(twirlThem, ""), "A~1") << "a twirl leaves the group's flag clear";
}

TEST_F(EffectSelectionFlags, ATwirlOpenLeavesAHiddenGroupHidden)
{
    Make("A").host.Effect("A").groupHidden = true;
    EXPECT_EQ(Select(twirlThem, "A"), "A~");
}

TEST_F(EffectSelectionFlags, TheOtherParametersKeepTheirFlags)
{
    Make("A B").host.Effect("A").parameters.at(2).hidden = true;
    scene->host.Effect("B").parameters.at(2).hidden = true;
    EXPECT_EQ(Select(hideThem, "B"), "A~~2 B~2");
}

TEST_F(EffectSelectionFlags, EachEffectIsANamelessEmptyGroup)
{
    LabelledStack& stack = Make("A B M", EveryGroupShows());
    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, true, stack.Tree("B")); }),
              "touching main effect\n");
    EXPECT_EQ(stack.Steps(), "[][][]");
    EXPECT_EQ(stack.Text(), "A~ B M");
    while (stack.host.Undo())
    {
    }
    EXPECT_EQ(stack.Text(), "A~ B M") << "visibility is not undone";
}

TEST_F(EffectSelectionFlags, ShowingAfterAHideBringsTheEffectBack)
{
    (void)Make("A B");
    EXPECT_EQ(Select(hideThem, "B"), "A~ B");
    EXPECT_EQ(Select(hideThem, "A"), "A B~");
}

// The stack changes between the reading of the items and the sweep.

TEST_F(EffectSelectionFlags, AnEffectAddedAfterReadingCountsAsOther)
{
    for (const char* matchName : {"QVK VORTSRC GEO", "ADBE Tint"})
    {
        SCOPED_TRACE(matchName);
        (void)MakeMeddler("A B", "B", [=](Host& host) { (void)host.User().Apply(1, matchName); });
        (void)Select(hideThem, "A");
        const TracedStack traced = TracedWith("A B");
        const std::string joined = traced.effects.back().label;
        ExpectSweep(traced.Touch("-B -" + joined + " +A")); // Also if it is from outside the family.
        EXPECT_TRUE(scene->host.Effect(joined).groupHidden);
    }
}

TEST_F(EffectSelectionFlags, AKitAddedAfterReadingIsLeftAlone)
{
    (void)MakeMeddler("A B", "B", [](Host& host) { (void)host.User().Apply(1, "QVK VORTKIT"); });
    (void)Select(hideThem, "A");
    ExpectSweep(TracedWith("A B").Touch("-B +A"));
}

TEST_F(EffectSelectionFlags, AMainAddedAfterReadingIsTouched)
{
    LabelledStack& stack =
        MakeMeddler("M B", "B", [](Host& host) { (void)host.User().Apply(1, "QVK VORTAN TWO"); });
    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, true, {}); }), "touching main effect\n");
    const TracedStack traced = TracedWith("M B");
    ExpectSweep(traced.Touch("-B +" + traced.effects.back().label));
}

TEST_F(EffectSelectionFlags, ASelectedLostEffectLeavesItsGroupOpen)
{
    LabelledStack& stack = MakeMeddler("A B C", "C", [](Host& host) { host.User().Delete("C"); });
    stack.host.Expect("index-out-of-range", "AEGP_GetLayerEffectByIndex", "the read index is past the stack");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    stack.host.Expect("nested-undo-group", "AEGP_StartUndoGroup", "the next one is opened inside it");
    (void)Select(hideThem, "B C");
    const TracedStack left = stack.Traced();
    ExpectSweep(Sequence(
        {left.Touch("-A"),
         {"Utility 3 AEGP_StartUndoGroup(\"\")", "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) = 3"},
         left.Touch("+B")}));
}

TEST_F(EffectSelectionFlags, AnEffectWithoutParameterLeavesItsGroupOpen)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").parameters.resize(1);
    stack.host.Expect("parameter-index", "AEGP_GetNewEffectStreamByIndex", "there is no first parameter");
    stack.host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "an error leaves the group open");
    stack.host.Expect("nested-undo-group", "AEGP_StartUndoGroup", "the next one is opened inside it");
    (void)Select(hideThem, "");
    ExpectSweep(Sequence({{"Utility 3 AEGP_StartUndoGroup(\"\")",
                           "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                           "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) = 3",
                           "Effect 1 AEGP_DisposeEffect(effect A)"},
                          stack.Traced().Touch("-B")}));
}
} // namespace
} // namespace standin
