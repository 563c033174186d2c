// Each host call of a selection fails in turn: an error leaves the undo group of its effect open and nothing
// else, and the effects after it get their turn.

#include "effects/EffectSelection.h"
#include "standin/host/family/Liars.h"
#include "standin/host/faults/Sweep.h"
#include "tests/effects/SelectedStack.h"
#include "tests/support/StackTest.h"
#include "tests/support/TraceAudit.h"

#include <algorithm>

namespace standin
{
namespace
{
const char* const endUndo = "Utility 3 AEGP_EndUndoGroup";

ChainSteps stepsOf(std::initializer_list<const char*> flagCalls)
{
    ChainSteps steps = {"Effect 1 AEGP_GetLayerEffectByIndex", "Stream 4 AEGP_GetNewEffectStreamByIndex",
                        "DynamicStream 2 AEGP_GetNewParentStreamRef"};
    steps.insert(steps.end(), flagCalls.begin(), flagCalls.end());
    steps.push_back(endUndo);
    return steps;
}

const char* const readFlags = "DynamicStream 2 AEGP_GetDynamicStreamFlags";
const char* const setFlag2 = "DynamicStream 2 AEGP_SetDynamicStreamFlag";
const char* const setFlag5 = "DynamicStream 5 AEGP_SetDynamicStreamFlag";

const std::vector<ChainSteps> hideAndShow = {
    stepsOf({readFlags, setFlag5, setFlag5}),
    stepsOf({readFlags, setFlag2, setFlag2, setFlag2, setFlag2}),
};
const std::vector<ChainSteps> twirls = {stepsOf({setFlag2, setFlag2})};

void checkSelection(SelectedStack& stack, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const TraceAudit audit =
        AuditTrace(stack.host.Trace().Records(), "", stack.useHide ? hideAndShow : twirls);
    EXPECT_EQ(audit.violation, "") << stack.CallsWithSuites();
    EXPECT_EQ(stack.result.thrownNumber, audit.suiteMissing ? std::optional<int>(516) : std::nullopt);

    std::vector<std::string> found = stack.Found();
    // The match name is asked for whatever became of the calls before, so a null reference and key 0 pass.
    const auto isKept = [](const std::string& finding)
    {
        return finding == "null-reference AEGP_GetInstalledKeyFromLayerEffect" ||
               finding == "unknown-key AEGP_GetEffectMatchName";
    };
    found.erase(std::remove_if(found.begin(), found.end(), isKept), found.end());
    std::vector<std::string> expected = audit.referenceFindings;
    expected.insert(expected.end(), audit.groupFindings.begin(), audit.groupFindings.end());
    if (audit.suiteMissing)
        expected.push_back("exception-left-hook ");
    if (audit.leftOpen > 0)
        expected.push_back("undo-group-left-open AEGP_StartUndoGroup");
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(found, expected) << stack.CallsWithSuites();

    const std::vector<std::string> calls = stack.host.CallTexts();
    const auto isStart = [](const std::string& call)
    { return call.find("AEGP_StartUndoGroup") != std::string::npos; };
    const auto firstStart = std::find_if(calls.begin(), calls.end(), isStart) - calls.begin();
    const bool isInSweep = fault.ordinal == 0 || static_cast<std::ptrdiff_t>(fault.ordinal) > firstStart;
    if (isInSweep && !audit.suiteMissing)
    {
        EXPECT_EQ(std::count_if(calls.begin(), calls.end(), isStart), 3)
            << "an error in one effect stops no other: B, A and the main effect";
    }
}

std::size_t sweep(bool useHide)
{
    return SweepFaults([=] { return std::make_unique<SelectedStack>("A X K M B", "A", useHide); },
                       [](SelectedStack& stack) { stack.Run(); }, checkSelection);
}
} // namespace

TEST(EffectSelectionFaults, EveryCallFailsInTurn) { EXPECT_GT(sweep(true), 130U); }

TEST(EffectSelectionFaults, EveryCallOfTwirlingFailsInTurn) { EXPECT_GT(sweep(false), 130U); }

TEST(EffectSelectionFaults, AnErrorLeavesItsGroupOpen)
{
    struct Row
    {
        const char* function;
        std::size_t nth;
        std::ptrdiff_t calls;     ///< Of the calls of a hide, those up to the failing one.
        std::ptrdiff_t disposals; ///< Of its three last calls.
    };
    // The reading of the two effects takes each effect and its streams before; so the third call of a
    // function that both need is the first of the sweep.
    const std::vector<Row> rows = {{"AEGP_GetNewEffectStreamByIndex", 3, 3, 1},
                                   {"AEGP_GetNewParentStreamRef", 3, 4, 2},
                                   {"AEGP_GetDynamicStreamFlags", 1, 5, 3},
                                   {"AEGP_SetDynamicStreamFlag", 2, 7, 3}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.function);
        LabelledStack stack("A B");
        const TracedStack traced = stack.Traced();
        const Calls hide = traced.Touch("-A");
        Calls broken(hide.begin(), hide.begin() + row.calls);
        broken.back() = broken.back().substr(0, broken.back().find(')') + 1) + " = 1";
        Calls disposals(hide.end() - 3, hide.end());
        if (row.disposals < 3)
            disposals.erase(disposals.begin() + (row.disposals - 1), disposals.end() - 1);
        stack.host.Faults().FailFunction(row.function, row.nth);

        (void)stack.Select(true, false, stack.Tree("B"));

        EXPECT_EQ(stack.Sweep(), Sequence({broken, disposals, traced.Touch("+B")}));
        EXPECT_EQ(stack.Text(), "A B");
        EXPECT_EQ(stack.Found(), (std::vector<std::string>{"nested-undo-group AEGP_StartUndoGroup",
                                                           "undo-group-left-open AEGP_StartUndoGroup"}));
    }
}

