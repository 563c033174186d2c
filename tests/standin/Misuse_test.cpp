// What a plug-in does with what is not its own: tables, ids, command numbers, times and memory.

#include "tests/standin/PluginTest.h"
#include "tests/standin/ReferenceTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const void* const* tableOf(Client& client, const char* suite, A_long version)
{
    const void* table = nullptr;
    EXPECT_EQ(client.Acquire(suite, version, &table), errNone);
    return static_cast<const void* const*>(table);
}

template <class... Arguments>
A_Err callSlot(const void* const* table, int slot, Arguments... arguments)
{
    using Function = A_Err (*)(Arguments...);
    return reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(table[slot]))(arguments...);
}

class Misuse : public ReferenceTest
{
};

TEST_F(Misuse, UseAfterTheLastReleaseIsReported)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            const void* const* table = tableOf(client, effectSuite, 1);
            A_long count = 7;
            EXPECT_EQ(client.Release(effectSuite, 1), errNone);
            EXPECT_EQ(callSlot(table, 0, handle, &count), errNotImplemented);
            EXPECT_EQ(count, 7);
        });
    EXPECT_THAT(found, ElementsAre("released-table in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
}

TEST_F(Misuse, ATableHeldElsewhereMayBeUsed)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            const void* const* table = tableOf(client, effectSuite, 1);
            (void)tableOf(client, effectSuite, 1);
            A_long count = 7;
            EXPECT_EQ(client.Release(effectSuite, 1), errNone);
            EXPECT_EQ(callSlot(table, 0, handle, &count), errNone);
            EXPECT_EQ(count, 3);
            EXPECT_EQ(client.Release(effectSuite, 1), errNone);
        });
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(Misuse, AnotherVersionsTableIsNotThePluginsOwn)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            const void* const* first = tableOf(client, effectSuite, 1);
            EXPECT_EQ(client.Release(effectSuite, 1), errNone);
            (void)tableOf(client, effectSuite, 3);
            A_long count = 7;
            EXPECT_EQ(callSlot(first, 0, handle, &count), errNotImplemented);
            EXPECT_EQ(client.Release(effectSuite, 3), errNone);
        });
    EXPECT_THAT(found, ElementsAre("released-table in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
}

TEST_F(Misuse, ATimeWithScaleZeroIsRefused)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            const A_Time in{4, 0};
            A_Time out{9, 9};
            EXPECT_EQ(client.Call(layerSuite, 5, 33, handle, &in, &out), errParameter);
            EXPECT_EQ(out.value, 9);
            void* effect = client.EffectAt(handle, 0);
            EXPECT_EQ(client.Call(effectSuite, 3, 7, host.PluginId(), effect, &in, completelyGeneral,
                                  static_cast<void*>(nullptr)),
                      errParameter);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(found,
                ElementsAre("time-scale in Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 4/0)",
                            "time-scale in Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 4/0, 17, "
                            "null)"));
}

TEST_F(Misuse, AnUnreadableParameterAlarmsTheUser)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 0);
            EXPECT_EQ(client.StreamOf(effect, 0), nullptr);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(found, ElementsAre("parameter-index in Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect "
                                   "A, 0)"));
    ASSERT_EQ(host.Alerts().size(), 1u);
    EXPECT_EQ(host.Alerts()[0].pluginId, 0);
    EXPECT_EQ(host.Alerts()[0].text,
              "internal verification failure: effect param_index out of range (5027 :: 150)");
}

TEST_F(Misuse, ACallOutsideHooksAlarmsTheUser)
{
    struct Basic
    {
        A_Err (*acquire)(const char*, A_long, const void**);
    };
    const void* table = nullptr;
    EXPECT_EQ(static_cast<const Basic*>(host.BasicSuite())->acquire(itemSuite, 3, &table), errGeneric);
    EXPECT_THAT(FindingsOf(host), ElementsAre("outside-hook in Basic AcquireSuite(\"AEGP Item Suite\", 3)"));
    ASSERT_EQ(host.Alerts().size(), 1u);
    EXPECT_EQ(host.Alerts()[0].text, "internal verification failure: no current context");
}

class MisusedIds : public PluginTest
{
protected:
    A_Err report(A_long id)
    {
        A_Err error = errNone;
        inHook([&](Client& client) { error = client.Call(utilitySuite, 3, 0, id, "Hello"); });
        return error;
    }
};

TEST_F(MisusedIds, AnUnknownIdIsRefused)
{
    EXPECT_EQ(report(9), errParameter);
    EXPECT_THAT(FindingsOf(host), ElementsAre("wrong-plugin-id in Utility 3 AEGP_ReportInfo(id 9, "
                                              "\"Hello\")"));
}

TEST_F(MisusedIds, AnotherPluginsIdIsRefused)
{
    EXPECT_EQ(report(loaded.id), errParameter);
    EXPECT_THAT(FindingsOf(host), ElementsAre("wrong-plugin-id in Utility 3 AEGP_ReportInfo(id 8, "
                                              "\"Hello\")"));
    EXPECT_EQ(report(host.PluginId()), errNone);
}

