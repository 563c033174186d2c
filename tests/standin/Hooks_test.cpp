// Entry points, hooks, menus and the end of a run.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Hooks : public PluginTest
{
};

TEST_F(Hooks, EachEntryPointGetsItsOwnId)
{
    EXPECT_EQ(host.PluginId(), 7);
    EXPECT_EQ(loaded.id, 8);
    EXPECT_EQ(plugin.id, 8);
    EXPECT_EQ(loaded.result.error, errNone);
    EXPECT_EQ(loaded.globalRefcon, &plugin);
}

TEST_F(Hooks, AnEntryPointThatThrowsIsReported)
{
    const LoadedPlugin bad = host.Load(+[](void*, A_long, A_long, A_long, void**) -> A_Err { throw 13; });
    EXPECT_EQ(bad.id, 9);
    EXPECT_EQ(bad.result.thrownNumber, 13);
    EXPECT_THAT(FindingsOf(host), ElementsAre("exception-left-hook"));
}

TEST_F(Hooks, RegisteringOutsideEntryPointsIsRefused)
{
    const auto hook = +[](void*, void*, A_long*) -> A_Err { return 77; };
    void* refcon = nullptr;
    inHook([&](Client& client)
           { EXPECT_NE(client.Call(registerSuite, 6, 8, A_long{7}, hook, refcon), errNone); });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("outside-entry-point in Register 6 AEGP_RegisterIdleHook(id 7, hook, null)"));
    EXPECT_EQ(host.RunIdle().error, errNone);
}

TEST_F(Hooks, ATestCanActAsEntryPoint)
{
    const auto hook =
        +[](void*, void* refcon, A_long*) -> A_Err { return ++*static_cast<int*>(refcon), errNone; };
    int calls = 0;
    host.RunInEntryPoint(
        [&]
        {
            Client client(host);
            EXPECT_EQ(client.Call(registerSuite, 6, 8, host.PluginId(), hook, static_cast<void*>(&calls)),
                      errNone);
        });
    (void)host.RunIdle();
    EXPECT_EQ(calls, 1);
}

TEST_F(Hooks, EachPassIdlesOnceWithFreshMaxSleep)
{
    (void)host.RunIdle();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2"));
}

TEST_F(Hooks, ABurstIsManyPassesStarvingIsNone)
{
    host.Options().burstLength = 3;
    (void)host.RunIdle(IdleMode::burst);
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2", "idle 2"));
    plugin.events.clear();
    (void)host.RunIdle(IdleMode::starved);
    EXPECT_THAT(plugin.events, IsEmpty());
}

TEST_F(Hooks, AThrowingIdleHookRunsAgainNextPass)
{
    plugin.inHook = [](const std::string&) { throw 516; };
    EXPECT_EQ(host.RunIdle().thrownNumber, 516);
    EXPECT_THAT(FindingsOf(host), ElementsAre("exception-left-hook"));
    plugin.inHook = nullptr;
    EXPECT_EQ(host.RunIdle().error, errNone);
}

TEST_F(Hooks, MenuItemsStayOffUntilUpdateHooksRun)
{
    ASSERT_EQ(host.MenuItems().size(), 1u);
    EXPECT_EQ(host.MenuItems()[0].name, "Test Panel");
    EXPECT_EQ(host.MenuItems()[0].menu, 7);
    EXPECT_FALSE(host.MenuItems()[0].enabled);
    (void)host.UpdateMenus(WindowType::project);
    EXPECT_TRUE(host.MenuItems()[0].enabled);
    EXPECT_THAT(plugin.events, ElementsAre("update 1"));
}

TEST_F(Hooks, AnUpdateTakesTheTickAway)
{
    inHook([&](Client& client)
           { EXPECT_EQ(client.Call(commandSuite, 1, 6, plugin.command, A_Boolean{1}), errNone); });
    EXPECT_TRUE(host.MenuItems()[0].ticked);
    (void)host.UpdateMenus();
    EXPECT_FALSE(host.MenuItems()[0].ticked);
}

TEST_F(Hooks, ChoosingUpdatesMenusAndRunsTheCommand)
{
    EXPECT_TRUE(host.ChooseMenuItem("Test Panel"));
    EXPECT_THAT(plugin.events, ElementsAre("update 3", "command 1001"));
    EXPECT_FALSE(host.ChooseMenuItem("Nobody's Item"));
}

TEST_F(Hooks, AnItemThatIsOffCannotBeChosen)
{
    (void)host.UpdateMenus();
    plugin.menuItem = Switch::off;
    EXPECT_FALSE(host.ChooseMenuItem("Test Panel"));
    EXPECT_THAT(plugin.events, ElementsAre("update 3", "update 3"));
}

TEST_F(Hooks, MenuItemsStandSortedByName)
{
    inHook(
        [&](Client& client)
        {
            for (const char* name : {"Zebra", "Aardvark"})
            {
                A_long command = 0;
                (void)client.Call(commandSuite, 1, 0, &command);
                EXPECT_EQ(client.Call(commandSuite, 1, 1, command, name, A_char{7}, A_long{-2}), errNone);
            }
        });
    ASSERT_EQ(host.MenuItems().size(), 3u);
    EXPECT_EQ(host.MenuItems()[0].name, "Aardvark");
    EXPECT_EQ(host.MenuItems()[2].name, "Zebra");
}

TEST_F(Hooks, TheWindowMenuOnlySortsIn)
{
    inHook(
        [&](Client& client)
        {
            for (const A_long place : {-1, 0})
                EXPECT_NE(client.Call(commandSuite, 1, 1, plugin.command, "Top", A_char{7}, place), errNone);
        });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("menu-position in Command 1 AEGP_InsertMenuCommand(1001, \"Top\", 7, -1)",
                            "menu-position in Command 1 AEGP_InsertMenuCommand(1001, \"Top\", 7, 0)"));
    EXPECT_EQ(host.MenuItems().size(), 1u);
}

