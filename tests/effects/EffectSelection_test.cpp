// Which effect of a layer belongs to which class, and what happens to each class in which order.

#include "effects/EffectSelection.h"
#include "standin/host/family/Liars.h"
#include "tests/effects/SelectionArguments.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
constexpr bool touchMain = true;
constexpr bool leaveMain = false;

/// One selection on one stack.
struct SelectionRow
{
    const char* test;
    const char* stack;
    bool useHide;
    bool touchMain;
    const char* selected;
    const char* touched; ///< What is done to which effect, in order; see TracedStack::Touch.
    const char* after;   ///< The stack then, and nothing of it can be undone.
    const char* open = "";
    const char* closed = "";
};

/// The stack on which every class stands, two of those whose order matters.
const char* const everyClass = "A K X B M L C";

const SelectionRow rows[] = {
    {"HidesFromTheTopShowsFromTheBottom", everyClass, hideThem, leaveMain, "A C", "-B -L +C +A",
     "A K X B~ M L~ C", "C A"},
    {"TwirlingGoesTheSameWay", everyClass, twirlThem, leaveMain, "A C", "<B <L >C >A", everyClass, "C A",
     "B M"},
    {"HidingShowsTheMainEffectLast", everyClass, hideThem, touchMain, "A C", "-B -L +C +A +M",
     "A K X B~ M L~ C", "C A M"},
    {"TwirlingOpensTheMainEffectLast", everyClass, twirlThem, touchMain, "A C", "<B <L >C >A >M", everyClass,
     "C A M"},
    {"NothingSelectedHidesAllButKitAndMain", "A K M B X", hideThem, leaveMain, "", "-A -B", "A~ K M B~ X"},
    {"AllSelectedShowsAllFromTheBottom", "A K M B", hideThem, leaveMain, "A B K M", "+B +M +K +A", "A K M B"},
    {"TheOrderOfSelectedItemsDoesNotMatter", "A B C", hideThem, leaveMain, "C A C", "-B +C +A", "A B~ C"},
    {"ASelectedKitIsShownLikeAnyOther", "K A", hideThem, leaveMain, "K", "-A +K", "K A~"},
    {"ASelectedTouchedMainIsShownTwice", "M A", hideThem, touchMain, "M", "-A +M +M", "M A~"},
    {"ASelectedUntouchedMainIsShownOnce", "M", hideThem, leaveMain, "M", "+M", "M"},
    {"OfTwoMainEffectsTheLowerIsTouched", "M1 A M2", hideThem, touchMain, "", "-A +M2", "M1 A~ M2"},
    {"WithoutAMainEffectNothingIsPrinted", "A L", hideThem, touchMain, "", "-A -L", "A~ L~"},
    {"UnknownAndZeroIdentitiesHaveNoEffect", "X A", hideThem, leaveMain, "? 0", "-A", "X A~"},
    {"OnlyTheIdentityOfASelectedItemCounts", "A", hideThem, leaveMain, "A=another@7!", "+A", "A"},
    {"OutsideEffectsAreNotCalledAfterTheRead", "X1 X2", hideThem, touchMain, "", "", "X1 X2"},
};

void PrintTo(const SelectionRow& row, std::ostream* out) { *out << row.selected << " of " << row.stack; }

class EffectSelection : public StackTest
{
};

class Selection : public StackTest, public ::testing::WithParamInterface<SelectionRow>
{
};

TEST_P(Selection, MakesTheseCalls)
{
    const SelectionRow& row = GetParam();
    LabelledStack& stack = Make(row.stack);
    const TracedStack traced = stack.Traced();
    const bool touchesMain = row.touchMain && std::string(row.stack).find('M') != std::string::npos;

    const std::string printed = OutputOf(
        [&] { EXPECT_EQ(stack.Select(row.useHide, row.touchMain, stack.Tree(row.selected)).thrown, ""); });

    EXPECT_EQ(printed, touchesMain ? "touching main effect\n" : "");
    ExpectCalls(Sequence({traced.Read(), traced.Classify(), traced.Touch(row.touched)}));
    EXPECT_EQ(stack.Text(), row.after);
    EXPECT_EQ(stack.Steps(), "");
    for (const std::string& label : Words(row.closed))
        EXPECT_FALSE(stack.host.IsOpen(label)) << label;
    for (const std::string& label : Words(row.open))
        EXPECT_TRUE(stack.host.IsOpen(label)) << label;
}

INSTANTIATE_TEST_SUITE_P(Of, Selection, ::testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.test); });

TEST_F(EffectSelection, TheLineIsPrintedBeforeTheMainEffect)
{
    // Without a suite for the undo group there is no call of the touch, but the line.
    for (const bool useHide : {hideThem, twirlThem})
    {
        LabelledStack& stack = Make("M");
        stack.host.Faults().Withhold("AEGP Utility Suite", 3);
        stack.host.Expect("exception-left-hook", "", "the suite of the undo groups is missing");
        HookResult result;
        EXPECT_EQ(OutputOf([&] { result = stack.Select(useHide, touchMain, {}); }), "touching main effect\n");
        EXPECT_EQ(result.thrownNumber, 516);
    }
}