TEST_F(MisusedIds, EachHookRunsUnderItsPluginsId)
{
    plugin.inHook = [&](const std::string&)
    {
        Client client(host);
        EXPECT_EQ(client.Call(utilitySuite, 3, 0, loaded.id, "Hello"), errNone);
    };
    (void)host.RunIdle();
    (void)host.ChooseMenuItem("Test Panel");
    (void)host.SetPanelState("Test Panel", PanelState::frontmost);
    EXPECT_EQ(host.Alerts().size(), 4u);
    EXPECT_THAT(FindingsOf(host), IsEmpty());
}

TEST_F(MisusedIds, APublishedSuiteRunsUnderItsPublishersId)
{
    static const void* const table[1] = {nullptr};
    const auto entry = +[](void*, A_long, A_long, A_long, void**) -> A_Err
    {
        Client client(*Host::Current());
        void* ref = nullptr;
        return client.Call(suitesSuite, 2, 2, static_cast<void*>(nullptr), static_cast<void*>(nullptr),
                           "Test Suite", A_long{1}, A_long{1}, static_cast<const void*>(&table), &ref);
    };
    EXPECT_EQ(host.Load(entry).id, 9);
    EXPECT_EQ(report(9), errParameter);
    inHook(
        [&](Client& client)
        {
            (void)tableOf(client, "Test Suite", 1);
            EXPECT_EQ(client.Call(utilitySuite, 3, 0, A_long{9}, "Hello"), errNone);
            EXPECT_EQ(client.Release("Test Suite", 1), errNone);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("wrong-plugin-id in Utility 3 AEGP_ReportInfo(id 9, "
                                              "\"Hello\")"));
}

TEST_F(MisusedIds, ACommandHookNeedsAKnownNumber)
{
    const auto hook = +[](void*, void*, A_long, A_u_long, A_Boolean, A_Boolean*) -> A_Err { return errNone; };
    host.RunInEntryPoint(
        [&]
        {
            Client client(host);
            const auto hookOn = [&](A_long command)
            {
                return client.Call(registerSuite, 6, 0, host.PluginId(), A_u_long{1}, command, hook,
                                   static_cast<void*>(nullptr));
            };
            EXPECT_EQ(hookOn(1002), errParameter);
            EXPECT_EQ(hookOn(plugin.command), errNone);
            EXPECT_EQ(hookOn(0), errNone) << "all commands";
            EXPECT_EQ(hookOn(commandUndo), errNone) << "the host's own";
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("unknown-command in Register 6 AEGP_RegisterCommandHook(id 7, "
                                              "1, 1002, hook, null)"));
}

class Memory : public HostTest
{
protected:
    template <class Body>
    void inHook(Body body)
    {
        host.RunInHook([&] { body(static_cast<void* const*>(host.BasicSuite())); });
    }

    static void* allocate(void* const* basic)
    {
        void* block = nullptr;
        EXPECT_EQ(callSlot(basic, 3, std::size_t{64}, &block), errNone);
        return block;
    }
};

TEST_F(Memory, LeakedBlocksAreReportedAtTheEnd)
{
    inHook([](void* const* basic) { (void)allocate(basic); });
    EXPECT_THAT(FindingsOf(host), IsEmpty());
    host.Quit();
    EXPECT_THAT(FindingsOf(host), ElementsAre("leaked-block in Basic AllocateBlock(64)"));
}

TEST_F(Memory, ABlockIsFreedOnce)
{
    inHook(
        [](void* const* basic)
        {
            void* block = allocate(basic);
            EXPECT_EQ(callSlot(basic, 4, block), errNone);
            EXPECT_EQ(callSlot(basic, 4, block), errBadParameter);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("foreign-block in Basic FreeBlock(refcon)"));
}

TEST_F(Memory, AReallocatedBlockTakesTheFormersPlace)
{
    inHook(
        [](void* const* basic)
        {
            void* block = allocate(basic);
            EXPECT_EQ(callSlot(basic, 5, block, std::size_t{4096}, &block), errNone);
            EXPECT_EQ(callSlot(basic, 4, block), errNone);
            int none = 0;
            void* out = nullptr;
            EXPECT_EQ(callSlot(basic, 5, static_cast<void*>(&none), std::size_t{8}, &out), errBadParameter);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("foreign-block in Basic ReallocateBlock(refcon, 8)"));
}

TEST_F(Memory, AFreeingPreventedByFaultIsExcused)
{
    inHook(
        [&](void* const* basic)
        {
            void* block = allocate(basic);
            host.Faults().FailFunction("FreeBlock");
            EXPECT_EQ(callSlot(basic, 4, block), errGeneric);
        });
}
} // namespace
} // namespace standin
