// The panel plug-in's entry point and hooks: what they ask of the host, in which order.

#include "panel/PanelVisibility.h"
#include "standin/host/family/KeptSuites.h"
#include "standin/host/family/Sibling.h"
#include "tests/panel/PanelTest.h"

#include <utility>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PanelatorTest : public PanelTest
{
protected:
    /// Calls the command hook as the host does; gives `handled`, which starts as given.
    A_Boolean Command(A_long command, A_Boolean alreadyHandled, A_Boolean handled, VnPanelRef* refcon)
    {
        record = bench.Record(SuiteTraffic::leftOut,
                              [&]
                              {
                                  return host.RunInHook(
                                      [&]
                                      {
                                          return Panelator::S_CommandHook(bench.plugin, refcon, command,
                                                                          AEGP_HP_BeforeAE, alreadyHandled,
                                                                          &handled);
                                      });
                              });
        return handled;
    }

    PassRecord record;
};

// ---- The entry point

TEST_F(PanelatorTest, TheEntryPointRegistersPublishesAndStarts)
{
    EXPECT_THAT(bench.loading.calls,
                ElementsAre(R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
                            R"(Basic AcquireSuite("AEGP Command Suite", 1))",
                            "Command 1 AEGP_GetUniqueCommand() -> 1001",
                            R"(Command 1 AEGP_InsertMenuCommand(1001, "Vortan Object Panel", 7, -2))",
                            R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                            "Register 6 AEGP_RegisterCommandHook(id 8, 1, 1001, hook, refcon)",
                            "Register 6 AEGP_RegisterUpdateMenuHook(id 8, hook, null)",
                            "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                            "Register 6 AEGP_RegisterDeathHook(id 8, hook, null)",
                            "Panel 1 AEGP_RegisterCreatePanelHook(id 8, \"Vortan Object Panel\", hook, "
                            "refcon, 0)",
                            R"(Basic AcquireSuite("SP Suites Suite", 2))",
                            R"(Suites 2 AddSuite(null, null, "Vortan Panel Suite v1", 1, 1, table))",
                            "Tree JuceGlobalInit()", R"(Basic ReleaseSuite("SP Suites Suite", 2))"));
    EXPECT_EQ(bench.loading.printed, "");
    EXPECT_EQ(bench.loading.result.error, errNone);
}

TEST_F(PanelatorTest, TheControllerStartsWithZeroHashes)
{
    EXPECT_EQ(bench.plugin->basicSuite, host.BasicSuite());
    EXPECT_EQ(bench.plugin->pluginId, 8);
    EXPECT_EQ(bench.plugin->command, 1001);
    EXPECT_STREQ(bench.plugin->matchName, "Vortan Object Panel");
    EXPECT_EQ(bench.plugin->layerHash, 0u);
    EXPECT_EQ(bench.plugin->treeHash, 0u);
    EXPECT_EQ(bench.plugin->stateTable, nullptr);
    EXPECT_EQ(bench.plugin->tree, nullptr);
}

TEST_F(PanelatorTest, TheInboxStartsEmpty)
{
    EXPECT_EQ(bench.Inbox().pluginId, 8);
    EXPECT_EQ(bench.Inbox().basicSuite, host.BasicSuite());
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    EXPECT_EQ(bench.Inbox().openPending, 0);
    EXPECT_EQ(bench.Inbox().notifyPending, 0);
    EXPECT_EQ(bench.Inbox().notifyText, "");
}

TEST_F(PanelatorTest, ThePublishedTableLiesInsideTheController)
{
    const void* table = nullptr;
    host.RunInHook(
        [&]
        {
            EXPECT_EQ(bench.on.Basic()->AcquireSuite("Vortan Panel Suite v1", 1, &table), 0);
            EXPECT_EQ(bench.on.Basic()->ReleaseSuite("Vortan Panel Suite v1", 1), 0);
        });
    EXPECT_EQ(table, &bench.plugin->publishedSuite);
    const auto* words = static_cast<void* const*>(table);
    EXPECT_EQ(words[0], &bench.Inbox());
    EXPECT_EQ(words[1], reinterpret_cast<void*>(&::OpenPanel));
    EXPECT_EQ(words[2], reinterpret_cast<void*>(&::RefreshPanel));
    EXPECT_EQ(words[3], reinterpret_cast<void*>(&::PanelNotify));
}

