// Each kind of change with the host idling inside every one of its host calls in turn: layer, history, tree,
// calls and lines are those of the host that idles between calls alone.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
/// A change that the next passes carry across.
struct Change
{
    const char* name;
    void (*begin)(PanelBench&);
};

void PrintTo(const Change& change, std::ostream* out) { *out << change.name; }

/// Two ungrouped objects around one in group 1, and an outside effect below them.
void showLayer(PanelBench& bench)
{
    bench.AddThree();
    bench.Add("ADBE Fill", "X");
    bench.host.Effect("B").family.group = 1;
    bench.ShowAndSettle();
}

void showFirst(PanelBench& bench, const char* outsider)
{
    bench.Add(outsider, "X");
    bench.AddThree();
    bench.Show();
}

const Change changes[] = {
    {"nothing", [](PanelBench& bench) { showLayer(bench); }},
    {"rename",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.TreeItem("B").name = "Shaker";
     }},
    {"order",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.MoveInTree("C", 0);
     }},
    {"switch",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.TreeItem("A").active = 0;
     }},
    {"group",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.TreeItem("A").group = 1;
         bench.TreeItem("B").group = 0;
     }},
    {"add",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTSRC Solids"), bench.on.Key("QVK VORTREN Dots")};
     }},
    {"delete",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.DeleteInTree("A");
         bench.DeleteInTree("C");
     }},
    {"select",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.SelectInTree({"A", "C"});
     }},
    {"hide",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.SelectInTree({"A", "B", "C"});
         bench.Settle();
         bench.SelectInTree({});
     }},
    {"all at once",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.MoveInTree("C", 0);
         bench.TreeItem("A").active = 0;
         bench.TreeItem("A").name = "Walls";
         bench.TreeItem("B").group = 2;
         bench.SelectInTree({"C"});
     }},
    {"a change in the host",
     [](PanelBench& bench)
     {
         showLayer(bench);
         bench.host.User().Reorder("X", 0);
         bench.host.User().Rename("B", "Shaker");
     }},
    {"requests of siblings",
     [](PanelBench& bench)
     {
         showLayer(bench);
         (void)RefreshPanel(&bench.Inbox());
         (void)PanelNotify(&bench.Inbox(), "Saved");
     }},
    {"the first showing", [](PanelBench& bench) { showFirst(bench, "ADBE Fill"); }},
    {"the first showing of family effects alone", [](PanelBench& bench) { showFirst(bench, "QVK VORTKIT"); }},
};

/// All that a change leaves.
struct Left
{
    Calls calls; ///< Of all passes, with the traffic of suites.
    std::string printed;
    ProjectState project;
    std::vector<std::string> undoNames;
    std::vector<ProjectState> history; ///< The project after each undo of what can be undone.
    ViewEvents views;
    std::string tree;
    std::vector<std::string> notifications;
    std::string findings;
    std::size_t timesIdled = 0; ///< Inside calls.
};

/// Begins the change, lets `arm` say where the host idles, and passes until all is at rest.
template <class Arm>
Left carryOut(const Change& change, Arm arm)
{
    constexpr int passesToRest = 4;
    PanelBench bench;
    Host& host = bench.host;
    change.begin(bench);
    host.ClearViewLog();
    arm(host);
    Left left;
    for (int i = 0; i < passesToRest; ++i)
    {
        PassRecord pass = bench.Pass(SuiteTraffic::included);
        left.calls.insert(left.calls.end(), pass.calls.begin(), pass.calls.end());
        left.printed += pass.printed;
        EXPECT_EQ(pass.result.thrown, "");
    }
    EXPECT_EQ(bench.Tree()->keysToBeAdded.size() + bench.Tree()->effectsToBeRemoved.size(), 0u);
    left.project = host.State();
    left.undoNames = host.UndoNames();
    left.views = host.ViewLog();
    left.tree = bench.TreeText();
    left.notifications = bench.Tree()->notifications;
    left.findings = host.FindingsReport();
    left.timesIdled = host.Idles().TimesIdled();
    while (host.Undo())
        left.history.push_back(host.State());
    return left;
}

void expectSame(const Left& found, const Left& alone)
{
    EXPECT_EQ(found.calls, alone.calls);
    EXPECT_EQ(found.printed, alone.printed);
    EXPECT_TRUE(found.project == alone.project);
    EXPECT_EQ(found.undoNames, alone.undoNames);
    EXPECT_TRUE(found.history == alone.history);
    EXPECT_EQ(found.views, alone.views);
    EXPECT_EQ(found.tree, alone.tree);
    EXPECT_EQ(found.notifications, alone.notifications);
    EXPECT_EQ(found.findings, "");
}

std::size_t hostCallsOf(const Left& left)
{
    std::size_t count = 0;
    for (const std::string& call : left.calls)
        count += call.rfind("Tree ", 0) == 0 ? 0 : 1;
    return count;
}

class IdleInEachCall : public ::testing::TestWithParam<Change>
{
};

TEST_P(IdleInEachCall, LeavesWhatAHostLeavesThatDoesNot)
{
    constexpr std::size_t step = 8; // So many runs come to each call once.
    const Left alone = carryOut(GetParam(), [](Host&) {});
    EXPECT_EQ(alone.timesIdled, 0u);
    const std::size_t calls = hostCallsOf(alone);
    EXPECT_GT(calls, 100u);
    std::size_t timesIdled = 0;
    for (std::size_t first = 1; first <= step && !HasFailure(); ++first)
    {
        SCOPED_TRACE("idling inside each eighth call from the " + std::to_string(first) + "th");
        const Left left = carryOut(GetParam(), [&](Host& host) { host.Idles().InCalls(first, step, calls); });
        timesIdled += left.timesIdled;
        expectSame(left, alone);
    }
    EXPECT_EQ(timesIdled, calls);
}

TEST_P(IdleInEachCall, LeavesTheSameIfItIsEveryCall)
{
    const Left alone = carryOut(GetParam(), [](Host&) {});
    const Left left =
        carryOut(GetParam(), [](Host& host) { host.Options().idleInCalls = IdleInCalls::always; });
    EXPECT_EQ(left.timesIdled, hostCallsOf(alone));
    expectSame(left, alone);
}

INSTANTIATE_TEST_SUITE_P(Changes, IdleInEachCall, ::testing::ValuesIn(changes));
} // namespace
} // namespace standin
