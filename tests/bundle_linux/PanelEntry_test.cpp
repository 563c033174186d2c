// The entry point PanelEntryPointFunc of the built bundle, its hooks and the suite that it publishes, before
// a panel is opened.

#include "standin/core/HostParts.h"
#include "tests/bundle_linux/BundleTest.h"

#include <cstring>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class PanelEntry : public BundleTest
{
protected:
    PanelEntry() : plugin(LoadPanel()), loading(TakeCalls()) {}

    A_Boolean command(A_long chosen, A_Boolean alreadyHandled, A_Boolean handled)
    {
        const auto& hook = host.Parts().plugins.hooks.command.at(0);
        (void)host.RunInHook(
            [&] { return hook.hook(plugin.globalRefcon, hook.refcon, chosen, 1, alreadyHandled, &handled); });
        return handled;
    }

    /// Makes an idle pass, whose traces tell which requests it found.
    std::vector<std::string> idleCalls()
    {
        (void)TakeCalls();
        EXPECT_EQ(host.RunIdle().thrown, "");
        return TakeCalls(SuiteTraffic::leftOut);
    }

    bool isTicked() { return host.MenuItems().at(0).ticked; }

    LoadedPlugin plugin;
    std::vector<std::string> loading;
};

const std::vector<std::string> quietPassOfAHiddenPanel = {
    R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)", "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)"};
} // namespace

TEST_F(PanelEntry, CallsTheHostInThisOrder)
{
    EXPECT_EQ(plugin.result.error, errNone);
    EXPECT_THAT(loading,
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
                            R"(Basic ReleaseSuite("SP Suites Suite", 2))"));
}

TEST_F(PanelEntry, GivesTheControllerAsTheGlobalRefconAndThePanelsRefcon)
{
    ASSERT_NE(plugin.globalRefcon, nullptr);
    EXPECT_EQ(WordOf(plugin.globalRefcon, 0), host.BasicSuite());
    const auto& hooks = host.Parts().plugins.hooks;
    EXPECT_EQ(host.FindPanel(panelName)->refcon, plugin.globalRefcon);
    EXPECT_EQ(hooks.command.at(0).refcon, PanelTable().panelRef);
    EXPECT_EQ(hooks.idle.at(0).refcon, PanelTable().panelRef);
    EXPECT_EQ(hooks.updateMenu.at(0).refcon, nullptr);
    EXPECT_EQ(hooks.death.at(0).refcon, nullptr);
}

TEST_F(PanelEntry, PublishesATableOfFourWordsThatLiesInTheController)
{
    const auto* table = static_cast<const char*>(Published(panelSuiteName));
    ASSERT_NE(table, nullptr);
    for (int word = 0; word < 4; ++word)
        EXPECT_NE(WordOf(table, word), nullptr) << word;
    const auto* controller = static_cast<const char*>(plugin.globalRefcon);
    EXPECT_GT(table, controller);
    EXPECT_LT(table, controller + 1024);
    std::int32_t id = 0;
    std::memcpy(&id, WordOf(table, 0), sizeof id);
    EXPECT_EQ(id, plugin.id);
    EXPECT_EQ(WordOf(WordOf(table, 0), 1), host.BasicSuite());
}

namespace
{
class PanelEntryOutput : public BundleTest
{
};
} // namespace

TEST_F(PanelEntryOutput, IsNoneForAStartAndAClosedPanel)
{
    EXPECT_EQ(OutputOf([this] { (void)LoadPanel(); }), "");
    EXPECT_EQ(OutputOf([this] { (void)host.UpdateMenus(); }), "");
    EXPECT_EQ(OutputOf([this] { (void)host.RunIdle(); }), "");
    EXPECT_EQ(OutputOf(
                  [this]
                  {
                      const PanelWords& table = PanelTable();
                      (void)host.RunInHook([&] { (void)table.openPanel(table.panelRef, 0); });
                      (void)table.refreshPanel(table.panelRef);
                      (void)table.panelNotify(table.panelRef, "text");
                  }),
              "");
}

