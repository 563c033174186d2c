// Names, flags and what un-hiding shows.

#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Streams : public LayerTest
{
protected:
    Streams() { host.AddEffect(layer, "QVK VORTSRC Lamps", "A"); }

    /// With the effect, its first parameter's stream and its group; all are disposed of afterwards.
    template <class Use>
    void withStreams(Use use)
    {
        inHook(
            [&](Client& client)
            {
                void* effect = client.EffectAt(host.LayerHandle(layer), 0);
                void* parameter = client.StreamOf(effect, 1);
                void* group = client.ParentOf(parameter);
                use(client, parameter, group);
                (void)client.DisposeStream(parameter);
                (void)client.DisposeStream(group);
                (void)client.DisposeEffect(effect);
            });
    }

    std::string groupName()
    {
        std::string name;
        withStreams([&](Client& client, void*, void* group) { name = client.NameOf(group); });
        return name;
    }
};

TEST_F(Streams, TheGroupHasTheDefaultNameUntilRenamed)
{
    EXPECT_EQ(groupName(), "Vortan Sheets Object");
    host.User().Rename("A", "Lamp");
    EXPECT_EQ(groupName(), "Lamp");
}

TEST_F(Streams, ForcingEnglishSelectsAmongDefaultNamesOnly)
{
    host.User().Rename("A", "Leuchte");
    withStreams(
        [&](Client& client, void*, void* group)
        {
            char name[128] = "";
            EXPECT_EQ(client.Call(streamSuite, 4, 7, group, A_Boolean{0}, static_cast<char*>(name)), errNone);
            EXPECT_STREQ(name, "Leuchte");
            EXPECT_EQ(client.NameOf(group), "Leuchte");
        });
}

TEST_F(Streams, AParameterBearsItsOwnName)
{
    withStreams([&](Client& client, void* parameter, void*)
                { EXPECT_EQ(client.NameOf(parameter), "Parameter 1"); });
}

TEST_F(Streams, ALongNameIsCutAtTheLimit)
{
    const std::string name(200, 'x');
    host.User().Rename("A", name);
    EXPECT_EQ(groupName(), std::string(127, 'x'));
    host.Options().nameLimit = NameLimit::published;
    EXPECT_EQ(groupName(), std::string(31, 'x'));
}

TEST_F(Streams, AMatchNameIsCutAtItsLimit)
{
    InstalledEffect effect;
    effect.matchName = std::string(200, 'm');
    const A_long key = host.Install(effect);
    const auto matchName = [&]
    {
        char name[128] = "";
        inHook([&](Client& client) { (void)client.Call(effectSuite, 1, 14, key, static_cast<char*>(name)); });
        return std::string(name);
    };
    EXPECT_EQ(matchName(), std::string(127, 'm'));
    host.Options().nameLimit = NameLimit::published;
    EXPECT_EQ(matchName(), std::string(47, 'm'));
}

TEST_F(Streams, AnUnterminatedMatchNameFillsTheBuffer)
{
    InstalledEffect effect;
    effect.matchName = "QVK VORTSRC Endless";
    effect.matchNameEnding = InstalledEffect::MatchNameEnding::notTerminated;
    const A_long key = host.Install(effect);
    char name[128] = "";
    inHook([&](Client& client) { (void)client.Call(effectSuite, 1, 14, key, static_cast<char*>(name)); });
    EXPECT_EQ(std::string(name, 128), "QVK VORTSRC Endless" + std::string(109, '#'));
}

TEST_F(Streams, AnEmptyNameIsKeptOrReset)
{
    host.User().Rename("A", "Lamp");
    withStreams([](Client& client, void*, void* group) { EXPECT_EQ(client.Rename(group, ""), errNone); });
    EXPECT_EQ(groupName(), "");
    EXPECT_EQ(host.Effect("A").customName, "");

    host.Options().emptyName = EmptyName::resetsToDefault;
    withStreams([](Client& client, void*, void* group) { EXPECT_EQ(client.Rename(group, ""), errNone); });
    EXPECT_EQ(groupName(), "Vortan Sheets Object");
    EXPECT_FALSE(host.Effect("A").customName);
}

TEST_F(Streams, AParametersNameIsRefusedOrTaken)
{
    withStreams([](Client& client, void* parameter, void*)
                { EXPECT_EQ(client.Rename(parameter, "x"), errParameter); });
    host.Options().parameterRename = ParameterRename::isTaken;
    withStreams([](Client& client, void* parameter, void*)
                { EXPECT_EQ(client.Rename(parameter, "x"), errNone); });
    EXPECT_EQ(host.Effect("A").parameters[1].name, "x");
    EXPECT_EQ(groupName(), "Vortan Sheets Object");
}

TEST_F(Streams, ANullNameIsRefused)
{
    host.Expect("null-pointer", "AEGP_SetStreamName", "the test passes null");
    withStreams([](Client& client, void*, void* group)
                { EXPECT_EQ(client.Rename(group, nullptr), errParameter); });
    EXPECT_EQ(groupName(), "Vortan Sheets Object");
}