TEST_F(PanelatorTest, TheEntryIsInTheWindowMenu)
{
    ASSERT_EQ(host.MenuItems().size(), 1u);
    EXPECT_EQ(host.MenuItems().at(0).name, "Vortan Object Panel");
    EXPECT_EQ(host.MenuItems().at(0).menu, 7);
    const Panel* panel = host.FindPanel("Vortan Object Panel");
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->pluginId, 8);
    EXPECT_FALSE(panel->paintBackground);
    EXPECT_EQ(panel->refcon, bench.plugin);
}

TEST_F(PanelatorTest, TheIdleHookReadsTheInbox)
{
    Sibling(host).RefreshPanel();
    EXPECT_EQ(bench.Inbox().refreshPending, 1);
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

// ---- The command

TEST_F(PanelatorTest, TheCommandSavesTheStateAndToggles)
{
    bench.AddThree();
    bench.ShowAndSettle();
    EXPECT_EQ(Command(1001, 0, 0, &bench.Inbox()), 1);
    EXPECT_THAT(record.calls,
                ElementsAre(R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                            "Layer 5 AEGP_GetActiveLayer() -> layer 1",
                            "Layer 5 AEGP_GetLayerID(layer 1) -> 1", "Tree CacheLayerTreeState(1)",
                            R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))"));
    EXPECT_EQ(record.printed, "Make Panel Visible\n");
    EXPECT_EQ(record.result.error, errNone);
    EXPECT_EQ(bench.Inbox().refreshPending, 1);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
}

TEST_F(PanelatorTest, TheCommandsLineIsFlushedBeforeTheToggle)
{
    std::string flushed;
    A_Boolean handled = 0;
    const process::CapturedOutput printed;
    TreeLog().sink = [&](const std::string&) { flushed = printed.FlushedText(); };
    host.RunInHook(
        [&] { return Panelator::S_CommandHook(bench.plugin, nullptr, 1001, AEGP_HP_BeforeAE, 0, &handled); });
    TreeLog().sink = nullptr;
    bench.Settle();
    EXPECT_EQ(flushed, "Make Panel Visible\n");
}

TEST_F(PanelatorTest, TheCommandKeepsTheLayerSuite)
{
    bench.Show();
    (void)Command(1001, 0, 0, nullptr);
    EXPECT_EQ(host.SuiteCount("AEGP Layer Suite", 5), 1);
    (void)Command(1001, 0, 0, nullptr);
    EXPECT_EQ(host.SuiteCount("AEGP Layer Suite", 5), 1);
}

TEST_F(PanelatorTest, ACommandOfSomebodyElseIsLeftAlone)
{
    for (const A_Boolean handled : {A_Boolean{0}, A_Boolean{1}, A_Boolean{77}})
    {
        EXPECT_EQ(Command(1002, 0, handled, &bench.Inbox()), handled);
        EXPECT_THAT(record.calls, IsEmpty());
        EXPECT_EQ(record.printed, "");
        EXPECT_EQ(bench.Inbox().refreshPending, 0);
    }
}

TEST_F(PanelatorTest, AHandledCommandIsHandledOnceMore)
{
    bench.Show();
    EXPECT_EQ(Command(1001, 1, 1, &bench.Inbox()), 1);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
}

TEST_F(PanelatorTest, TheCommandDoesWithoutAnInbox)
{
    EXPECT_EQ(Command(1001, 0, 0, nullptr), 1);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::frontmost);
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

TEST_F(PanelatorTest, TheCommandWithoutAnActiveLayerCachesNothing)
{
    bench.ShowAndSettle();
    host.User().SelectLayers({});
    (void)Command(1001, 0, 0, &bench.Inbox());
    EXPECT_THAT(record.calls, ElementsAre(R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                                          "Layer 5 AEGP_GetActiveLayer() -> layer null",
                                          R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))"));
}

TEST_F(PanelatorTest, TheFirstCommandCreatesThePanel)
{
    ASSERT_EQ(bench.plugin->stateTable, nullptr);
    EXPECT_EQ(Command(1001, 0, 0, &bench.Inbox()), 1);
    EXPECT_EQ(record.calls.at(3), "Tree CacheLayerTreeState(1)");
    EXPECT_EQ(record.calls.at(4), R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))");
    EXPECT_EQ(record.calls.at(5), "Tree CreateTreeWidget(false)");
    EXPECT_THAT(bench.plugin->stateTable->states, IsEmpty());
    EXPECT_NE(bench.Tree(), nullptr);
}