TEST_F(Hooks, ACommandThatNobodyMadeIsRefused)
{
    inHook(
        [](Client& client)
        {
            EXPECT_NE(client.Call(commandSuite, 1, 4, A_long{5}), errNone);
            EXPECT_NE(client.Call(commandSuite, 1, 6, A_long{5}, A_Boolean{1}), errNone);
            EXPECT_NE(client.Call(commandSuite, 1, 1, A_long{5}, "x", A_char{7}, A_long{-2}), errNone);
        });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("unknown-command in Command 1 AEGP_EnableCommand(5)",
                            "unknown-command in Command 1 AEGP_CheckMarkMenuCommand(5, 1)",
                            "unknown-command in Command 1 AEGP_InsertMenuCommand(5, \"x\", 7, -2)"));
}

TEST_F(Hooks, DoCommandRunsItsHookInsideTheCall)
{
    std::size_t eventsInside = 0;
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.Call(commandSuite, 1, 7, plugin.command), errNone);
            eventsInside = plugin.events.size();
            EXPECT_NE(client.Call(commandSuite, 1, 7, A_long{4711}), errNone);
        });
    EXPECT_EQ(eventsInside, 1u);
    EXPECT_THAT(plugin.events, ElementsAre("command 1001"));
}

TEST_F(Hooks, ANestedHooksTraceFollowsItsCall)
{
    plugin.inHook = [&](const std::string&)
    {
        Client client(host);
        (void)client.ActiveItem();
    };
    host.ClearTrace();
    inHook([&](Client& client) { (void)client.Call(commandSuite, 1, 7, plugin.command); });
    EXPECT_THAT(host.CallTexts(SuiteTraffic::leftOut),
                ElementsAre("Command 1 AEGP_DoCommand(1001)", "Item 3 AEGP_GetActiveItem() -> item null"));
}

TEST_F(Hooks, UndoAndRedoAreCommandsOfTheHost)
{
    InstallFamily(host);
    const int layer = host.AddLayer(host.AddComposition("Comp"));
    host.AddEffect(layer, "ADBE Tint", "A");
    host.User().Rename("A", "Shade");
    EXPECT_TRUE(host.RunCommand(16));
    EXPECT_EQ(host.NameOf("A"), "Tint");
    EXPECT_FALSE(host.RunCommand(16));
    EXPECT_TRUE(host.RunCommand(2035));
    EXPECT_EQ(host.NameOf("A"), "Shade");
}

TEST_F(Hooks, DeathComesOnceBeforeTheContainersGo)
{
    toggle();
    plugin.events.clear();
    plugin.inHook = [&](const std::string& event)
    {
        plugin.events.push_back(event +
                                (host.FindPanel("Test Panel")->container ? " with view" : " without view"));
    };
    host.Quit();
    host.Quit();
    (void)host.RunIdle();
    (void)host.UpdateMenus();
    (void)host.SetPanelState("Test Panel", PanelState::frontmost);
    EXPECT_FALSE(host.RunCommand(plugin.command));
    EXPECT_THAT(plugin.events, ElementsAre("death", "death with view"));
    EXPECT_EQ(host.FindPanel("Test Panel")->container, nullptr);
}

TEST_F(Hooks, DeathCanComeAfterTheContainers)
{
    host.Options().deathOrder = DeathOrder::containersFirst;
    toggle();
    plugin.inHook = [&](const std::string& event)
    {
        plugin.events.push_back(event +
                                (host.FindPanel("Test Panel")->container ? " with view" : " without view"));
    };
    plugin.events.clear();
    host.Quit();
    EXPECT_THAT(plugin.events, ElementsAre("death", "death without view"));
}

TEST_F(Hooks, SuitesCanFailInADeathHook)
{
    plugin.inHook = [&](const std::string&)
    {
        const void* table = nullptr;
        plugin.events.push_back(std::to_string(Client(host).Acquire(itemSuite, 3, &table)));
    };
    host.Options().suitesAtDeath = SuitesAtDeath::fail;
    host.Quit();
    EXPECT_THAT(plugin.events, ElementsAre("death", "1"));
    EXPECT_EQ(host.SuiteCount(itemSuite, 3), 0);
}

TEST_F(Hooks, ASuiteHeldAtTheEndIsReported)
{
    const void* table = nullptr;
    inHook([&](Client& client) { (void)client.Acquire(itemSuite, 3, &table); });
    host.Quit();
    EXPECT_THAT(FindingsOf(host), ElementsAre("unbalanced-suite"));
    inHook([&](Client& client) { (void)client.Release(itemSuite, 3); });
}

TEST_F(Hooks, AlertsAreKept)
{
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.Call(utilitySuite, 3, 0, A_long{7}, "One"), errNone);
            EXPECT_EQ(client.Call(utilitySuite, 11, 0, A_long{7}, "Two"), errNone);
        });
    ASSERT_EQ(host.Alerts().size(), 2u);
    EXPECT_EQ(host.Alerts()[0].pluginId, 7);
    EXPECT_EQ(host.Alerts()[1].text, "Two");
}

TEST_F(Hooks, TheBackgroundColourIsAsSet)
{
    host.SetBackgroundColour({1, 2, 65535});
    PF_App_Color colour{};
    inHook([&](Client& client) { EXPECT_EQ(client.Call(appSuite, 6, 0, &colour), errNone); });
    EXPECT_EQ(colour.red, 1);
    EXPECT_EQ(colour.green, 2);
    EXPECT_EQ(colour.blue, 65535);
}
} // namespace
} // namespace standin