TEST_F(Streams, FlagsTellHiddenAndTheEyeball)
{
    withStreams(
        [&](Client& client, void* parameter, void* group)
        {
            EXPECT_EQ(client.StreamFlags(group), 1u);
            EXPECT_EQ(client.StreamFlags(parameter), 0u);
            (void)client.SetHidden(group, Switch::off, Switch::on);
            (void)client.SetHidden(parameter, Switch::off, Switch::on);
            EXPECT_EQ(client.StreamFlags(group), 3u);
            EXPECT_EQ(client.StreamFlags(parameter), 2u);
        });
    EXPECT_TRUE(host.Effect("A").groupHidden);
    EXPECT_TRUE(host.Effect("A").parameters[1].hidden);
    EXPECT_FALSE(host.Effect("A").parameters[2].hidden);
}

TEST_F(Streams, TheGroupsEyeballIsTheEffectsSwitch)
{
    withStreams(
        [](Client& client, void*, void* group) {
            EXPECT_EQ(client.Call(dynamicStreamSuite, 2, 5, group, A_u_long{1}, A_Boolean{1}, A_Boolean{0}),
                      0);
        });
    EXPECT_EQ(host.Effect("A").flags, 0);
}

TEST_F(Streams, OtherFlagsCannotBeSet)
{
    host.Expect("read-only-flag", "AEGP_SetDynamicStreamFlag", "the test tries");
    host.Expect("read-only-flag", "AEGP_SetEffectFlags", "the test tries");
    const ProjectState before = host.State();
    withStreams(
        [](Client& client, void* parameter, void* group)
        {
            for (const A_u_long flag : {0x10u, 3u, 0u})
                EXPECT_NE(client.Call(dynamicStreamSuite, 2, 5, group, flag, A_Boolean{0}, A_Boolean{1}), 0);
            EXPECT_NE(
                client.Call(dynamicStreamSuite, 2, 5, parameter, A_u_long{1}, A_Boolean{0}, A_Boolean{1}), 0);
        });
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(host.LayerHandle(layer), 0);
            EXPECT_NE(client.Call(effectSuite, 1, 5, effect, A_long{8}, A_long{8}), errNone);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_TRUE(host.State() == before);
}

TEST_F(Streams, OnlyTheBitsOfTheMaskAreSet)
{
    host.Effect("A").flags = effectActive | effectAudioToo;
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(host.LayerHandle(layer), 0);
            EXPECT_EQ(client.Call(effectSuite, 1, 5, effect, A_long{1}, A_long{0}), errNone);
            EXPECT_EQ(client.Flags(effect), effectAudioToo);
            (void)client.DisposeEffect(effect);
        });
}

TEST_F(Streams, AnEffectWithoutRevealIsNotRevealed)
{
    host.Effect("A").revealing = Revealing::isNotWanted;
    withStreams(
        [&](Client& client, void* parameter, void* group)
        {
            for (void* stream : {parameter, group})
            {
                (void)client.SetHidden(stream, Switch::off, Switch::on);
                (void)client.SetHidden(stream, Switch::off, Switch::off);
                EXPECT_EQ(client.StreamFlags(stream) & ~streamEyeball, streamSkipReveal);
            }
        });
    EXPECT_THAT(host.ViewLog(), IsEmpty());
}

TEST_F(Streams, TheFlagAgainstRevealingIsNotForPlugins)
{
    withStreams(
        [&](Client& client, void* parameter, void*)
        {
            EXPECT_EQ(client.Call(dynamicStreamSuite, 2, 5, parameter, streamSkipReveal | streamHidden,
                                  A_Boolean{0}, A_Boolean{1}),
                      errParameter);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("read-only-flag in DynamicStream 2 AEGP_SetDynamicStreamFlag("
                                              "stream A.1, 65538, 0, 1)"));
}

TEST_F(Streams, AParametersPulseOpensAndRevealsItsEffect)
{
    withStreams(
        [](Client& client, void* parameter, void*)
        {
            (void)client.SetHidden(parameter, Switch::off, Switch::on);
            (void)client.SetHidden(parameter, Switch::off, Switch::off);
        });
    EXPECT_TRUE(host.IsOpen("A"));
    EXPECT_THAT(host.ViewLog(), ElementsAre("open A", "reveal A.1"));
}

TEST_F(Streams, APulseOnTheGroupClosesTheEffect)
{
    const auto pulse = [&]
    {
        withStreams(
            [](Client& client, void*, void* group)
            {
                (void)client.SetHidden(group, Switch::off, Switch::on);
                (void)client.SetHidden(group, Switch::off, Switch::off);
            });
    };
    pulse();
    EXPECT_THAT(host.ViewLog(), ElementsAre("reveal A"));
    EXPECT_FALSE(host.IsOpen("A"));

    withStreams(
        [](Client& client, void* parameter, void*)
        {
            (void)client.SetHidden(parameter, Switch::off, Switch::on);
            (void)client.SetHidden(parameter, Switch::off, Switch::off);
        });
    host.ClearViewLog();
    pulse();
    EXPECT_THAT(host.ViewLog(), ElementsAre("close A", "reveal A"));
    EXPECT_FALSE(host.IsOpen("A"));
}

TEST_F(Streams, ClearingAFlagThatIsClearShowsNothing)
{
    withStreams([](Client& client, void*, void* group)
                { (void)client.SetHidden(group, Switch::off, Switch::off); });
    EXPECT_THAT(host.ViewLog(), IsEmpty());
}

TEST_F(Streams, AGroupHasNoParentHere)
{
    host.Expect("wrong-kind", "AEGP_GetNewParentStreamRef", "the test asks for it");
    withStreams([](Client& client, void*, void* group) { EXPECT_EQ(client.ParentOf(group), nullptr); });
}
} // namespace
} // namespace standin