TEST_F(PanelatorTest, TheCommandOnAHiddenPanelSavesNothing)
{
    bench.AddThree();
    bench.ShowAndSettle();
    bench.SelectInTree({"B"});
    bench.Settle();
    (void)Command(1001, 0, 0, &bench.Inbox());
    EXPECT_NE(bench.plugin->stateTable->states.at(1), "");
    (void)bench.Pass();
    (void)Command(1001, 0, 0, &bench.Inbox());
    EXPECT_EQ(bench.plugin->stateTable->states.at(1), "") << "there is no root row to tell of";
    bench.Settle();
    EXPECT_THAT(bench.Tree()->selectedUuids, IsEmpty()) << "what was selected at the hide is gone";
}

TEST_F(PanelatorTest, TheCommandBeforeAPassFindsTheTree)
{
    bench.AddThree();
    bench.ShowAndSettle();
    bench.SelectInTree({"B"});
    (void)Command(1001, 0, 0, &bench.Inbox());
    (void)Command(1001, 0, 0, &bench.Inbox());
    bench.Settle();
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(b.uuid));
}

TEST_F(PanelatorTest, FailuresInTheCommandAreIgnored)
{
    bench.AddThree();
    bench.ShowAndSettle();
    for (const char* function :
         {"AEGP_IsShown", "AEGP_GetLayerID", "AEGP_GetActiveLayer", "AEGP_ToggleVisibility"})
    {
        host.Faults().FailFunction(function);
        bench.Inbox().refreshPending = 0;
        EXPECT_EQ(Command(1001, 0, 0, &bench.Inbox()), 1) << function;
        EXPECT_EQ(record.result.error, errNone) << function;
        EXPECT_EQ(bench.Inbox().refreshPending, 1) << function;
    }
}

TEST_F(PanelatorTest, TheMenuEntryTogglesFromEveryState)
{
    const auto stateAfterChoice = [this](PanelState before)
    {
        (void)host.SetPanelState(PANEL_NAME, before);
        EXPECT_TRUE(bench.Choose());
        EXPECT_EQ(bench.Inbox().refreshPending, 1);
        (void)bench.Pass();
        return host.FindPanel(PANEL_NAME)->state;
    };
    EXPECT_EQ(stateAfterChoice(PanelState::absent), PanelState::frontmost);
    EXPECT_EQ(stateAfterChoice(PanelState::frontmost), PanelState::absent);
    EXPECT_EQ(stateAfterChoice(PanelState::behind), PanelState::frontmost);
}