TEST(EffectSelectionFaults, AnUnfinishedShowLeavesTheParameterHidden)
{
    LabelledStack stack("A");
    stack.host.Faults().FailFunction("AEGP_SetDynamicStreamFlag", 3);

    (void)stack.Select(true, false, stack.Tree("A"));

    EXPECT_EQ(stack.Text(), "A~1");
    EXPECT_EQ(stack.Found(), std::vector<std::string>{"undo-group-left-open AEGP_StartUndoGroup"});
}

TEST(EffectSelectionFaults, AGroupThatCannotBeOpenedTouchesNothing)
{
    LabelledStack stack("A B");
    stack.host.Faults().FailFunction("AEGP_StartUndoGroup");

    (void)stack.Select(true, false, {});

    EXPECT_EQ(stack.Sweep(),
              Sequence({{"Utility 3 AEGP_StartUndoGroup(\"\") = 1"}, stack.Traced().Touch("-B")}));
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST(EffectSelectionFaults, AFailedCountShowsTheSelectedHidesNobody)
{
    // The count is read once for the items, once in each of the four messages, and then here.
    LabelledStack stack("A B");
    const TracedStack traced = stack.Traced();
    stack.host.Faults().FailFunction("AEGP_GetLayerNumEffects", 6);

    (void)stack.Select(true, false, stack.Tree("B"));

    EXPECT_EQ(stack.CallList(), Sequence({traced.Read(),
                                          {"Effect 1 AEGP_GetLayerNumEffects(layer 1) = 1",
                                           "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101"},
                                          traced.Touch("+B")}));
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST(EffectSelectionFaults, TheParentCompositionIsAskedButNotNeeded)
{
    LabelledStack stack("A");
    stack.host.Faults().FailFunction("AEGP_GetLayerParentComp");

    (void)stack.Select(true, false, {});

    EXPECT_EQ(stack.Sweep(), stack.Traced().Touch("-A"));
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST(EffectSelectionFaults, AMainEffectWithUnreadNameIsHidden)
{
    struct Row
    {
        const char* function;
        std::size_t nth;
        std::vector<std::string> found;
    };
    const std::vector<Row> rows = {
        {"AEGP_GetLayerEffectByIndex",
         4,
         {"null-reference AEGP_GetInstalledKeyFromLayerEffect", "unknown-key AEGP_GetEffectMatchName"}},
        {"AEGP_GetInstalledKeyFromLayerEffect", 2, {"unknown-key AEGP_GetEffectMatchName"}},
        {"AEGP_GetEffectMatchName", 2, {}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.function);
        SelectedStack stack("M", "", true);
        stack.host.Faults().FailFunction(row.function, row.nth);

        stack.Run();

        EXPECT_EQ(stack.Sweep(), stack.Traced().Touch("-M"));
        EXPECT_EQ(stack.output, "") << "no main effect is known";
        EXPECT_EQ(stack.Found(), row.found);
    }
}

TEST(EffectSelectionFaults, AMainEffectWithUnreadNameIsOrdinary)
{
    SelectedStack stack("K M", "", true);
    // Two names are read with the layer, and the third is that of the kit effect above.
    stack.host.Faults().FailFunction("AEGP_GetEffectMatchName", 4);

    stack.Run();

    EXPECT_EQ(stack.Sweep(), stack.Traced().Touch("-M"));
    EXPECT_EQ(stack.output, "");
}

TEST(EffectSelectionFaults, AnUnterminatedMatchNameIsNotThePanels)
{
    LabelledStack stack("A");
    InstalledEffect endless = *stack.host.FindInstalled("QVK VORTSRC Routes");
    endless.key = 0;
    endless.matchName = "QVK VORTKIT";
    endless.matchNameEnding = InstalledEffect::MatchNameEnding::notTerminated;
    stack.host.Effect("A").key = stack.host.Install(endless);

    (void)stack.Select(true, false, {});

    EXPECT_EQ(stack.Text(), "A~");
    EXPECT_EQ(stack.host.FindingsReport(), "");
}
} // namespace standin
