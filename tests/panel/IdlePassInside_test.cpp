// The idle hook inside a pass, which runs when the host idles inside a call of the pass: from the open
// request on it does nothing at all, until the pass has returned.

#include "tests/panel/PanelTest.h"

#include <algorithm>
#include <utility>

namespace standin
{

namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string dispatch = "Tree DispatchPlatformEvents()";

int countOf(const Calls& calls, const std::string& call)
{
    return static_cast<int>(std::count(calls.begin(), calls.end(), call));
}

class HookInsidePass : public PanelTest
{
protected:
    HookInsidePass()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    /// Runs the idle hook inside the `nth` message from now on that the effect gets, after `before`.
    void IdleInMessage(const std::string& label, int nth, std::function<void()> before = nullptr)
    {
        bench.ActInMessage(label, nth,
                           [this, first = std::move(before)]
                           {
                               if (first)
                                   first();
                               const std::size_t calls = host.Trace().Count();
                               const std::string printed = bench.PrintedSoFar();
                               A_long maxSleep = 4321;
                               EXPECT_EQ(Panelator::S_IdleHook(bench.plugin, &bench.Inbox(), &maxSleep),
                                         A_Err_NONE);
                               bench.plugin->IdleHook(&bench.Inbox());
                               EXPECT_EQ(host.Trace().Count(), calls);
                               EXPECT_EQ(bench.PrintedSoFar(), printed);
                               EXPECT_EQ(maxSleep, 4321);
                               ++hooksInside;
                           });
    }