TEST_F(EffectSelection, MatchNamesAreComparedWhole)
{
    LabelledStack& stack = Make("");
    for (const char* matchName :
         {"QVK VORTAN", "QVK VORTAN TWO ", "QVK VORTKIT2", "QVK VORTKI", "qvk vortkit"})
    {
        InstalledEffect effect = *stack.host.FindInstalled("QVK VORTSRC Routes");
        effect.key = 0;
        effect.matchName = matchName;
        if (stack.host.FindInstalled(matchName) == nullptr)
            (void)stack.host.Install(effect);
        (void)stack.host.AddEffect(stack.layerId, matchName);
    }

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, {}); }), "");

    for (const EffectInstance& effect : stack.host.State().FindLayer(stack.layerId)->effects)
        EXPECT_TRUE(effect.groupHidden) << effect.label;
}

TEST_F(EffectSelection, SelectedIdentitiesAreComparedByLengthAndBytes)
{
    LabelledStack& stack = Make("A");
    const std::string uuid = stack.Uuid("A");
    Items selected;
    for (const std::string& other : {uuid + " ", uuid.substr(0, 35), std::string()})
        selected.push_back({other, "A", 0, 1, ""});

    (void)stack.Select(hideThem, leaveMain, selected);

    EXPECT_TRUE(stack.host.Effect("A").groupHidden);
}

TEST_F(EffectSelection, AHiddenKitStaysHidden)
{
    LabelledStack& stack = Make("K A");
    stack.host.Effect("K").groupHidden = true;
    (void)stack.Select(hideThem, leaveMain, {});
    EXPECT_EQ(stack.Text(), "K~ A~");
}

TEST_F(EffectSelection, TwinsOfASelectedIdentityAreBothShown)
{
    LabelledStack& stack = Make("A B C");
    stack.host.Effect("C").family.uuid = stack.host.Effect("A").family.uuid;
    const TracedStack traced = stack.Traced();

    (void)stack.Select(hideThem, leaveMain, stack.Tree("A"));

    ExpectCalls(Sequence({traced.Read(), traced.Classify(), traced.Touch("-B +C +A")}));
}

TEST_F(EffectSelection, SilentFamilyEffectsCountAsOutside)
{
    LabelledStack& stack = Make("A M");
    stack.host.Effect("A").behaviour = FailsWith(errGeneric);
    stack.host.Effect("M").behaviour = FailsWith(errGeneric);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, {}); }), "");

    EXPECT_EQ(stack.Text(), "A M");
}

TEST_F(EffectSelection, EffectsThatAreOffCountLikeOthers)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").flags = 0;
    stack.host.Effect("B").flags = 0;
    const TracedStack traced = stack.Traced();

    (void)stack.Select(hideThem, leaveMain, stack.Tree("B"));

    ExpectCalls(Sequence({traced.Read(), traced.Classify(), traced.Touch("-A +B")}));
    EXPECT_EQ(stack.Text(), "A!~ B!");
}

TEST_F(EffectSelection, AnEmptyLayerIsReadAndCounted)
{
    LabelledStack& stack = Make("");

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, stack.Tree("?")); }), "");

    EXPECT_EQ(stack.CallsWithSuites(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0\n"
                                       "Basic AcquireSuite(\"AEGP Layer Suite\", 5)\n"
                                       "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101\n"
                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
                                       "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n");
}

TEST_F(EffectSelection, ANullLayerMakesNoHostCall)
{
    LabelledStack& stack = Make("A M");
    for (const bool useHide : {hideThem, twirlThem})
    {
        const Items selected = stack.Tree("A");

        EXPECT_EQ(
            OutputOf([&] { EXPECT_EQ(stack.SelectOn(nullptr, useHide, touchMain, selected).thrown, ""); }),
            "");

        EXPECT_EQ(stack.CallsWithSuites(), "");
    }
}

TEST_F(EffectSelection, ANullBasicSuiteThrowsIfLayerGiven)
{
    LabelledStack& stack = Make("A");
    const AEGP_LayerH layer = stack.Layer();
    stack.host.ClearTrace();
    stack.host.Expect("exception-left-hook", "", "a null basic suite is a missing suite").Times(1);

    const HookResult result = stack.host.RunInHook(
        [&] { SelectEffectsFromItems(stack.Id(), nullptr, layer, hideThem, leaveMain, {}); });
    const HookResult withoutLayer = stack.host.RunInHook(
        [&] { SelectEffectsFromItems(stack.Id(), nullptr, nullptr, hideThem, leaveMain, {}); });

    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(withoutLayer.thrown, "");
    EXPECT_EQ(stack.CallsWithSuites(), "");
}
} // namespace
} // namespace standin
