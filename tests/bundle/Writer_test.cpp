#include "bundle/BigEndianBytes.h"
#include "bundle/PluginProperties.h"
#include "bundle/ResourceFile.h"
#include "tests/bundle/PluginPropertyReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace standin
{
namespace
{
int runWriter(const std::string& arguments)
{
    const int status =
        std::system((VORTAN_BUILD_FOLDER "/write-resource " + arguments + " 2>/dev/null").c_str());
    return WEXITSTATUS(status);
}

TEST(ResourceFile, HoldsAResourceByteByByte)
{
    const Bytes file = EncodeResourceFile("Test", {{0x1234, {0xAA, 0xBB, 0xCC}}});

    const Bytes header = {0, 0, 1, 0, 0, 0, 1, 7, 0, 0, 0, 7, 0, 0, 0, 50};
    const Bytes data = {0, 0, 0, 3, 0xAA, 0xBB, 0xCC};
    const Bytes restOfMap = {0,   0, 0, 0, 0,  0,    0,    0,    0,    28, 0, 50, 0, 0, 'T', 'e', 's',
                             't', 0, 0, 0, 10, 0x12, 0x34, 0xFF, 0xFF, 0,  0, 0,  0, 0, 0,   0,   0};
    Bytes expected = header;
    expected.resize(256, 0);
    for (const Bytes& part : {data, header, restOfMap})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_EQ(file, expected);
}

TEST(PluginProperties, HoldAPluginByteByByte)
{
    const Bytes list = EncodePluginProperties({"Entry", "Name", "Cat", 0x01020304});

    EXPECT_EQ(
        list,
        (Bytes{0, 0, 0, 0,   0,   0,   0,   6,   '8', 'B', 'I', 'M', 'k', 'i', 'n', 'd', 0,   0,   0,   0, 0,
               0, 0, 4, 'A', 'E', 'g', 'x', '8', 'B', 'I', 'M', 'n', 'a', 'm', 'e', 0,   0,   0,   0,   0, 0,
               0, 5, 4, 'N', 'a', 'm', 'e', 0,   0,   0,   '8', 'B', 'I', 'M', 'c', 'a', 't', 'g', 0,   0, 0,
               0, 0, 0, 0,   4,   3,   'C', 'a', 't', '8', 'B', 'I', 'M', 'v', 'e', 'r', 's', 0,   0,   0, 0,
               0, 0, 0, 4,   1,   2,   3,   4,   '8', 'B', 'I', 'M', 'm', 'i', '6', '4', 0,   0,   0,   0, 0,
               0, 0, 6, 5,   'E', 'n', 't', 'r', 'y', 0,   0,   '8', 'B', 'I', 'M', 'm', 'a', '6', '4', 0, 0,
               0, 0, 0, 0,   0,   6,   5,   'E', 'n', 't', 'r', 'y', 0,   0}));
}

TEST(PluginProperties, KnowTheTwoEntryPointsAlone)
{
    EXPECT_EQ(DescribeEntryPoint("EffectorAEGP").entryPoint, "EffectorAEGP");
    EXPECT_EQ(DescribeEntryPoint("PanelEntryPointFunc").entryPoint, "PanelEntryPointFunc");
    EXPECT_THROW((void)DescribeEntryPoint("effectorAEGP"), std::invalid_argument);
    EXPECT_THROW((void)DescribeEntryPoint(""), std::invalid_argument);
}

TEST(BigEndianBytes, TakePascalStringsOfUpTo255Characters)
{
    BigEndianBytes bytes;
    bytes.AppendPascalString(std::string(255, 'x'));

    EXPECT_EQ(bytes.Size(), 256u);
    EXPECT_EQ(bytes.Bytes().front(), 255);
    EXPECT_THROW(bytes.AppendPascalString(std::string(256, 'x')), std::length_error);
}

TEST(WriteResource, WithoutAnEntryPointPrintsItsUsage) { EXPECT_EQ(runWriter("/dev/null"), 2); }

TEST(WriteResource, FailsWithAnUnknownEntryPoint) { EXPECT_EQ(runWriter("/dev/null EffectorAEGP Other"), 1); }

TEST(WriteResource, FailsWhereItCannotWrite)
{
    EXPECT_EQ(runWriter("/nowhere/at/all.rsrc EffectorAEGP"), 1);
    EXPECT_EQ(runWriter("/dev/full EffectorAEGP"), 1);
    EXPECT_EQ(runWriter("/dev/null EffectorAEGP"), 0);
}

} // namespace
} // namespace standin
