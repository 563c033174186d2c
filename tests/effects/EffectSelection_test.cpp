// Which effect of a layer belongs to which class, and what happens to each class in which order.

#include "effects/EffectSelection.h"
#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
class EffectSelection : public StackTest
{
protected:
    /// The calls before the first effect is touched.
    static std::string Head(StackScene& stack, const std::string& labels)
    {
        const std::vector<std::string> effects = Words(labels);
        std::string text = ReadLayer(stack, labels) + "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " +
                           std::to_string(effects.size()) +
                           "\n"
                           "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101\n";
        for (std::size_t i = 0; i < effects.size(); ++i)
            if (effects[i][0] != 'Z')
                text += AskMatchName(stack, effects[i], static_cast<int>(i));
        return text;
    }
};

constexpr bool hideThem = true;
constexpr bool twirlThem = false;
constexpr bool touchMain = true;
constexpr bool leaveMain = false;

/// The stack on which every class stands, two of those whose order matters.
const std::string everyClass = "A K Z B M L C";

TEST_F(EffectSelection, HidesFromTheTopShowsFromTheBottom)
{
    StackScene& stack = Make(everyClass);
    const std::string expected = Head(stack, everyClass) + HideCalls(stack, "B", 3) +
                                 HideCalls(stack, "L", 5) + ShowCalls(stack, "C", 6) +
                                 ShowCalls(stack, "A", 0);

    const std::string output =
        OutputOf([&] { EXPECT_EQ(stack.Select(hideThem, leaveMain, stack.Tree("A C")).thrown, ""); });

    EXPECT_EQ(output, "");
    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\n"
                              "K: K, group 0, on\n"
                              "Z: Z, group 0, on\n"
                              "B: B, group 0, on, hidden\n"
                              "M: M, group 0, on\n"
                              "L: L, group 0, on, hidden\n"
                              "C: C, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(EffectSelection, TwirlingGoesTheSameWay)
{
    StackScene& stack = Make(everyClass);
    const std::string expected = Head(stack, everyClass) + TwirlClosedCalls("B", 3) +
                                 TwirlClosedCalls("L", 5) + TwirlOpenCalls("C", 6) + TwirlOpenCalls("A", 0);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(twirlThem, leaveMain, stack.Tree("A C")); }), "");

    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nK: K, group 0, on\nZ: Z, group 0, on\nB: B, group 0, on\n"
                              "M: M, group 0, on\nL: L, group 0, on\nC: C, group 0, on\n");
    EXPECT_TRUE(stack.host.IsOpen("A"));
    EXPECT_TRUE(stack.host.IsOpen("C"));
    EXPECT_FALSE(stack.host.IsOpen("B"));
    EXPECT_FALSE(stack.host.IsOpen("M"));
}

TEST_F(EffectSelection, HidingShowsTheMainEffectLast)
{
    StackScene& stack = Make(everyClass);
    const std::string expected = Head(stack, everyClass) + HideCalls(stack, "B", 3) +
                                 HideCalls(stack, "L", 5) + ShowCalls(stack, "C", 6) +
                                 ShowCalls(stack, "A", 0) + ShowCalls(stack, "M", 4);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, stack.Tree("A C")); }),
              "touching main effect\n");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, TheLineIsPrintedBeforeTheMainEffect)
{
    // Without a suite for the undo group there is no call of the touch, but the line.
    for (const bool useHide : {hideThem, twirlThem})
    {
        StackScene& stack = Make("M");
        stack.host.Faults().Withhold("AEGP Utility Suite", 3);
        stack.host.Expect("exception-left-hook", "", "the suite of the undo groups is missing");
        HookResult result;
        EXPECT_EQ(OutputOf([&] { result = stack.Select(useHide, touchMain, {}); }), "touching main effect\n");
        EXPECT_EQ(result.thrownNumber, 516);
    }
}

TEST_F(EffectSelection, TwirlingOpensTheMainEffectLast)
{
    StackScene& stack = Make(everyClass);
    const std::string expected = Head(stack, everyClass) + TwirlClosedCalls("B", 3) +
                                 TwirlClosedCalls("L", 5) + TwirlOpenCalls("C", 6) + TwirlOpenCalls("A", 0) +
                                 TwirlOpenCalls("M", 4);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(twirlThem, touchMain, stack.Tree("A C")); }),
              "touching main effect\n");

    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_TRUE(stack.host.IsOpen("M"));
}

TEST_F(EffectSelection, NothingSelectedHidesAllButKitAndMain)
{
    StackScene& stack = Make("A K M B Z");
    stack.host.Effect("K").groupHidden = true;
    const std::string expected =
        Head(stack, "A K M B Z") + HideCalls(stack, "A", 0) + HideCalls(stack, "B", 3);

    (void)stack.Select(hideThem, leaveMain, {});

    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "A: A, group 0, on, hidden\nK: K, group 0, on, hidden\nM: M, group 0, on\n"
                              "B: B, group 0, on, hidden\nZ: Z, group 0, on\n");
}

