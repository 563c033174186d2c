// The record that travels, the one function that sends it, and the two questions built on it.

#include "effects/EffectMessages.h"

#include "tests/effects/MessageFixture.h"

#include <algorithm>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The record.

TEST(EffectMessage, IsSentAtTheStartOfTheLayer)
{
    std::uint64_t word = 0;
    std::memcpy(&word, &MESSAGE_TIME, sizeof word);
    EXPECT_EQ(word, 0x6400000000ULL);
}

TEST(EffectMessage, AsksForTheGroupWithMinusOne)
{
    MessageHost product;
    const auto records = KeepRecordsOf(product, "A");
    (void)product.Groups({0});
    ASSERT_EQ(records->size(), 1u);
    const Bytes& bytes = records->front().bytes;
    EXPECT_THAT(std::vector<int>(bytes.begin(), bytes.begin() + 10),
                ElementsAre(0x54, 0x52, 0x4F, 0x56, 1, 0, 0, 0, 0xFF, 0xFF));
}

TEST(EffectMessage, AsksForTheIdentityWithZeros)
{
    MessageHost product;
    const auto records = KeepRecordsOf(product, "A");
    (void)product.Uuids({0});
    ASSERT_EQ(records->size(), 1u);
    const Bytes& bytes = records->front().bytes;
    EXPECT_THAT(
        std::vector<int>(bytes.begin(), bytes.begin() + 24),
        ElementsAre(0x54, 0x52, 0x4F, 0x56, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(EffectMessage, TellsAGroupInAnOtherwiseZeroRecord)
{
    MessageHost product;
    const auto records = KeepRecordsOf(product, "A");
    product.SetGroup(product.Uuid("A"), 0x1234);
    ASSERT_EQ(records->size(), 2u);
    std::vector<int> expected(128, 0);
    const std::vector<int> head = {0x54, 0x52, 0x4F, 0x56, 3, 0, 0, 0, 0x34, 0x12};
    std::copy(head.begin(), head.end(), expected.begin());
    const Bytes& bytes = records->back().bytes;
    EXPECT_EQ(std::vector<int>(bytes.begin(), bytes.end()), expected);
}

// Sending.

TEST(PingEffectIndex, SendsTheMessageWithTheseCalls)
{
    MessageHost product;
    VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
    message.group = -1;
    product.host.Effect("B").family.group = 6;
    EXPECT_EQ(product.Ping(message, 2).error, 0);
    EXPECT_EQ(message.group, 6);
    EXPECT_THAT(
        product.host.CallTexts(),
        ElementsAre(
            "Basic AcquireSuite(\"AEGP Layer Suite\", 5)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect B",
            "Effect 1 AEGP_GetEffectFlags(effect B) -> 1", "Basic AcquireSuite(\"AEGP Effect Suite\", 3)",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 1 group -1) -> group 6",
            "Effect 3 AEGP_DisposeEffect(effect B)", "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)", "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)"));
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, HandsTheEffectTheTimeOfTheComposition)
{
    MessageHost product;
    const auto records = KeepRecordsOf(product, "A");
    product.host.State().FindLayer(product.layerId)->startTime = -300;
    VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
    (void)product.Send(
        [&](AEGP_SuiteHandler* suites) {
            return PingEffectIndex(product.Id(), suites, product.Layer(), {50, 100}, &message, 0, 0);
        });
    ASSERT_EQ(records->size(), 1u);
    EXPECT_EQ(records->front().timeValue, -250);
    EXPECT_EQ(records->front().timeScale, 100u);
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, SendsNothingToAnIndexOutsideTheStack)
{
    for (const int index : {-1, 3, 4, 1000, -1000})
    {
        MessageHost product;
        VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
        message.group = 77;
        EXPECT_EQ(product.Ping(message, index).error, 0) << index;
        EXPECT_EQ(message.group, 77);
        EXPECT_THAT(product.CallList(),
                    ElementsAre("Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                                "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3"));
        product.ExpectCleanEnd();
    }
}

TEST(PingEffectIndex, LeavesARecordTheEffectDoesNotKnow)
{
    MessageHost product;
    VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
    message.group = 77;
    EXPECT_EQ(product.Ping(message, 1).error, 0);
    EXPECT_EQ(message.group, 77);
    EXPECT_EQ(product.CallList().size(), 6u);
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, SendsIfOneRequiredFlagIsSet)
{
    MessageHost product;
    product.host.Effect("A").flags = 1 | 4;
    for (const int required : {0, 1, 4, 1 | 4, 2 | 4, 1 | 8})
    {
        VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
        message.group = -1;
        EXPECT_EQ(product.Ping(message, 0, required).error, 0);
        EXPECT_EQ(message.group, 0) << required;
        EXPECT_THAT(product.CallList(), ::testing::Contains("Effect 3 AEGP_DisposeEffect(effect A)"));
    }
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, RefusesWithoutFlagsAndDisposesThroughSuite1)
{
    MessageHost product;
    product.host.Effect("A").flags = 4;
    for (const int required : {1, 2, 8, 1 | 2 | 8})
    {
        VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
        message.group = 77;
        EXPECT_EQ(product.Ping(message, 0, required).error, 0);
        EXPECT_EQ(message.group, 77) << required;
        EXPECT_THAT(product.host.CallTexts(),
                    ElementsAre("Basic AcquireSuite(\"AEGP Layer Suite\", 5)",
                                "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                                "Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
                                "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                                "Effect 1 AEGP_GetEffectFlags(effect A) -> 4",
                                "Effect 1 AEGP_DisposeEffect(effect A)",
                                "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
                                "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)"));
    }
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, SendsToAnyIfNoFlagsAreRequired)
{
    MessageHost product;
    product.host.Effect("A").flags = 0;
    VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
    message.group = -1;
    EXPECT_EQ(product.Ping(message, 0).error, 0);
    EXPECT_EQ(message.group, 0);
    product.ExpectCleanEnd();
}

// Asking.

TEST(GetEffectGroups, GivesOneGroupForEachIndexInOrder)
{
    MessageHost product;
    product.host.Effect("A").family.group = 3;
    product.host.Effect("B").family.group = 10;
    EXPECT_THAT(product.Groups({2, 0, 1, 2}), ElementsAre(10, 3, -1, 10));
    product.ExpectCleanEnd();
}

TEST(GetEffectGroups, GivesMinusOneForABadIndex)
{
    MessageHost product;
    EXPECT_THAT(product.Groups({-1, 0, 3}), ElementsAre(-1, 0, -1));
    product.ExpectCleanEnd();
}

TEST(GetEffectGroups, GivesMinusOneForAnInactiveEffect)
{
    MessageHost product;
    product.host.Effect("A").family.group = 3;
    product.host.Effect("B").family.group = 4;
    product.host.Effect("A").flags = 0;
    EXPECT_THAT(product.Groups({0, 1, 2}, AEGP_EffectFlags_ACTIVE), ElementsAre(-1, -1, 4));
    EXPECT_EQ(product.host.RuntimeOf(product.host.Effect("A").id).messages, 0);
    EXPECT_THAT(product.Groups({0, 1, 2}), ElementsAre(3, -1, 4));
    EXPECT_EQ(product.host.RuntimeOf(product.host.Effect("A").id).messages, 1);
    product.ExpectCleanEnd();
}

TEST(GetEffectGroups, OfNoIndexMakesNoCall)
{
    MessageHost product;
    EXPECT_THAT(product.Groups({}, 0, {5}), ElementsAre(5));
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(GetEffectGroups, AppendsToWhatTheListHolds)
{
    EXPECT_THAT(MessageHost().Groups({0}, 0, {5}), ElementsAre(5, 0));
}

namespace
{
/// The times at which a message is sent, of which each is converted for the composition.
int messagesAtHalfASecond(const MessageHost& product)
{
    const Calls calls = product.CallList();
    return static_cast<int>(
        std::count(calls.begin(), calls.end(),
                   "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 50/100) -> time 50/100"));
}
} // namespace

TEST(GetEffectGroups, AsksAtTheTimeGiven)
{
    MessageHost product;
    (void)product.Groups({2, 0}, 0, {}, {50, 100});
    EXPECT_EQ(messagesAtHalfASecond(product), 2);
}

TEST(GetEffectUUIDs, AsksAtTheTimeGiven)
{
    MessageHost product;
    (void)product.Uuids({2, 0}, {}, {50, 100});
    EXPECT_EQ(messagesAtHalfASecond(product), 2);
}

TEST(SetEffectGroupByUUID, AsksAndTellsAtTheTimeGiven)
{
    MessageHost product;
    (void)product.Send(
        [&](AEGP_SuiteHandler* suites) {
            return SetEffectGroupByUUID(product.Id(), suites, product.Layer(), {50, 100}, product.Uuid("B"),
                                        6);
        });
    EXPECT_EQ(messagesAtHalfASecond(product), 4);
    EXPECT_EQ(product.Text(), "A X B@6");
}

TEST(GetEffectUUIDs, AppendsToWhatTheListHolds)
{
    MessageHost product;
    EXPECT_THAT(product.Uuids({1}, {"held"}), ElementsAre("held", zeroUuid));
    EXPECT_THAT(product.Uuids({}, {"held"}), ElementsAre("held"));
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(GetEffectUUIDs, GivesOneTextForEachIndexInOrder)
{
    MessageHost product;
    EXPECT_THAT(product.Uuids({2, 1, 0, 7}), ElementsAre("02020202-0202-0202-0202-020200000002", zeroUuid,
                                                         "01010101-0101-0101-0101-010100000001", zeroUuid));
    product.ExpectCleanEnd();
}

TEST(GetEffectUUIDs, AsksEachIndexWhateverItsFlags)
{
    MessageHost product;
    product.host.Effect("A").flags = 0;
    (void)product.Uuids({0, 1, 2});
    const TracedStack traced = product.Traced();
    EXPECT_EQ(product.CallList(),
              Sequence({traced.AskIdentity(0), traced.AskIdentity(1), traced.AskIdentity(2)}));
    product.ExpectCleanEnd();
}

TEST(GetEffectUUIDs, OfNoIndexMakesNoCall)
{
    MessageHost product;
    EXPECT_THAT(product.Uuids({}), IsEmpty());
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(EffectMessages, WithoutFamilyEffectsKeepThePresets)
{
    MessageHost product("X1 X2");
    EXPECT_THAT(product.Uuids({0, 1}), ElementsAre(zeroUuid, zeroUuid));
    EXPECT_THAT(product.Groups({0, 1}), ElementsAre(-1, -1));
    product.ExpectCleanEnd();
}
