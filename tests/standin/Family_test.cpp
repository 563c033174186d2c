// The simulated effects: those that answer, those that do not, and those that lie.

#include <cstring>
#include <set>

#include "standin/host/family/FamilyBehaviour.h"
#include "standin/host/family/Liars.h"
#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Family : public LayerTest
{
protected:
    Family()
    {
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        host.AddEffect(layer, "ADBE Tint", "X");
        handle = host.LayerHandle(layer);
    }

    /// Sends a message to the effect at an index; the answer lies in `record`.
    A_Err send(A_long index, std::uint32_t command, std::int16_t group = -1)
    {
        std::memset(record, 0, sizeof record);
        std::memcpy(record, &message::magic, 4);
        std::memcpy(record + 4, &command, 4);
        if (command != message::getIdentity)
            message::PutGroup(record, group);
        A_Err error = errNone;
        inHook(
            [&](Client& client)
            {
                void* effect = client.EffectAt(handle, index);
                const A_Time time{0, 100};
                error = client.Call(effectSuite, 3, 7, A_long{7}, effect, &time, A_long{17},
                                    static_cast<void*>(record));
                (void)client.DisposeEffect(effect);
            });
        return error;
    }

    std::string identity(A_long index)
    {
        (void)send(index, message::getIdentity);
        return TextOf(message::IdentityOf(record));
    }

    int group(A_long index)
    {
        (void)send(index, message::getGroup);
        return message::GroupOf(record);
    }

    void* handle = nullptr;
    char record[128];
};

constexpr const char* zeros = "00000000-0000-0000-0000-000000000000";

TEST_F(Family, IsInstalledUnderItsNames)
{
    EXPECT_EQ(FamilyEffects().size(), 21u);
    EXPECT_EQ(host.FindInstalled("QVK VORTSRC Lamps")->defaultName, "Vortan Sheets Object");
    EXPECT_EQ(host.FindInstalled("QVK VORTSRC Scanner")->defaultName, "Vortan Cutter Object");
    EXPECT_EQ(host.FindInstalled("QVK VORTREN Tiles")->defaultName, "Vortan Tiling Renderer");
    EXPECT_EQ(host.FindInstalled("QVK VORTAN")->defaultName, "Vortan Elder Renderer");
    EXPECT_EQ(host.FindInstalled("QVK VORTAN TWO")->defaultName, "Vortan");
    EXPECT_EQ(host.FindInstalled("QVK VORTKIT")->defaultName, "Vortan Kit");
    std::set<A_long> keys;
    for (const InstalledEffect& effect : host.InstalledEffects())
        EXPECT_TRUE(keys.insert(effect.key).second && effect.key != 0);
}

TEST_F(Family, AnEffectMakesAndAnswersItsIdentity)
{
    EXPECT_EQ(identity(0), "01010101-0101-0101-0101-010100000001");
    (void)host.User().Apply(layer, "QVK VORTEFF Jitter");
    EXPECT_EQ(identity(2), "02020202-0202-0202-0202-020200000002");
}

TEST_F(Family, TheIdentitySourceCanBeReplaced)
{
    host.SetIdentitySource([] { return IdentityOf(0xee); });
    (void)host.User().Apply(layer, "QVK VORTEFF Jitter");
    EXPECT_EQ(identity(2), "eeeeeeee-eeee-eeee-eeee-eeeeeeeeeeee");
}

TEST_F(Family, AnIdentityCanComeWithTheNextIdle)
{
    host.Options().identityBirth = IdentityBirth::atNextIdle;
    (void)host.User().Apply(layer, "QVK VORTEFF Jitter");
    EXPECT_EQ(identity(2), zeros);
    (void)host.RunIdle();
    EXPECT_EQ(identity(2), "02020202-0202-0202-0202-020200000002");
    (void)host.Undo();
    (void)host.Redo();
    EXPECT_EQ(identity(2), "02020202-0202-0202-0202-020200000002");
}

TEST_F(Family, AnEffectKeepsItsToldGroup)
{
    EXPECT_EQ(group(0), 0);
    (void)send(0, message::setGroup, 4);
    EXPECT_EQ(group(0), 4);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Change Group"));
    (void)host.Undo();
    EXPECT_EQ(group(0), 0);
}

TEST_F(Family, GroupChangesCanBeLeftOutOfUndo)
{
    host.Options().groupUndo = GroupUndo::isNotUndoable;
    host.User().Rename("A", "Lamp");
    (void)send(0, message::setGroup, 4);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
    (void)host.Undo();
    EXPECT_EQ(group(0), 4);
}

TEST_F(Family, MinusOneIsAnsweredAsZeroOrStored)
{
    (void)send(0, message::setGroup, 4);
    (void)send(0, message::setGroup, -1);
    EXPECT_EQ(group(0), 0);
    host.Options().groupMinusOne = GroupMinusOne::isStored;
    (void)send(0, message::setGroup, -1);
    EXPECT_EQ(group(0), -1);
}

TEST_F(Family, ARigidEffectAlwaysAnswersMinusOne)
{
    host.Effect("A").family.rigidity = Rigidity::rigid;
    EXPECT_EQ(group(0), -1);
    (void)send(0, message::setGroup, 4);
    EXPECT_EQ(group(0), -1);
    EXPECT_THAT(host.UndoNames(), IsEmpty());
}

