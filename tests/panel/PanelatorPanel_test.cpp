// The create panel hook: a panel for the host's container, once or more in a run.

#include "tests/panel/PanelTest.h"
#include "tests/support/FakePlatform.h"

#include "panel/platform/PanelatorUI_Plat.h"

namespace standin
{
namespace
{
using ::testing::Contains;
using ::testing::ElementsAre;

class CreatePanel : public PanelTest
{
protected:
    PassRecord Show(SuiteTraffic traffic = SuiteTraffic::leftOut)
    {
        return bench.Record(traffic,
                            [this] { return host.SetPanelState(PANEL_NAME, PanelState::frontmost); });
    }

    Calls TreeCallsOf(const PassRecord& record) const
    {
        Calls calls;
        for (const std::string& call : record.calls)
        {
            if (call.rfind("Tree ", 0) == 0 && call.rfind("Tree AddObject", 0) != 0)
                calls.push_back(call);
        }
        return calls;
    }
};

TEST_F(CreatePanel, StoresWidgetTableAndPanel)
{
    const PassRecord record = Show();
    EXPECT_EQ(record.result.error, errNone);
    EXPECT_NE(bench.plugin->tree, nullptr);
    EXPECT_NE(bench.plugin->stateTable, nullptr);
    EXPECT_NE(host.FindPanel(PANEL_NAME)->panelRefcon, nullptr);
    EXPECT_THAT(TreeCallsOf(record),
                ElementsAre("Tree CreateTreeWidget(false)", "Tree CreateTreeStateTable()",
                            ::testing::StartsWith("Tree SetBGColor"), "Tree addToDesktop(0, 0)"));
}

TEST_F(CreatePanel, AcquiresItsTwoSuitesFirstAndHoldsThem)
{
    const int panelSuites = host.SuiteCount("AEGP Workspace Panel Suite", 1);
    const PassRecord record = Show(SuiteTraffic::included);
    EXPECT_EQ(record.calls.at(0), R"(Basic AcquireSuite("PF AE App Suite", 6))");
    EXPECT_EQ(record.calls.at(1), R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))");
    EXPECT_EQ(record.calls.at(2), "Tree CreateTreeWidget(false)");
    EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 1);
    EXPECT_EQ(host.SuiteCount("AEGP Workspace Panel Suite", 1), panelSuites + 1);
    EXPECT_EQ(host.SuiteCount("AEGP Effect Suite", 1), 0);
    EXPECT_EQ(host.SuiteCount("AEGP Utility Suite", 7), 0);
}

TEST_F(CreatePanel, HandsThePlatformWhatTheHostGave)
{
    (void)Show();
    const Panel* panel = host.FindPanel(PANEL_NAME);
    EXPECT_EQ(LastPanelMade().basicSuite, host.BasicSuite());
    EXPECT_EQ(LastPanelMade().panelH, static_cast<void*>(panel->handle));
    EXPECT_EQ(LastPanelMade().view, panel->container);
    EXPECT_EQ(LastPanelMade().functions, static_cast<const void*>(&panel->functions));
    EXPECT_EQ(LastPanelMade().stateTable, &bench.plugin->stateTable);
    EXPECT_EQ(LastPanelMade().tree, &bench.plugin->tree);
}

TEST_F(CreatePanel, LeavesTheHostsFunctionTableAlone)
{
    (void)Show();
    const PanelFunctions& functions = host.FindPanel(PANEL_NAME)->functions;
    EXPECT_EQ(functions.getSnapSizes, nullptr);
    EXPECT_EQ(functions.populateFlyout, nullptr);
    EXPECT_EQ(functions.doFlyoutCommand, nullptr);
}