TEST_F(EffectSelection, AllSelectedShowsAllFromTheBottom)
{
    StackScene& stack = Make("A K M B");
    const std::string expected = Head(stack, "A K M B") + ShowCalls(stack, "B", 3) +
                                 ShowCalls(stack, "M", 2) + ShowCalls(stack, "K", 1) +
                                 ShowCalls(stack, "A", 0);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, leaveMain, stack.Tree("A B K M")); }), "");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, TheOrderOfSelectedItemsDoesNotMatter)
{
    StackScene& stack = Make("A B C");
    const std::string expected =
        Head(stack, "A B C") + HideCalls(stack, "B", 1) + ShowCalls(stack, "C", 2) + ShowCalls(stack, "A", 0);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("C A C"));
    EXPECT_EQ(stack.Calls(), expected);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("A C"));
    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, ASelectedKitIsShownLikeAnyOther)
{
    StackScene& stack = Make("K A");
    const std::string expected = Head(stack, "K A") + HideCalls(stack, "A", 1) + ShowCalls(stack, "K", 0);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("K"));

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, ASelectedTouchedMainIsShownTwice)
{
    StackScene& stack = Make("M A");
    const std::string expected =
        Head(stack, "M A") + HideCalls(stack, "A", 1) + ShowCalls(stack, "M", 0) + ShowCalls(stack, "M", 0);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, stack.Tree("M")); }),
              "touching main effect\n");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, ASelectedUntouchedMainIsShownOnce)
{
    StackScene& stack = Make("M");
    const std::string expected = Head(stack, "M") + ShowCalls(stack, "M", 0);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, leaveMain, stack.Tree("M")); }), "");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, OfTwoMainEffectsTheLowerIsTouched)
{
    StackScene& stack = Make("M1 A M2");
    const std::string expected =
        Head(stack, "M1 A M2") + HideCalls(stack, "A", 1) + ShowCalls(stack, "M2", 2);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, {}); }), "touching main effect\n");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, WithoutAMainEffectNothingIsPrinted)
{
    StackScene& stack = Make("A L");
    const std::string expected = Head(stack, "A L") + HideCalls(stack, "A", 0) + HideCalls(stack, "L", 1);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, {}); }), "");

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, MatchNamesAreComparedWhole)
{
    StackScene& stack = Make("");
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

TEST_F(EffectSelection, UnknownAndZeroIdentitiesHaveNoEffect)
{
    StackScene& stack = Make("Z A");
    const std::string expected = Head(stack, "Z A") + HideCalls(stack, "A", 1);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("? 0"));

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, SelectedIdentitiesAreComparedByLengthAndBytes)
{
    StackScene& stack = Make("A");
    const std::string uuid = stack.Uuid("A");
    Items selected;
    for (const std::string& other : {uuid + " ", uuid.substr(0, 35), std::string()})
        selected.push_back({other, "A", 0, 1, ""});

    (void)stack.Select(hideThem, leaveMain, selected);

    EXPECT_TRUE(stack.host.Effect("A").groupHidden);
}

TEST_F(EffectSelection, OnlyTheIdentityOfASelectedItemCounts)
{
    StackScene& stack = Make("A");
    Items selected = stack.Tree("A");
    selected[0] = {selected[0].uuid, "another name", 7, 0, "another tag"};
    const std::string expected = Head(stack, "A") + ShowCalls(stack, "A", 0);

    (void)stack.Select(hideThem, leaveMain, selected);

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, TwinsOfASelectedIdentityAreBothShown)
{
    StackScene& stack = Make("A B C");
    stack.host.Effect("C").family.uuid = stack.host.Effect("A").family.uuid;
    const std::string expected =
        Head(stack, "A B C") + HideCalls(stack, "B", 1) + ShowCalls(stack, "C", 2) + ShowCalls(stack, "A", 0);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("A"));

    EXPECT_EQ(stack.Calls(), expected);
}

TEST_F(EffectSelection, OutsideEffectsAreNotCalledAfterTheRead)
{
    StackScene& stack = Make("Z1 Z2");

    (void)stack.Select(hideThem, touchMain, {});

    EXPECT_EQ(stack.Calls(), ReadLayer(stack, "Z1 Z2") +
                                 "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2\n"
                                 "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101\n");
}

TEST_F(EffectSelection, SilentFamilyEffectsCountAsOutside)
{
    StackScene& stack = Make("A M");
    stack.host.Effect("A").behaviour = FailsWith(errGeneric);
    stack.host.Effect("M").behaviour = FailsWith(errGeneric);

    EXPECT_EQ(OutputOf([&] { (void)stack.Select(hideThem, touchMain, {}); }), "");

    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nM: M, group 0, on\n");
}

TEST_F(EffectSelection, EffectsThatAreOffCountLikeOthers)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("A").flags = 0;
    stack.host.Effect("B").flags = 0;
    const std::string expected = Head(stack, "A B") + HideCalls(stack, "A", 0) + ShowCalls(stack, "B", 1);

    (void)stack.Select(hideThem, leaveMain, stack.Tree("B"));

    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "A: A, group 0, off, hidden\nB: B, group 0, off\n");
}

TEST_F(EffectSelection, AnEmptyLayerIsReadAndCounted)
{
    StackScene& stack = Make("");

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
    StackScene& stack = Make("A M");
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
    StackScene& stack = Make("A");
    const AEGP_LayerH layer = stack.Layer();
    stack.host.ClearTrace();

    const HookResult result = stack.host.RunInHook(
        [&] { SelectEffectsFromItems(stack.Id(), nullptr, layer, hideThem, leaveMain, {}); });
    const HookResult withoutLayer = stack.host.RunInHook(
        [&] { SelectEffectsFromItems(stack.Id(), nullptr, nullptr, hideThem, leaveMain, {}); });

    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(withoutLayer.thrown, "");
    EXPECT_EQ(stack.CallsWithSuites(), "");
    stack.host.Expect("exception-left-hook", "", "a null basic suite is a missing suite");
    (void)stack.host.RunInHook(
        [&] { SelectEffectsFromItems(stack.Id(), nullptr, layer, hideThem, leaveMain, {}); });
}
} // namespace
} // namespace standin
