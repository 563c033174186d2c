// The lines of the trace, one of each kind.

#include <cstring>

#include "standin/host/family/FamilyBehaviour.h"
#include "tests/standin/Client.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;

constexpr const char* zeroIdentity = "00000000-0000-0000-0000-000000000000";

class Trace : public LayerTest
{
protected:
    Trace()
    {
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        host.AddEffect(layer, "QVK VORTEFF Jitter", "B");
        host.Effect("B").family.group = 2;
        handle = host.LayerHandle(layer);
    }

    void send(Client& client, void* effect, std::uint32_t command, std::int16_t group)
    {
        std::memset(sent, 0, sizeof sent);
        std::memcpy(sent, &message::magic, 4);
        std::memcpy(sent + 4, &command, 4);
        if (command != message::getIdentity)
            message::PutGroup(sent, group);
        const A_Time time{0, 100};
        (void)client.Call(effectSuite, 3, 7, A_long{7}, effect, &time, A_long{17}, static_cast<void*>(sent));
    }

    std::vector<std::string> lines() const { return host.CallTexts(SuiteTraffic::leftOut); }

    void* handle = nullptr;
    char sent[128];
};

TEST_F(Trace, SuiteTrafficIsInItsPlace)
{
    inHook(
        [&](Client& client)
        {
            (void)client.NumEffects(handle);
            const void* table = nullptr;
            (void)client.Acquire("Nobody's Suite", 1, &table);
        });
    EXPECT_THAT(host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
                                              "Basic AcquireSuite(\"Nobody's Suite\", 1) = 1394689636",
                                              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(Trace, EffectsGoByTheirLabels)
{
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 1);
            (void)client.Flags(effect);
            (void)client.SetActive(effect, Switch::off);
            A_long key = 0;
            (void)client.Call(effectSuite, 1, 2, effect, &key);
            char name[128];
            (void)client.Call(effectSuite, 1, 14, key, static_cast<char*>(name));
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(lines(), ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                                     "Effect 1 AEGP_GetEffectFlags(effect B) -> 1",
                                     "Effect 1 AEGP_SetEffectFlags(effect B, 1, 0)",
                                     "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect B) -> 222",
                                     "Effect 1 AEGP_GetEffectMatchName(222) -> \"QVK VORTEFF Jitter\"",
                                     "Effect 1 AEGP_DisposeEffect(effect B)"));
}

TEST_F(Trace, MessagesShowRequestAndAnswer)
{
    host.Effect("B").family.uuid = IdentityOf(0x0a);
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 1);
            host.ClearTrace();
            send(client, effect, message::getGroup, -1);
            send(client, effect, message::getIdentity, 0);
            send(client, effect, message::setGroup, 4);
            const A_Time time{0, 100};
            (void)client.Call(effectSuite, 1, 7, A_long{7}, effect, &time, static_cast<void*>(sent));
            const std::vector<std::string> calls = lines();
            (void)client.DisposeEffect(effect);
            EXPECT_THAT(
                calls,
                ElementsAre(
                    "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 1 group -1) -> "
                    "group 2",
                    std::string(
                        "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 5 uuid ") +
                        zeroIdentity + ") -> uuid 0a0a0a0a-0a0a-0a0a-0a0a-0a0a0a0a0a0a",
                    "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 3 group 4)",
                    "Effect 1 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, VORT 3 group 4)"));
        });
}

TEST_F(Trace, StreamsGoByTheirEffectAndParameter)
{
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 1);
            void* stream = client.StreamOf(effect, 1);
            void* group = client.ParentOf(stream);
            (void)client.NameOf(group);
            (void)client.Rename(group, "Shaker");
            (void)client.NameOf(group);
            (void)client.StreamFlags(stream);
            (void)client.SetHidden(group, Switch::off, Switch::on);
            (void)client.Call(dynamicStreamSuite, 5, 6, group, A_u_long{2}, A_Boolean{0}, A_Boolean{0});
            (void)client.DisposeStream(stream);
            (void)client.Call(streamSuite, 4, 6, group);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(lines(),
                ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) -> stream B.1",
                            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.1) -> stream B",
                            "Stream 4 AEGP_GetStreamName(stream B, 1) -> \"Vortan Jitter Effector\"",
                            "DynamicStream 2 AEGP_SetStreamName(stream B, \"Shaker\")",
                            "Stream 4 AEGP_GetStreamName(stream B, 1) -> \"Shaker\"",
                            "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream B.1) -> 0",
                            "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream B, 2, 0, 1)",
                            "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream B, 2, 0, 0)",
                            "Stream 7 AEGP_DisposeStream(stream B.1)",
                            "Stream 4 AEGP_DisposeStream(stream B)",
                            "Effect 1 AEGP_DisposeEffect(effect B)"));
}

TEST_F(Trace, AllOtherCallsReadAsTheyWereMade)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "the test only looks at the lines");
    inHook(
        [&](Client& client)
        {
            void* active = client.ActiveLayer();
            void* item = client.ActiveItem();
            A_long id = 0;
            (void)client.Call(itemSuite, 3, 7, item, &id);
            (void)client.Call(layerSuite, 5, 35, active, &id);
            void* composition = nullptr;
            (void)client.Call(layerSuite, 5, 5, active, &composition);
            const A_Time time{0, 100};
            A_Time converted{};
            (void)client.Call(layerSuite, 5, 33, active, &time, &converted);
            (void)client.StartUndo("Rename Effect(s)");
            (void)client.EndUndo();
            (void)client.Call(utilitySuite, 11, 0, A_long{7}, "Hello");
            PF_App_Color colour{};
            (void)client.Call(appSuite, 6, 0, &colour);
            A_long command = 0;
            (void)client.Call(commandSuite, 1, 0, &command);
        });
    EXPECT_THAT(lines(),
                ElementsAre("Layer 5 AEGP_GetActiveLayer() -> layer 1",
                            "Item 3 AEGP_GetActiveItem() -> item 101",
                            "Item 3 AEGP_GetItemID(item 101) -> 101", "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
                            "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101",
                            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                            "Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")",
                            "Utility 3 AEGP_EndUndoGroup()", "Utility 11 AEGP_ReportInfo(id 7, \"Hello\")",
                            "App 6 PF_AppGetBgColor() -> 8995, 8995, 8995",
                            "Command 1 AEGP_GetUniqueCommand() -> 1001"));
}

TEST_F(Trace, NullReferencesAndFailedCallsShow)
{
    void* none = nullptr;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "the test passes null");
    host.Expect("null-reference", "AEGP_DisposeStream", "the test passes null");
    host.Expect("null-reference", "AEGP_GetLayerNumEffects", "the test passes null");
    inHook(
        [&](Client& client)
        {
            (void)client.Delete(none);
            (void)client.DisposeStream(none);
            (void)client.NumEffects(none);
        });
    EXPECT_THAT(lines(), ElementsAre("Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                                     "Stream 7 AEGP_DisposeStream(stream null) = 3",
                                     "Effect 1 AEGP_GetLayerNumEffects(layer null) = 3"));
}

TEST_F(Trace, ALimitKeepsTheNewestCalls)
{
    CallTrace trace(2);
    for (int i = 0; i < 10; ++i)
    {
        CallRecord record;
        record.head = "call " + std::to_string(i);
        (void)trace.Begin(record);
    }
    EXPECT_LE(trace.Records().size(), 4u);
    EXPECT_EQ(trace.Records().back().head, "call 9");
    EXPECT_EQ(trace.Count(), 10u);
}
} // namespace
} // namespace standin
