// The code that visits every effect in every idle pass allocates nothing. The host's tables are written by
// hand, since the stand-in's own book-keeping allocates.

#include "effects/EffectMessages.h"
#include "effects/ObjectItem.h"
#include "tests/support/CountedAllocations.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using standin::TakenBy;

namespace
{
template <class Body>
std::size_t allocationsIn(Body body)
{
    return TakenBy(body).allocations;
}

constexpr A_long effectsOnTheLayer = 3;
_AEGP_Effect* effectCell = nullptr;
_AEGP_Layer* layerCell = nullptr;
int messages = 0;

A_Err countEffects(AEGP_LayerH, A_long* count)
{
    *count = effectsOnTheLayer;
    return A_Err_NONE;
}

A_Err takeEffect(AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex, AEGP_EffectRefH* effect)
{
    *effect = &effectCell;
    return A_Err_NONE;
}

A_Err disposeOfEffect(AEGP_EffectRefH) { return A_Err_NONE; }

const AEGP_EffectSuite1& effectSuite1()
{
    static const AEGP_EffectSuite1 table = []
    {
        AEGP_EffectSuite1 suite{};
        suite.AEGP_GetLayerNumEffects = countEffects;
        suite.AEGP_GetLayerEffectByIndex = takeEffect;
        suite.AEGP_GetEffectFlags = [](AEGP_EffectRefH, AEGP_EffectFlags* flags)
        {
            *flags = AEGP_EffectFlags_ACTIVE;
            return A_Err{A_Err_NONE};
        };
        suite.AEGP_DisposeEffect = disposeOfEffect;
        return suite;
    }();
    return table;
}

const AEGP_EffectSuite3& effectSuite3()
{
    static const AEGP_EffectSuite3 table = []
    {
        AEGP_EffectSuite3 suite{};
        suite.AEGP_EffectCallGeneric =
            [](AEGP_PluginID, AEGP_EffectRefH, const A_Time*, PF_Cmd, void* message)
        {
            ++messages;
            std::memset(static_cast<char*>(message) + offsetof(VnEffectMessage, group), 0, 2);
            return A_Err{A_Err_NONE};
        };
        suite.AEGP_DisposeEffect = disposeOfEffect;
        return suite;
    }();
    return table;
}

const AEGP_LayerSuite1& layerSuite()
{
    static const AEGP_LayerSuite1 table = []
    {
        AEGP_LayerSuite1 suite{};
        suite.AEGP_ConvertLayerToCompTime = [](AEGP_LayerH, const A_Time* in, A_Time* out)
        {
            *out = *in;
            return A_Err{A_Err_NONE};
        };
        return suite;
    }();
    return table;
}

SPErr acquire(const char* name, std::int32_t version, const void** suite)
{
    const bool isEffectSuite = std::strcmp(name, "AEGP Effect Suite") == 0;
    *suite = isEffectSuite && version == 1   ? static_cast<const void*>(&effectSuite1())
             : isEffectSuite && version == 3 ? static_cast<const void*>(&effectSuite3())
                                             : static_cast<const void*>(&layerSuite());
    return 0;
}

/// A layer of three effects, and suites for the messages to them.
class Messages : public ::testing::Test
{
protected:
    Messages()
    {
        basic.AcquireSuite = acquire;
        basic.ReleaseSuite = [](const char*, std::int32_t) { return SPErr{0}; };
        messages = 0;
    }

    static AEGP_LayerH layer() { return &layerCell; }

    SPBasicSuite basic{};
};
} // namespace

TEST(Allocations, AreCounted)
{
    EXPECT_EQ(allocationsIn([] { ::operator delete(::operator new(8)); }), 1u);
    EXPECT_EQ(allocationsIn([] { EXPECT_EQ(std::string(100, 'x').size(), 100u); }), 1u);
}

TEST(UuidText, TakesNoMemoryFromTheHeap)
{
    VN_UUID uuid{};
    uuid.bytes.fill(0xAB);
    VN_UUIDStr text{};
    EXPECT_EQ(allocationsIn([&] { text = GetUUIDStr(uuid); }), 0u);
    EXPECT_STREQ(text.text, "abababab-abab-abab-abab-abababababab");
}

TEST(ItemsHash, TakesNoMemoryFromTheHeap)
{
    std::vector<ObjectItem> items;
    for (const std::size_t length : {0u, 5u, 12u, 31u, 60u, 64u, 65u, 500u})
    {
        ObjectItem item;
        item.uuid = "abababab-abab-abab-abab-abababababab";
        item.name = std::string(length, 'n');
        item.tag = std::string(100, 't');
        items.push_back(item);
    }
    std::uint64_t hash = 5;
    EXPECT_EQ(allocationsIn([&] { hash = CalcItemsHash(hash, items); }), 0u);
    EXPECT_NE(hash, 5u);
}

TEST_F(Messages, TakeNoMemoryFromTheHeap)
{
    VnEffectMessage message{};
    EXPECT_EQ(allocationsIn(
                  [&]
                  {
                      AEGP_SuiteHandler suites(&basic);
                      for (int index = 0; index < effectsOnTheLayer; ++index)
                          (void)PingEffectIndex(7, &suites, layer(), MESSAGE_TIME, &message, index, 0);
                  }),
              0u);
    EXPECT_EQ(messages, 3);
}

TEST_F(Messages, AboutGroupsAndIdentitiesTakeOnlyTheirAnswers)
{
    AEGP_SuiteHandler suites(&basic);
    std::vector<int> indices = {0, 1, 2};
    std::vector<int> groups;
    groups.reserve(indices.size());
    std::vector<std::string> uuids;
    uuids.reserve(indices.size());
    std::vector<VN_UUID> identities;
    EXPECT_EQ(allocationsIn(
                  [&] { (void)GetEffectGroups(7, &suites, layer(), MESSAGE_TIME, &indices, &groups, 0); }),
              0u);
    EXPECT_EQ(
        allocationsIn([&] { (void)GetEffectUUIDs(7, &suites, layer(), MESSAGE_TIME, &indices, &uuids); }), 3u)
        << "one for each text";
    EXPECT_EQ(allocationsIn([&] { identities = ReadIdentities(7, &suites, layer(), effectsOnTheLayer); }), 1u)
        << "one for the list";
    EXPECT_EQ(messages, 9);
    EXPECT_EQ(groups, (std::vector<int>{0, 0, 0}));
}
