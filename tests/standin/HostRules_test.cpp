// Rules of the host that a plug-in meets at a bad moment: a failed start, dialogs, keys, two panels, a
// selection that goes with its effect, and an undo group that outlives its hook.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostRules : public PluginTest
{
protected:
    HostRules()
    {
        InstallFamily(host);
        layer = host.AddLayer(host.AddComposition("Comp 1"));
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        host.AddEffect(layer, "QVK VORTEFF Jitter", "B");
        host.User().SelectLayers({layer});
    }

    /// As a plug-in registers itself.
    void deleteTop(const std::string& label)
    {
        inHook(
            [&](Client& client)
            {
                host.User().Reorder(label, 0);
                void* effect = client.EffectAt(host.LayerHandle(layer), 0);
                (void)client.Delete(effect);
                (void)client.DisposeEffect(effect);
            });
    }

    int layer = 0;
};

// ---- A start that fails

TEST_F(HostRules, APluginWhoseEntryFailsLosesItsHooks)
{
    const auto failing = +[](void* basic, A_long major, A_long minor, A_long id, void** refcon) -> A_Err
    {
        (void)TestPlugin::Entry(basic, major, minor, id, refcon);
        return errStruct;
    };
    host.Expect("error-left-hook", "EntryPoint", "the entry point fails");
    (void)host.Load(failing);
    plugin.events.clear();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2")) << "the first plug-in's alone";
    EXPECT_EQ(host.FindPanel("Test Panel")->pluginId, loaded.id);
    host.Quit();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "death"));
}

TEST_F(HostRules, APluginWhoseEntryThrowsLosesItsHooks)
{
    const auto throwing = +[](void* basic, A_long major, A_long minor, A_long id, void** refcon) -> A_Err
    {
        (void)TestPlugin::Entry(basic, major, minor, id, refcon);
        throw 13;
    };
    host.Expect("exception-left-hook", "", "the entry point throws");
    (void)host.Load(throwing);
    plugin.events.clear();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
}

TEST_F(HostRules, LenientHostsKeepAFailedPluginsHooks)
{
    host.Options().failedEntry = FailedEntry::leavesHooks;
    const auto failing = +[](void* basic, A_long major, A_long minor, A_long id, void** refcon) -> A_Err
    {
        (void)TestPlugin::Entry(basic, major, minor, id, refcon);
        return errStruct;
    };
    host.Expect("error-left-hook", "EntryPoint", "the entry point fails");
    (void)host.Load(failing);
    plugin.events.clear();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2"));
}

// ---- Keys

TEST_F(HostRules, AKeyUpdatesTheMenus)
{
    EXPECT_EQ(host.PressKey().error, errNone);
    EXPECT_THAT(plugin.events, ElementsAre("update 3"));
    plugin.events.clear();
    host.Options().keyUpdate = KeyUpdate::doesNothing;
    (void)host.PressKey();
    EXPECT_THAT(plugin.events, IsEmpty());
}

TEST_F(HostRules, CommandZeroComesNowAndThen)
{
    host.Options().keyUpdate = KeyUpdate::doesNothing;
    for (int i = 0; i < 6; ++i)
        (void)host.PressKey();
    EXPECT_THAT(plugin.events, ElementsAre("command 0", "command 0"));
    const std::vector<Finding> findings = host.TakeFindings();
    ASSERT_EQ(findings.size(), 2u) << "the plug-in takes every command";
    EXPECT_EQ(findings[0].id, "foreign-command");
    EXPECT_EQ(findings[0].function, "CommandHook");
    plugin.events.clear();
    host.Options().commandZero = CommandZero::neverComes;
    for (int i = 0; i < 6; ++i)
        (void)host.PressKey();
    EXPECT_THAT(plugin.events, IsEmpty());
}

TEST_F(HostRules, NoKeyRunsAHookAfterTheEnd)
{
    host.Quit();
    plugin.events.clear();
    for (int i = 0; i < 3; ++i)
        (void)host.PressKey();
    EXPECT_THAT(plugin.events, IsEmpty());
}

// ---- Dialogs and alerts

TEST_F(HostRules, TheHostIdlesWhileADialogIsOpen)
{
    host.OpenDialog();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
    EXPECT_FALSE(host.ChooseMenuItem("Test Panel"));
    (void)host.PressKey();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
    host.CloseDialog();
    EXPECT_TRUE(host.ChooseMenuItem("Test Panel"));
}

TEST_F(HostRules, ADialogCanStopTheIdle)
{
    host.Options().idleInDialogs = IdleInDialogs::stops;
    host.OpenDialog();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, IsEmpty());
    host.CloseDialog();
    (void)host.RunIdle();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
}

TEST_F(HostRules, AWaitingAlertLetsTheHostIdle)
{
    const auto alert = [&]
    {
        inHook(
            [&](Client& client)
            {
                EXPECT_EQ(client.Call(utilitySuite, 3, 0, host.PluginId(), "Hello"), errNone);
                plugin.events.emplace_back("answered");
            });
    };
    alert();
    EXPECT_THAT(plugin.events, ElementsAre("answered"));
    plugin.events.clear();
    host.Options().alertReturn = AlertReturn::isWhenAnswered;
    alert();
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2", "answered"));
}

TEST_F(HostRules, AnAlertInsideAnAlertDoesNotWait)
{
    host.Options().alertReturn = AlertReturn::isWhenAnswered;
    plugin.inHook = [&](const std::string&)
    {
        Client client(host);
        (void)client.Call(utilitySuite, 3, 0, loaded.id, "Again");
    };
    inHook([&](Client& client) { (void)client.Call(utilitySuite, 3, 0, host.PluginId(), "Hello"); });
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2"));
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Hello", "Again", "Again"));
}