    int hooksInside = 0;
};

TEST_F(HookInsidePass, CallsNobodyAndPrintsNothing)
{
    const PassRecord alone = bench.Pass();
    IdleInMessage("B", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(hooksInside, 1);
    EXPECT_EQ(pass.calls, alone.calls);
    EXPECT_EQ(pass.printed, "");
}

TEST_F(HookInsidePass, DeliversNoEvents)
{
    IdleInMessage("B", 1);
    EXPECT_EQ(countOf(bench.Pass().calls, dispatch), 1);
    EXPECT_EQ(hooksInside, 1);
    EXPECT_EQ(countOf(bench.Pass().calls, dispatch), 1) << "the next pass delivers them again";
}

TEST_F(HookInsidePass, ConsumesNoRequest)
{
    IdleInMessage("B", 1,
                  [this]
                  {
                      (void)RefreshPanel(&bench.Inbox());
                      (void)PanelNotify(&bench.Inbox(), "Saved");
                      (void)OpenPanel(&bench.Inbox(), 1);
                  });
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_EQ(hooksInside, 1);
    EXPECT_EQ(bench.Inbox().refreshPending, 1);
    EXPECT_EQ(bench.Inbox().openPending, 1);
    EXPECT_EQ(bench.Inbox().notifyPending, 1);
    EXPECT_EQ(bench.Inbox().notifyText, "Saved");
    EXPECT_EQ(bench.Pass().printed, "Make Panel Visible\n") << "the next pass closes the panel";
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
}

TEST_F(HookInsidePass, LeavesPendingAddsAndDeletesToThePass)
{
    IdleInMessage("A", 1,
                  [this]
                  {
                      bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTSRC Solids")};
                      bench.DeleteInTree("C");
                  });
    (void)bench.Pass();
    EXPECT_EQ(hooksInside, 1);
    EXPECT_EQ(StackText(), "A B C");
    bench.Settle();
    EXPECT_EQ(StackText(), "A e4 B");
}

TEST_F(HookInsidePass, WorksAgainWhenThePassHasReturned)
{
    IdleInMessage("A", 1);
    (void)bench.Pass();
    bench.TreeItem("B").name = "Shaker";
    (void)bench.Pass();
    EXPECT_EQ(host.NameOf("B"), "Shaker");
}

TEST_F(HookInsidePass, WorksAgainAfterAMissingSuite)
{
    host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    for (const char* suite : {"AEGP Layer Suite", "AEGP Effect Suite"})
    {
        SCOPED_TRACE(suite);
        host.Faults().Withhold(suite);
        host.Idles().InFunction("AcquireSuite");
        EXPECT_EQ(bench.Pass().result.thrownNumber, 516);
        EXPECT_EQ(host.Idles().TimesIdled(), 1u);
        host.Faults().GiveBack(suite);
        host.Idles().Clear();
        bench.TreeItem("B").name = suite;
        bench.Settle();
        EXPECT_EQ(host.NameOf("B"), suite);
        host.User().Rename("B", "B");
        bench.Settle();
    }
}

TEST_F(HookInsidePass, DoesNothingInPassesThatEndEarly)
{
    host.Options().idleInCalls = IdleInCalls::always;
    host.User().OpenComposition(0);
    EXPECT_EQ(bench.Pass().printed, "No active item\n");
    ValueTreesDemo* const tree = std::exchange(bench.plugin->tree, nullptr);
    EXPECT_EQ(bench.Pass().printed, "no tree found\n");
    bench.plugin->tree = tree;
    bench.Cover();
    EXPECT_EQ(countOf(bench.Pass().calls, R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 0)"), 1);
    bench.Hide();
    EXPECT_EQ(countOf(bench.Pass().calls, R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)"), 1);
    EXPECT_GT(host.Idles().TimesIdled(), 6u);
}

// ---- Inside the command of an open request

TEST_F(HookInsidePass, RunsWholePassesInsideTheOpenCommand)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.TreeItem("B").name = "Shaker";
    (void)OpenPanel(&bench.Inbox(), 1);
    // Our command hook closes the panel, and the idle comes inside the command hook's first question.
    host.Idles().InFunction("AEGP_IsShown");
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(host.Idles().TimesIdled(), 1u);
    EXPECT_EQ(countOf(pass.calls, dispatch), 2);
    EXPECT_EQ(countOf(pass.calls, "Command 1 AEGP_DoCommand(1001)"), 2);
    EXPECT_EQ(bench.Inbox().openPending, 1) << "cleared by the inner pass and flipped by the outer one";
}

TEST_F(HookInsidePass, LeavesTheOuterPassUnguardedAfterTheCommand)
{
    (void)OpenPanel(&bench.Inbox(), 1);
    // Inside the command hook's question and inside the command itself, when the hook has returned. The
    // second one finds no request any more and an empty tree behind a closed panel.
    host.Idles().InFunction("AEGP_IsShown");
    host.Idles().InFunction("AEGP_DoCommand", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(host.Idles().TimesIdled(), 2u);
    EXPECT_EQ(countOf(pass.calls, dispatch), 3);
}

// ---- Edits whose indices an inner pass would shift: the idle comes in each message of the pass in turn

/// What is left of a change when the host has idled inside one message of its passes.
struct Outcome
{
    std::string stack; ///< The names from the top down.
    std::vector<std::string> undo;
    std::string tree;
};

bool operator==(const Outcome& left, const Outcome& right)
{
    return left.stack == right.stack && left.undo == right.undo && left.tree == right.tree;
}

void PrintTo(const Outcome& outcome, std::ostream* out)
{
    *out << outcome.stack << " / " << ::testing::PrintToString(outcome.undo) << " / " << outcome.tree;
}

using Act = void (*)(PanelBench&);

/// Gives the outcome of each message in turn, until a pass has no such message any more.
std::vector<Outcome> outcomesOf(Act begin, const char* outsider = nullptr)
{
    std::vector<Outcome> outcomes;
    for (std::size_t nth = 1;; ++nth)
    {
        PanelBench bench;
        if (outsider != nullptr)
            bench.Add(outsider, "X");
        bench.AddThree();
        begin(bench);
        bench.host.Idles().InFunction("AEGP_EffectCallGeneric", nth);
        bench.Settle();
        if (bench.host.Idles().TimesIdled() == 0)
            return outcomes;
        std::string stack;
        for (const EffectInstance& effect : bench.host.State().FindLayer(bench.on.layerId)->effects)
            stack += (stack.empty() ? "" : " ") + bench.host.NameOf(effect.label);
        outcomes.push_back({stack, bench.host.UndoNames(), bench.TreeText()});
        EXPECT_EQ(bench.host.FindingsReport(), "");
    }
}

TEST(HookInsideMessage, DeletingTheTopDeletesNoOther)
{
    const auto outcomes = outcomesOf(
        [](PanelBench& bench)
        {
            bench.ShowAndSettle();
            bench.DeleteInTree("A");
        });
    EXPECT_GT(outcomes.size(), 4u);
    EXPECT_THAT(outcomes, ::testing::Each(Outcome{"B C", {"Delete Effect(s)"}, "B C"}));
}

TEST(HookInsideMessage, DraggingTheLastUpEndsInOneOrder)
{
    const auto outcomes = outcomesOf(
        [](PanelBench& bench)
        {
            bench.ShowAndSettle();
            bench.MoveInTree("C", 0);
        });
    EXPECT_GT(outcomes.size(), 6u);
    EXPECT_THAT(outcomes, ::testing::Each(Outcome{"C A B", {"Reorder Effect(s)"}, "C A B"}));
}

TEST(HookInsideMessage, RenamingWhileDraggingNamesNoOther)
{
    const auto outcomes = outcomesOf(
        [](PanelBench& bench)
        {
            bench.ShowAndSettle();
            bench.TreeItem("B").name = "Shaker";
            bench.MoveInTree("C", 0);
        });
    EXPECT_GT(outcomes.size(), 6u);
    EXPECT_THAT(outcomes, ::testing::Each(Outcome{"C A Shaker", {"Rename Effect(s)", ""}, "C A Shaker"}));
}

TEST(HookInsideMessage, TheFirstShowingBelowAnOutsiderNamesNothing)
{
    const auto outcomes = outcomesOf([](PanelBench& bench) { bench.Show(); }, "ADBE Fill");
    EXPECT_GT(outcomes.size(), 8u);
    EXPECT_THAT(outcomes, ::testing::Each(Outcome{"A B C X", {"Reorder Effect(s)"}, "A B C"}));
}
} // namespace
} // namespace standin
