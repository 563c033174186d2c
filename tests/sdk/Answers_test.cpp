// The kit's functions over the bytes of a record and of what an effect keeps.

#include "sdk/VortanFamilyAnswers.h"

#include <cstring>
#include <gmock/gmock.h>
#include <set>
#include <string>
#include <vector>

using testing::Each;

namespace
{
/// A record between bytes that must not be written to.
struct Framed
{
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(3 * VORTAN_MESSAGE_SIZE, 0xC3);

    explicit Framed(std::uint32_t command, std::uint32_t magic = VORTAN_MESSAGE_MAGIC)
    {
        std::memcpy(Record(), &magic, sizeof magic);
        std::memcpy(Record() + 4, &command, sizeof command);
    }
    std::uint8_t* Record() { return bytes.data() + VORTAN_MESSAGE_SIZE; }
    std::int16_t Group()
    {
        std::int16_t group = 0;
        std::memcpy(&group, Record() + 8, sizeof group);
        return group;
    }
    void PutGroup(std::int16_t group) { std::memcpy(Record() + 8, &group, sizeof group); }
};

VortanKept kept(std::int16_t group)
{
    VortanKept made = VortanKeepNew();
    made.group = group;
    return made;
}

std::int16_t groupAfter(std::int16_t before, std::int16_t told)
{
    VortanKept own = kept(before);
    Framed record(VORTAN_SET_GROUP);
    record.PutGroup(told);
    EXPECT_EQ(VortanAnswer(&own, record.Record(), VORTAN_MESSAGE_SIZE), std::uint32_t{VORTAN_SET_GROUP});
    EXPECT_EQ(record.Group(), told) << "the record is only read";
    return own.group;
}

std::string textOf(const VortanIdentity& identity)
{
    char text[VORTAN_IDENTITY_TEXT_SIZE];
    VortanFormatIdentity(&identity, text);
    return text;
}

TEST(Answers, TheGroupFillsOnlyItsTwoBytes)
{
    VortanKept own = kept(7);
    Framed record(VORTAN_GET_GROUP);
    std::vector<std::uint8_t> expected = record.bytes;
    expected[VORTAN_MESSAGE_SIZE + 8] = 7;
    expected[VORTAN_MESSAGE_SIZE + 9] = 0;
    EXPECT_EQ(VortanAnswer(&own, record.Record(), VORTAN_MESSAGE_SIZE), std::uint32_t{VORTAN_GET_GROUP});
    EXPECT_EQ(record.bytes, expected);
}

TEST(Answers, TheIdentityFillsOnlyItsSixteenBytes)
{
    VortanKept own = kept(0);
    for (std::uint8_t i = 0; i < 16; ++i)
        own.identity.bytes[i] = i;
    Framed record(VORTAN_GET_IDENTITY);
    std::vector<std::uint8_t> expected = record.bytes;
    for (std::uint8_t i = 0; i < 16; ++i)
        expected[VORTAN_MESSAGE_SIZE + 8U + i] = i;
    EXPECT_EQ(VortanAnswer(&own, record.Record(), VORTAN_MESSAGE_SIZE), std::uint32_t{VORTAN_GET_IDENTITY});
    EXPECT_EQ(record.bytes, expected);
}

TEST(Answers, AToldGroupIsTakenIfItExists)
{
    for (std::int16_t told = 0; told <= 10; ++told)
        EXPECT_EQ(groupAfter(4, told), told);
    EXPECT_EQ(groupAfter(4, -1), 0);
    EXPECT_EQ(groupAfter(4, 11), 0);
    EXPECT_EQ(groupAfter(4, 32767), 0);
    EXPECT_EQ(groupAfter(4, -32768), 0);
}

TEST(Answers, ARigidEffectStaysRigid)
{
    for (const int told : {-1, 0, 1, 10, 11})
        EXPECT_EQ(groupAfter(VORTAN_GROUP_RIGID, static_cast<std::int16_t>(told)), VORTAN_GROUP_RIGID);
}

TEST(Answers, AnotherSizeMagicOrCommandIsLeftAlone)
{
    struct Foreign
    {
        Framed record;
        std::size_t size;
    };
    std::vector<Foreign> all;
    for (const std::uint32_t command : {1U, 3U, 5U})
    {
        for (const std::size_t size : {0U, 1U, 4U, 8U, 127U, 129U})
            all.push_back({Framed(command), size});
        all.push_back({Framed(command, 0x54524F56), VORTAN_MESSAGE_SIZE});
        all.push_back({Framed(command, 0), VORTAN_MESSAGE_SIZE});
    }
    for (const std::uint32_t command : {0U, 2U, 4U, 6U, 0x01000000U, 0xFFFFFFFFU})
        all.push_back({Framed(command), VORTAN_MESSAGE_SIZE});
    for (Foreign& each : all)
    {
        VortanKept own = kept(4);
        const VortanKept keptBefore = own;
        const auto before = each.record.bytes;
        std::int16_t group = 99;
        EXPECT_EQ(VortanCommandOf(each.record.Record(), each.size), 0U);
        EXPECT_EQ(VortanAnswer(&own, each.record.Record(), each.size), 0U);
        EXPECT_EQ(VortanAnswerGroup(each.record.Record(), each.size, 1), 0);
        EXPECT_EQ(VortanAnswerIdentity(each.record.Record(), each.size, &own.identity), 0);
        EXPECT_EQ(VortanTakeGroup(each.record.Record(), each.size, &group), 0);
        EXPECT_EQ(group, 99);
        EXPECT_EQ(each.record.bytes, before);
        EXPECT_EQ(std::memcmp(&own, &keptBefore, sizeof own), 0);
    }
    VortanKept own = kept(4);
    EXPECT_EQ(VortanAnswer(&own, nullptr, VORTAN_MESSAGE_SIZE), 0U);
}

TEST(Answers, AnAnswerToAnotherQuestionIsRefused)
{
    Framed question(VORTAN_GET_GROUP);
    const auto before = question.bytes;
    const VortanIdentity identity = VortanMakeIdentity();
    std::int16_t group = 99;
    EXPECT_EQ(VortanAnswerIdentity(question.Record(), VORTAN_MESSAGE_SIZE, &identity), 0);
    EXPECT_EQ(VortanTakeGroup(question.Record(), VORTAN_MESSAGE_SIZE, &group), 0);
    EXPECT_EQ(question.bytes, before);
    Framed other(VORTAN_GET_IDENTITY);
    EXPECT_EQ(VortanAnswerGroup(other.Record(), VORTAN_MESSAGE_SIZE, 1), 0);
}

TEST(Answers, ARecordMayStandAtAnOddAddress)
{
    std::vector<std::uint8_t> bytes(VORTAN_MESSAGE_SIZE + 1);
    Framed framed(VORTAN_GET_GROUP);
    std::memcpy(bytes.data() + 1, framed.Record(), VORTAN_MESSAGE_SIZE);
    VortanKept own = kept(9);
    EXPECT_EQ(VortanAnswer(&own, bytes.data() + 1, VORTAN_MESSAGE_SIZE), std::uint32_t{VORTAN_GET_GROUP});
    EXPECT_EQ(bytes[9], 9);
}

TEST(Identities, AreUniqueAndNeverZero)
{
    std::set<std::string> texts;
    for (int i = 0; i < 2000; ++i)
    {
        const VortanIdentity identity = VortanMakeIdentity();
        EXPECT_EQ(VortanIsZeroIdentity(&identity), 0);
        EXPECT_TRUE(texts.insert(textOf(identity)).second);
    }
}

TEST(Identities, ZeroIsKnownByAllItsBytes)
{
    VortanIdentity identity{};
    EXPECT_EQ(VortanIsZeroIdentity(&identity), 1);
    EXPECT_EQ(textOf(identity), VORTAN_ZERO_IDENTITY_TEXT);
    identity.bytes[15] = 1;
    EXPECT_EQ(VortanIsZeroIdentity(&identity), 0);
}

TEST(Identities, AreWrittenInMemoryOrder)
{
    const VortanIdentity identity = {
        {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0x10, 0x32, 0x54, 0x76, 0x98, 0xBA, 0xDC, 0xFE}};
    EXPECT_EQ(textOf(identity), "01234567-89ab-cdef-1032-547698badcfe");
}

TEST(Kept, ACopyIsInItsOriginalsGroup)
{
    const VortanKept made = VortanKeepNew();
    EXPECT_EQ(made.group, VORTAN_GROUP_TOP);
    EXPECT_THAT(made.reserved, Each(0));
    const VortanKept original = kept(6);
    const VortanKept copy = VortanKeepCopy(&original);
    EXPECT_EQ(copy.group, 6);
    EXPECT_NE(textOf(copy.identity), textOf(original.identity));
}
} // namespace