// ---- Panels

TEST_F(HostRules, TwoPanelsOfOneNameHaveOwnViews)
{
    toggle();
    EXPECT_EQ(host.OpenAnotherPanel("Test Panel").error, errNone);
    EXPECT_THAT(plugin.events, ElementsAre("create", "create"));
    EXPECT_EQ(isShown(), "1 1");
    (void)host.SetPanelState("Test Panel", PanelState::absent);
    EXPECT_EQ(isShown(), "1 1") << "the second is still there";
    EXPECT_EQ(host.OpenAnotherPanel("Nobody's Panel").error, errNone);
    EXPECT_EQ(plugin.events.size(), 2u);
}

// ---- The selection

TEST_F(HostRules, DeletingTheSelectedEffectClearsTheSelection)
{
    host.User().SelectEffect("A");
    deleteTop("B");
    inHook([&](Client& client) { EXPECT_NE(client.ActiveLayer(), nullptr); });
    deleteTop("A");
    inHook([&](Client& client) { EXPECT_EQ(client.ActiveLayer(), nullptr); });
}

TEST_F(HostRules, LenientHostsKeepTheDeletedEffectsSelection)
{
    host.Options().deletedSelection = DeletedSelection::leavesLayers;
    host.User().SelectEffect("A");
    deleteTop("A");
    inHook([&](Client& client) { EXPECT_NE(client.ActiveLayer(), nullptr); });
}

// ---- Names and twirls

TEST_F(HostRules, ForcedEnglishCanIgnoreCustomNames)
{
    host.User().Rename("A", "Leuchte");
    const auto name = [&](A_Boolean forced)
    {
        char text[128] = "";
        inHook(
            [&](Client& client)
            {
                void* effect = client.EffectAt(host.LayerHandle(layer), 0);
                void* stream = client.StreamOf(effect, 1);
                void* group = client.ParentOf(stream);
                (void)client.Call(streamSuite, 4, 7, group, forced, static_cast<char*>(text));
                (void)client.DisposeStream(stream);
                (void)client.DisposeStream(group);
                (void)client.DisposeEffect(effect);
            });
        return std::string(text);
    };
    EXPECT_EQ(name(1), "Leuchte");
    host.Options().forcedEnglish = ForcedEnglish::givesDefaultNames;
    EXPECT_EQ(name(1), "Vortan Sheets Object");
    EXPECT_EQ(name(0), "Leuchte");
}

TEST_F(HostRules, UnhidingOpensOrFoldsByTheSwitch)
{
    const auto unhide = [&](A_long parameter)
    {
        host.ClearViewLog();
        inHook(
            [&](Client& client)
            {
                void* effect = client.EffectAt(host.LayerHandle(layer), 0);
                void* stream = client.StreamOf(effect, 1);
                void* group = client.ParentOf(stream);
                void* pulsed = parameter == 0 ? group : stream;
                (void)client.SetHidden(pulsed, Switch::off, Switch::on);
                (void)client.SetHidden(pulsed, Switch::off, Switch::off);
                (void)client.DisposeStream(stream);
                (void)client.DisposeStream(group);
                (void)client.DisposeEffect(effect);
            });
        return host.ViewLog();
    };
    host.Options().unhidingTwirl = UnhidingTwirl::alwaysOpens;
    EXPECT_THAT(unhide(0), ElementsAre("open A", "reveal A"));
    EXPECT_THAT(unhide(1), ElementsAre("reveal A.1"));
    host.Options().unhidingTwirl = UnhidingTwirl::alwaysFolds;
    EXPECT_THAT(unhide(1), ElementsAre("close A", "reveal A.1"));
    EXPECT_THAT(unhide(0), ElementsAre("reveal A"));
}

// ---- An undo group that outlives its hook

class GroupAfterHook : public HostRules
{
protected:
    GroupAfterHook()
    {
        host.Options().groupAtReturn = GroupAtReturn::livesOn;
        host.Expect("undo-group-left-open", "AEGP_StartUndoGroup", "the test leaves the group open");
        inHook(
            [&](Client& client)
            {
                (void)client.StartUndo("Forgotten");
                host.User().Rename("A", "Lamp");
            });
    }
};

TEST_F(GroupAfterHook, SwallowsWhatFollows)
{
    EXPECT_EQ(host.OpenUndoGroups(), 1);
    host.User().Rename("B", "Shaker");
    (void)host.RunIdle();
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    EXPECT_EQ(host.UndoGroupsLeftOpen(), 1) << "reported once";
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
}

TEST_F(GroupAfterHook, IsComplainedOfAtTheNextUndo)
{
    host.User().Rename("B", "Shaker");
    EXPECT_TRUE(host.Undo());
    EXPECT_THAT(host.AlertTexts(), ElementsAre("undo group mismatch, will attempt to fix"));
    EXPECT_EQ(host.NameOf("A"), "Vortan Sheets Object");
    EXPECT_EQ(host.NameOf("B"), "Vortan Jitter Effector");
    EXPECT_EQ(host.OpenUndoGroups(), 0);
    EXPECT_TRUE(host.Redo());
    EXPECT_EQ(host.AlertTexts().size(), 1u);
    EXPECT_EQ(host.UndoGroupsLeftOpen(), 1);
}
} // namespace
} // namespace standin