TEST_F(Family, AnOutsiderLeavesTheMessageAlone)
{
    EXPECT_EQ(identity(1), zeros);
    EXPECT_EQ(group(1), -1);
    EXPECT_EQ(send(1, message::setGroup, 4), errNone);
    EXPECT_EQ(group(1), -1);
}

TEST_F(Family, AMissingEffectAnswersNothing)
{
    host.Effect("A").flags |= effectMissing;
    EXPECT_EQ(identity(0), zeros);
}

TEST_F(Family, OtherGeneralCommandsAreNotForTheFamily)
{
    std::memset(record, 7, sizeof record);
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 0);
            const A_Time time{0, 100};
            void* none = nullptr;
            EXPECT_EQ(client.Call(effectSuite, 3, 7, A_long{7}, effect, &time, A_long{17},
                                  static_cast<void*>(record)),
                      errNone);
            EXPECT_EQ(client.Call(effectSuite, 3, 7, A_long{7}, effect, &time, A_long{17}, none), errNone);
            EXPECT_NE(client.Call(effectSuite, 3, 7, A_long{7}, effect, &time, A_long{5},
                                  static_cast<void*>(record)),
                      errNone);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(record, Each(7));
}

TEST_F(Family, ALiarCanAnswerLate)
{
    host.Effect("A").behaviour = AnswersLate(2);
    EXPECT_EQ(identity(0), zeros);
    EXPECT_EQ(group(0), -1);
    EXPECT_EQ(identity(0), "01010101-0101-0101-0101-010100000001");
}

TEST_F(Family, LiarsFailWithOrWithoutAnAnswer)
{
    host.Effect("A").behaviour = FailsWith(516);
    EXPECT_EQ(send(0, message::getGroup), 516);
    EXPECT_EQ(message::GroupOf(record), -1);
    host.Effect("A").behaviour = AnswersAndFailsWith(516);
    EXPECT_EQ(send(0, message::getGroup), 516);
    EXPECT_EQ(message::GroupOf(record), 0);
}

TEST_F(Family, ALiarCanRepeatAnIdentity)
{
    host.AddEffect(layer, "QVK VORTEFF Jitter", "B");
    host.Effect("B").behaviour = RepeatsIdentity(host.Effect("A").family.uuid);
    EXPECT_EQ(identity(2), identity(0));
    EXPECT_EQ(group(2), 0);
}

TEST_F(Family, ALiarCanScribbleOverTheReservedBytes)
{
    host.Effect("A").behaviour = ScribblesReserved();
    EXPECT_EQ(identity(0), "01010101-0101-0101-0101-010100000001");
    EXPECT_EQ(record[24], '\xA5');
    EXPECT_EQ(record[127], '\xA5');
    EXPECT_EQ(group(0), 0);
    EXPECT_EQ(record[10], '\xA5');
}

TEST_F(Family, ALiarCanScribbleOverTheWholeMessage)
{
    host.Effect("A").behaviour = ScribblesAll();
    EXPECT_EQ(send(0, message::getGroup), errNone);
    EXPECT_THAT(record, Each('\xA5'));
}

TEST_F(Family, ALiarCanAnswerAnyGroup)
{
    host.Effect("A").behaviour = AnswersGroup(-32768);
    EXPECT_EQ(group(0), -32768);
    EXPECT_EQ(identity(0), "01010101-0101-0101-0101-010100000001");
}

TEST_F(Family, LiarsCanChangeTheStackInsideMessages)
{
    host.Effect("A").behaviour = ActsInMessage([](Host& inside) { inside.User().Delete("X"); });
    EXPECT_EQ(send(0, message::getGroup), errNone); // The reference is stale now, and disposed of.
    EXPECT_EQ(host.StackText(layer), "A");
}

TEST_F(Family, ALiarCanDeleteItself)
{
    host.Effect("A").behaviour = ActsInMessage([](Host& inside) { inside.User().Delete("A"); }, 2);
    (void)send(0, message::getGroup);
    EXPECT_EQ(host.StackText(layer), "A X");
    EXPECT_EQ(send(0, message::setGroup, 3), errNone);
    EXPECT_EQ(host.StackText(layer), "X");
}

TEST_F(Family, WhatAnEffectThrowsStaysInsideTheHost)
{
    host.Effect("A").behaviour = Throws(512);
    EXPECT_EQ(send(0, message::getGroup), errGeneric);
}

TEST_F(Family, AnEffectCanBeWithoutParameters)
{
    InstalledEffect bare;
    bare.matchName = "QVK VORTSRC Bare";
    bare.defaultName = "Bare";
    bare.parameterCount = 1;
    host.Install(bare);
    host.AddEffect(layer, "QVK VORTSRC Bare", "N");
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 2);
            EXPECT_EQ(client.StreamOf(effect, 1), nullptr);
            (void)client.DisposeEffect(effect);
        });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("parameter-index in Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect N, 1)"));
}

TEST_F(Family, NamesNeedNotBeUtf8)
{
    host.Effect("A").customName = "L\xE4mpchen \xFF";
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 0);
            void* stream = client.StreamOf(effect, 1);
            void* parent = client.ParentOf(stream);
            EXPECT_EQ(client.NameOf(parent), "L\xE4mpchen \xFF");
            (void)client.DisposeStream(stream);
            (void)client.DisposeStream(parent);
            (void)client.DisposeEffect(effect);
        });
}
} // namespace
} // namespace standin