TEST_F(PanelEntry, LeavesTheHandledFlagOfOtherCommandsAlone)
{
    EXPECT_EQ(command(77, 0, 0), 0);
    EXPECT_EQ(command(77, 1, 1), 1);
    EXPECT_EQ(command(0, 0, 0), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(PanelEntry, TogglesThePanelAtItsCommandWithoutATree)
{
    host.Faults().FailFunction("AEGP_ToggleVisibility");
    A_Boolean handled = 0;
    EXPECT_EQ(OutputOf([&] { handled = command(1001, 0, 0); }), "Make Panel Visible\n");
    EXPECT_EQ(handled, 1);
    EXPECT_THAT(TakeCalls(SuiteTraffic::leftOut),
                ElementsAre(R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                            "Layer 5 AEGP_GetActiveLayer() -> layer 1",
                            "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
                            R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel") = 1)"));
}

TEST_F(PanelEntry, TogglesThePanelAtItsCommandWithoutALayer)
{
    host.Faults().FailFunction("AEGP_ToggleVisibility");
    host.User().SelectLayers({});
    EXPECT_EQ(command(1001, 1, 0), 1) << "whoever has handled it before";
    EXPECT_THAT(TakeCalls(SuiteTraffic::leftOut),
                ElementsAre(R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                            "Layer 5 AEGP_GetActiveLayer() -> layer null",
                            R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel") = 1)"));
}

TEST_F(PanelEntry, KeepsTheMenuEntryEnabledForEveryWindow)
{
    for (const WindowType window : {WindowType::none, WindowType::project, WindowType::timeline})
    {
        EXPECT_EQ(host.UpdateMenus(window).error, errNone);
        EXPECT_TRUE(host.MenuItems().at(0).enabled);
        EXPECT_FALSE(isTicked());
    }
    (void)TakeCalls();
    (void)host.UpdateMenus();
    EXPECT_THAT(TakeCalls(), ElementsAre("Command 1 AEGP_EnableCommand(1001)",
                                         R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                         "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)"));
}

TEST_F(PanelEntry, OnlyLooksAtEachIdleWhileThePanelIsClosed)
{
    EXPECT_EQ(idleCalls(), quietPassOfAHiddenPanel);
    EXPECT_EQ(OutputOf([this] { (void)host.RunIdle(); }), "");
}

TEST_F(PanelEntry, AnOpenRequestRunsTheCommandAtTheNextIdleOnce)
{
    host.Faults().FailFunction("AEGP_DoCommand");
    EXPECT_EQ(PanelTable().openPanel(PanelTable().panelRef, 1), 0);
    EXPECT_EQ(idleCalls().at(0), "Command 1 AEGP_DoCommand(1001) = 1");
    EXPECT_EQ(idleCalls(), quietPassOfAHiddenPanel);
}

TEST_F(PanelEntry, AnOpenRequestWithoutForceLooksFirst)
{
    host.Faults().FailFunction("AEGP_DoCommand");
    const PanelWords& table = PanelTable();
    (void)TakeCalls();
    (void)host.RunInHook([&] { EXPECT_EQ(table.openPanel(table.panelRef, 0), 0); });
    EXPECT_THAT(TakeCalls(), ElementsAre(R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
                                         R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                         R"(Basic ReleaseSuite("AEGP Workspace Panel Suite", 1))"));
    EXPECT_EQ(idleCalls().at(0), "Command 1 AEGP_DoCommand(1001) = 1");
}

TEST_F(PanelEntry, AnOpenRequestThatIsForcedAsksNobody)
{
    const PanelWords& table = PanelTable();
    (void)TakeCalls();
    for (const int force : {1, 2, 255})
        EXPECT_EQ(table.openPanel(table.panelRef, static_cast<unsigned char>(force)), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    host.Faults().FailFunction("AEGP_DoCommand");
    EXPECT_EQ(idleCalls().at(0), "Command 1 AEGP_DoCommand(1001) = 1");
}

TEST_F(PanelEntry, AnOpenRequestWithoutThePanelSuiteThrowsThirteenToTheSibling)
{
    const PanelWords& table = PanelTable();
    host.Faults().Withhold("AEGP Workspace Panel Suite", 1);
    ExpectHookThrows(13, [&] { (void)table.openPanel(table.panelRef, 0); });
    EXPECT_EQ(idleCalls(), quietPassOfAHiddenPanel) << "nothing was asked for";
}

TEST_F(PanelEntry, RefreshAndNotifyReturnNothingAndCallNobody)
{
    const PanelWords& table = PanelTable();
    (void)TakeCalls();
    EXPECT_EQ(table.refreshPanel(table.panelRef), 0);
    EXPECT_EQ(table.panelNotify(table.panelRef, "one"), 0);
    EXPECT_EQ(table.panelNotify(table.panelRef, "two"), 0);
    EXPECT_EQ(table.panelNotify(nullptr, "three"), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(idleCalls(), quietPassOfAHiddenPanel);
}

TEST_F(PanelEntry, EndsWithoutAPanel)
{
    const auto& death = host.Parts().plugins.hooks.death.at(0);
    (void)TakeCalls();
    EXPECT_EQ(OutputOf(
                  [&] {
                      EXPECT_EQ(
                          host.RunInHook([&] { return death.hook(plugin.globalRefcon, nullptr); }).error, 0);
                  }),
              "");
    EXPECT_THAT(TakeCalls(), IsEmpty());
}