TEST_F(CreatePanel, AgainDeletesTheWidgetAndTheStates)
{
    host.Options().closedPanel = ClosedPanel::destroysView;
    bench.AddThree();
    bench.ShowAndSettle();
    void* const former = host.FindPanel(PANEL_NAME)->panelRefcon;
    bench.Hide();
    EXPECT_THAT(TreeCallsOf(Show()),
                ElementsAre("Tree DeleteTreeWidget(tree)", "Tree DeleteTreeStateTable(table)",
                            "Tree CreateTreeWidget(false)", "Tree CreateTreeStateTable()",
                            ::testing::StartsWith("Tree SetBGColor"), "Tree addToDesktop(0, 0)"));
    EXPECT_TRUE(bench.plugin->stateTable->states.empty());
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->created, 2);
    EXPECT_NE(host.FindPanel(PANEL_NAME)->panelRefcon, former) << "the former object is not deleted";
}

TEST_F(CreatePanel, IsCalledOnceIfTheViewIsKept)
{
    (void)Show();
    bench.Hide();
    EXPECT_THAT(Show().calls, ElementsAre());
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->created, 1);
}

TEST_F(CreatePanel, WritesToItsRefconsController)
{
    host.Expect(finding::duplicateSuite, "AddSuite", "this test runs the entry point twice");
    const LoadedPlugin second = host.Load(&PanelEntryPointFunc);
    auto* other = static_cast<Panelator*>(second.globalRefcon);
    other->basicSuite = nullptr;
    AEGP_PanelRefcon panel = nullptr;
    AEGP_PanelFunctions1 functions{};
    host.RunInHook(
        [&]
        { return Panelator::S_CreatePanelHook(bench.plugin, other, nullptr, nullptr, &functions, &panel); });
    EXPECT_NE(panel, nullptr);
    EXPECT_EQ(bench.plugin->tree, nullptr);
    EXPECT_NE(other->tree, nullptr);
    EXPECT_NE(other->stateTable, nullptr);
    host.RunInHook(
        [&]
        {
            (void)Panelator::S_DeathHook(other, nullptr);
            delete static_cast<PanelatorUI_Plat*>(panel);
            delete other->publishedSuite.panelRef;
            delete other;
        });
}

// ---- Missing suites

struct MissingAtCreation
{
    const char* name;
    A_long version;
    int number;    ///< What leaves towards the host.
    bool isStored; ///< Whether the widget and the table exist nevertheless.
};

void PrintTo(const MissingAtCreation& suite, std::ostream* out) { *out << suite.name; }

class CreatePanelWithoutSuite : public CreatePanel,
                                public ::testing::WithParamInterface<std::tuple<MissingAtCreation, Withheld>>
{
};

TEST_P(CreatePanelWithoutSuite, ThrowsAndKeepsWhatIsStored)
{
    const auto& [suite, how] = GetParam();
    host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    const int panelSuites = host.SuiteCount("AEGP Workspace Panel Suite", 1);
    host.Faults().Withhold(suite.name, suite.version, how);
    const PassRecord record = Show();
    EXPECT_EQ(record.result.thrownNumber, suite.number);
    EXPECT_EQ(bench.plugin->tree != nullptr, suite.isStored);
    EXPECT_EQ(bench.plugin->stateTable != nullptr, suite.isStored);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->panelRefcon, nullptr);
    EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 0);
    EXPECT_EQ(host.SuiteCount("AEGP Workspace Panel Suite", 1), panelSuites);
    EXPECT_EQ(host.SuiteCount("AEGP Effect Suite", 1), 0);
    EXPECT_EQ(host.SuiteCount("AEGP Utility Suite", 7), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Suites, CreatePanelWithoutSuite,
    ::testing::Combine(::testing::Values(MissingAtCreation{"PF AE App Suite", 6, 13, false},
                                         MissingAtCreation{"AEGP Workspace Panel Suite", 1, 13, false},
                                         MissingAtCreation{"AEGP Effect Suite", 1, 516, true},
                                         MissingAtCreation{"AEGP Utility Suite", 7, 516, true}),
                       ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                         Withheld::asPoisonedPointer)));
} // namespace
} // namespace standin