TEST_F(PanelatorTest, WithoutTheLayerSuiteTheCommandThrowsFirst)
{
    host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    host.Faults().Withhold("AEGP Layer Suite", 5);
    EXPECT_EQ(Command(1001, 0, 0, &bench.Inbox()), 0);
    EXPECT_EQ(record.result.thrownNumber, 516);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

// ---- The menu

TEST_F(PanelatorTest, TheMenuUpdateEnablesAndMarks)
{
    const PassRecord update =
        bench.Record(SuiteTraffic::included, [this] { return host.UpdateMenus(WindowType::project); });
    EXPECT_THAT(update.calls, ElementsAre("Command 1 AEGP_EnableCommand(1001)",
                                          R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                          "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)"));
    EXPECT_EQ(update.result.error, errNone);
}

TEST_F(PanelatorTest, TheEntryIsEnabledWhateverWindowIsActive)
{
    for (const WindowType active : {WindowType::none, WindowType::project, WindowType::effectControls})
    {
        (void)host.UpdateMenus(active);
        EXPECT_TRUE(host.MenuItems().at(0).enabled);
    }
}

TEST_F(PanelatorTest, TheMarkIsOnOnlyInFront)
{
    const auto isTicked = [this](PanelState state)
    {
        (void)host.SetPanelState(PANEL_NAME, state);
        (void)host.UpdateMenus();
        return host.MenuItems().at(0).ticked;
    };
    EXPECT_FALSE(isTicked(PanelState::absent));
    EXPECT_TRUE(isTicked(PanelState::frontmost));
    EXPECT_FALSE(isTicked(PanelState::behind));
    host.Faults().FailFunction("AEGP_IsShown");
    EXPECT_FALSE(isTicked(PanelState::frontmost)) << "a host that cannot tell shows no mark";
    EXPECT_TRUE(isTicked(PanelState::frontmost));
    bench.Pass();
}

TEST_F(PanelatorTest, FailuresInTheMenuUpdateAreIgnored)
{
    host.Faults().FailFunction("AEGP_EnableCommand");
    host.Faults().FailFunction("AEGP_CheckMarkMenuCommand");
    EXPECT_EQ(host.UpdateMenus().error, errNone);
}

// ---- The death hook

class PanelatorAtDeath : public PanelatorTest
{
protected:
    /// The suites that the controller holds outlive the plug-in and end with the host.
    PassRecord Quit()
    {
        ExpectKeptSuites(host);
        return bench.Record(SuiteTraffic::included,
                            [this]
                            {
                                host.Quit();
                                return HookResult{};
                            });
    }
};

TEST_F(PanelatorAtDeath, TreeAndTableGoBeforeTheUserInterface)
{
    bench.Show();
    EXPECT_THAT(Quit().calls, ElementsAre("Tree ClearTree(tree)", "Tree DeleteTreeWidget(tree)",
                                          "Tree DeleteTreeStateTable(table)", "Tree JuceGlobalShutDown()"));
    EXPECT_EQ(bench.plugin->tree, nullptr);
    EXPECT_EQ(bench.plugin->stateTable, nullptr);
}

TEST_F(PanelatorAtDeath, TheUserInterfaceEndsWithoutAPanelToo)
{
    EXPECT_THAT(Quit().calls, ElementsAre("Tree JuceGlobalShutDown()"));
}

TEST_F(PanelatorAtDeath, AStateTableWithoutATreeGoesToo)
{
    bench.Show();
    DeleteTreeWidget(std::exchange(bench.plugin->tree, nullptr));
    EXPECT_THAT(Quit().calls, ElementsAre("Tree DeleteTreeStateTable(table)", "Tree JuceGlobalShutDown()"));
}

TEST_F(PanelatorAtDeath, NoSuiteIsCalled)
{
    host.Options().suitesAtDeath = SuitesAtDeath::fail;
    bench.AddThree();
    bench.ShowAndSettle();
    for (const std::string& call : Quit().calls)
        EXPECT_EQ(call.rfind("Tree ", 0), 0u) << call;
}

// ---- What the host is told, to the number

TEST_F(PanelatorTest, TheMarkIsTheNumberOne)
{
    bench.Show();
    const PassRecord update = bench.Record(SuiteTraffic::leftOut, [this] { return host.UpdateMenus(); });
    EXPECT_EQ(update.calls.back(), "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)");
}

TEST_F(PanelatorTest, StateOfALayerWithoutIdIsZeros)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_GetLayerID");
    EXPECT_EQ(Command(1001, 0, 0, &bench.Inbox()), 1);
    EXPECT_EQ(record.calls.at(3), "Tree CacheLayerTreeState(0)");
}

TEST(PanelVisibility, IsInFrontOnlyIfTheHostAnswers)
{
    AEGP_PanelSuite1 suite = {};
    suite.AEGP_IsShown = [](const A_u_char*, A_Boolean* shown, A_Boolean*)
    {
        *shown = 1;
        return A_Err{0};
    };
    const PanelVisibility answer = AskVisibility(suite, PANEL_NAME);
    EXPECT_EQ(answer.shown, 1);
    EXPECT_FALSE(answer.IsInFront());
}
} // namespace
} // namespace standin
