// The record that travels, the one function that sends it, and the two questions built on it.

#include "effects/EffectMessages.h"

#include "tests/effects/MessageFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    AEGP_LayerH layer = product.Layer();
    (void)Send(product,
               [&](AEGP_SuiteHandler* suites) {
                   return PingEffectIndex(product.Id(), suites, layer, {50, 100}, &message, 0, 0);
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
        EXPECT_THAT(product.host.CallTexts(SuiteTraffic::leftOut),
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
    EXPECT_EQ(product.host.CallTexts(SuiteTraffic::leftOut).size(), 6u);
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
        EXPECT_THAT(product.host.CallTexts(SuiteTraffic::leftOut),
                    ::testing::Contains("Effect 3 AEGP_DisposeEffect(effect A)"));
    }
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, RefusesWithoutTheFlagsAndDisposesThroughSuite1)
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
    std::vector<int> indices;
    std::vector<int> groups = {5};
    AEGP_LayerH layer = product.Layer();
    const HookResult result =
        Send(product, [&](AEGP_SuiteHandler* suites)
             { return GetEffectGroups(product.Id(), suites, layer, MESSAGE_TIME, &indices, &groups, 0); });
    EXPECT_EQ(result.error, 0);
    EXPECT_THAT(groups, ElementsAre(5));
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(GetEffectGroups, AppendsBehindWhatTheListHolds)
{
    MessageHost product;
    std::vector<int> indices = {0};
    std::vector<int> groups = {5};
    AEGP_LayerH layer = product.Layer();
    (void)Send(product, [&](AEGP_SuiteHandler* suites)
               { return GetEffectGroups(product.Id(), suites, layer, MESSAGE_TIME, &indices, &groups, 0); });
    EXPECT_THAT(groups, ElementsAre(5, 0));
}

namespace
{
/// The calls that convert a time, of which there is one for each message.
std::vector<std::string> conversions(ProductHost& product)
{
    std::vector<std::string> found;
    for (const std::string& call : product.host.CallTexts(SuiteTraffic::leftOut))
    {
        if (call.find("AEGP_ConvertLayerToCompTime") != std::string::npos)
            found.push_back(call);
    }
    return found;
}

constexpr const char* conversionOfHalfASecond =
    "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 50/100) -> time 50/100";
} // namespace

TEST(GetEffectGroups, AsksAtTheTimeGiven)
{
    MessageHost product;
    std::vector<int> indices = {2, 0};
    std::vector<int> groups;
    AEGP_LayerH layer = product.Layer();
    (void)Send(product,
               [&](AEGP_SuiteHandler* suites) {
                   return GetEffectGroups(product.Id(), suites, layer, {50, 100}, &indices, &groups, 0);
               });
    EXPECT_THAT(conversions(product), ElementsAre(conversionOfHalfASecond, conversionOfHalfASecond));
}

TEST(GetEffectUUIDs, AsksAtTheTimeGiven)
{
    MessageHost product;
    std::vector<int> indices = {2, 0};
    std::vector<std::string> uuids;
    AEGP_LayerH layer = product.Layer();
    (void)Send(product,
               [&](AEGP_SuiteHandler* suites) {
                   return GetEffectUUIDs(product.Id(), suites, layer, {50, 100}, &indices, &uuids);
               });
    EXPECT_THAT(conversions(product), ElementsAre(conversionOfHalfASecond, conversionOfHalfASecond));
}

TEST(SetEffectGroupByUUID, AsksAndTellsAtTheTimeGiven)
{
    MessageHost product;
    const std::string uuid = product.Uuid("B");
    AEGP_LayerH layer = product.Layer();
    (void)Send(product,
               [&](AEGP_SuiteHandler* suites) {
                   return SetEffectGroupByUUID(product.Id(), suites, layer, {50, 100}, uuid, 6);
               });
    EXPECT_THAT(conversions(product), ElementsAre(conversionOfHalfASecond, conversionOfHalfASecond,
                                                  conversionOfHalfASecond, conversionOfHalfASecond));
    EXPECT_EQ(product.host.Effect("B").family.group, 6);
}

TEST(GetEffectUUIDs, AppendsBehindWhatTheListHolds)
{
    MessageHost product;
    std::vector<int> indices = {1};
    std::vector<std::string> uuids = {"held"};
    AEGP_LayerH layer = product.Layer();
    const auto ask = [&]
    {
        return Send(product, [&](AEGP_SuiteHandler* suites)
                    { return GetEffectUUIDs(product.Id(), suites, layer, MESSAGE_TIME, &indices, &uuids); });
    };
    EXPECT_EQ(ask().error, 0);
    EXPECT_THAT(uuids, ElementsAre("held", zeroUuid));
    indices.clear();
    EXPECT_EQ(ask().error, 0);
    EXPECT_THAT(uuids, ElementsAre("held", zeroUuid));
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
    TracedStack stack = {7,
                         {{"A", "01010101-0101-0101-0101-010100000001"},
                          {"F"},
                          {"B", "02020202-0202-0202-0202-020200000002"}}};
    stack.effects[0].flags = 0;
    EXPECT_EQ(product.host.CallTexts(SuiteTraffic::leftOut),
              Sequence({stack.AskIdentity(0), stack.AskIdentity(1), stack.AskIdentity(2)}));
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
    ProductHost product;
    product.Add(fill, "F");
    product.Add("ADBE Tint", "T");
    std::vector<int> indices = {0, 1};
    std::vector<int> groups;
    std::vector<std::string> uuids;
    AEGP_LayerH layer = product.Layer();
    (void)Send(product,
               [&](AEGP_SuiteHandler* suites)
               {
                   (void)GetEffectUUIDs(product.Id(), suites, layer, MESSAGE_TIME, &indices, &uuids);
                   return GetEffectGroups(product.Id(), suites, layer, MESSAGE_TIME, &indices, &groups, 0);
               });
    EXPECT_THAT(uuids, ElementsAre(zeroUuid, zeroUuid));
    EXPECT_THAT(groups, ElementsAre(-1, -1));
    EXPECT_EQ(product.host.FindingsReport(), "");
}
