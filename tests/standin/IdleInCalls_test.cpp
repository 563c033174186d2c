// A host that idles inside calls: inside which ones, when in the call, and how deep.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A plug-in whose idle hook notes "idle 2", and a layer with one effect.
class IdleInCall : public PluginTest
{
protected:
    IdleInCall()
    {
        InstallFamily(host);
        layer = host.AddLayer(host.AddComposition("Comp 1"));
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
    }

    /// A hook that counts the layer's effects as often as it is told to.
    void Count(int times)
    {
        inHook(
            [&](Client& client)
            {
                for (int i = 0; i < times; ++i)
                {
                    plugin.events.emplace_back("count");
                    EXPECT_EQ(client.NumEffects(host.LayerHandle(layer)), 1);
                }
            });
    }

    int layer = 0;
};

TEST_F(IdleInCall, ComesBeforeTheCallReturns)
{
    Count(1);
    EXPECT_THAT(plugin.events, ElementsAre("count"));
    EXPECT_EQ(host.Idles().TimesIdled(), 0u);
    plugin.events.clear();
    host.Idles().InFunction("AEGP_GetLayerNumEffects");
    Count(2);
    EXPECT_THAT(plugin.events, ElementsAre("count", "idle 2", "count"));
    EXPECT_EQ(host.Idles().TimesIdled(), 1u);
}

TEST_F(IdleInCall, PicksTheNthCallOfAll)
{
    host.Idles().InCall(3); // After the acquire and the first count.
    Count(3);
    EXPECT_THAT(plugin.events, ElementsAre("count", "count", "idle 2", "count"));
}

TEST_F(IdleInCall, PicksEachNthCallUpToALast)
{
    host.Idles().InCalls(2, 2, 5); // The acquire is the first.
    Count(6);
    EXPECT_THAT(plugin.events,
                ElementsAre("count", "idle 2", "count", "count", "idle 2", "count", "count", "count"));
}

TEST_F(IdleInCall, PicksTheNthCallOfAFunction)
{
    host.Idles().InFunction("AEGP_GetLayerNumEffects", 3);
    Count(4);
    EXPECT_THAT(plugin.events, ElementsAre("count", "count", "count", "idle 2", "count"));
}

TEST_F(IdleInCall, PicksAFunctionsCallsInEverySuite)
{
    host.Idles().InEachCallOf("AEGP_GetLayerNumEffects");
    inHook(
        [&](Client& client)
        {
            for (const A_long version : {1, 3, 1})
            {
                A_long count = 0;
                EXPECT_EQ(client.Call(effectSuite, version, 0, host.LayerHandle(layer), &count), errNone);
            }
        });
    EXPECT_THAT(plugin.events, ElementsAre("idle 2", "idle 2", "idle 2"));
}

TEST_F(IdleInCall, CanBeEveryCallThatAHookMakes)
{
    host.Options().idleInCalls = IdleInCalls::always;
    Count(2);
    EXPECT_THAT(plugin.events, ElementsAre("count", "idle 2", "idle 2", "count", "idle 2", "idle 2"))
        << "inside the acquire, two counts and the release";
    plugin.events.clear();
    host.Options().idleInCalls = IdleInCalls::never;
    Count(1);
    EXPECT_THAT(plugin.events, ElementsAre("count"));
}

TEST_F(IdleInCall, IsForgottenWhenItIsCleared)
{
    host.Idles().InEachCallOf("AEGP_GetLayerNumEffects");
    host.Idles().InCall(2);
    Count(1);
    host.Idles().Clear();
    EXPECT_EQ(host.Idles().TimesIdled(), 0u);
    plugin.events.clear();
    Count(1);
    EXPECT_THAT(plugin.events, ElementsAre("count"));
}

TEST_F(IdleInCall, DoesNotNest)
{
    host.Options().idleInCalls = IdleInCalls::always;
    host.Idles().InFunction("AEGP_GetLayerNumEffects", 2);
    int depth = 0;
    plugin.inHook = [&](const std::string&)
    {
        EXPECT_EQ(++depth, 1);
        Client client(host);
        EXPECT_EQ(client.NumEffects(host.LayerHandle(layer)), 1);
        --depth;
    };
    Count(1);
    EXPECT_EQ(host.Idles().TimesIdled(), 3u);
}

TEST_F(IdleInCall, ComesWhenTheCallHasDoneItsWork)
{
    std::string label;
    plugin.inHook = [&](const std::string&) { label = host.StackText(layer); };
    host.Idles().InFunction("AEGP_ApplyEffect");
    inHook([&](Client& client)
           { client.DisposeEffect(client.Apply(host.LayerHandle(layer), host.InstalledEffects()[1].key)); });
    EXPECT_EQ(label, "A e2");
}

TEST_F(IdleInCall, ComesInsideACallThatFailsAsWell)
{
    host.Faults().FailFunction("AEGP_GetLayerNumEffects");
    host.Idles().InFunction("AEGP_GetLayerNumEffects");
    inHook([&](Client& client) { EXPECT_EQ(client.NumEffects(host.LayerHandle(layer)), -1); });
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
}

TEST_F(IdleInCall, LeavesTheOuterHooksReferencesAlone)
{
    host.Idles().InFunction("AEGP_GetEffectFlags");
    inHook(
        [&](Client& client)
        {
            void* const effect = client.EffectAt(host.LayerHandle(layer), 0);
            (void)client.Flags(effect);
            EXPECT_EQ(host.LiveReferences(), 1);
            EXPECT_EQ(client.DisposeEffect(effect), errNone);
        });
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
}

TEST_F(IdleInCall, LeavesTheOuterHooksUndoGroupOpen)
{
    host.Idles().InFunction("AEGP_StartUndoGroup");
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.StartUndo("Group"), errNone);
            EXPECT_EQ(host.OpenUndoGroups(), 1);
            host.User().Rename("A", "Lamp");
            EXPECT_EQ(client.EndUndo(), errNone);
        });
    EXPECT_THAT(plugin.events, ElementsAre("idle 2"));
}

TEST_F(IdleInCall, IsNoneInsideEntryPointsAndDeathHooks)
{
    host.Options().idleInCalls = IdleInCalls::always;
    host.RunInEntryPoint([&] { (void)Client(host).NumEffects(host.LayerHandle(layer)); });
    EXPECT_THAT(plugin.events, IsEmpty());
    plugin.inHook = [&](const std::string&) { (void)Client(host).NumEffects(host.LayerHandle(layer)); };
    host.Quit();
    EXPECT_THAT(plugin.events, ElementsAre("death"));
    EXPECT_EQ(host.Idles().TimesIdled(), 0u);
}
} // namespace
} // namespace standin
