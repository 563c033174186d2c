#include "tests/bundle/Alterations.h"
#include "tests/bundle/BuiltBundles.h"
#include "tests/bundle/RezReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>

namespace standin
{
namespace
{
std::string rezSource()
{
    const Bytes bytes = ReadFile(VORTAN_SOURCE_FOLDER "/bundle/VortanObjectPanel.r");
    return std::string(bytes.begin(), bytes.end());
}

bool isSameAsBuiltResource(const std::string& source)
{
    const std::vector<Resource> compiled = CompileRez(source);
    const std::vector<Resource> built = ReadResourceFile(ReadFile(WholeBundle().ResourceFile()));
    return std::equal(compiled.begin(), compiled.end(), built.begin(), built.end(),
                      [](const Resource& one, const Resource& other)
                      { return one.type == other.type && one.id == other.id && one.data == other.data; });
}

bool isNoticed(const std::string& altered)
{
    try
    {
        return !isSameAsBuiltResource(altered);
    }
    catch (const std::exception&)
    {
        return true;
    }
}

TEST(RezSource, DescribesWhatTheBuildWrites) { EXPECT_TRUE(isSameAsBuiltResource(rezSource())); }

TEST(RezSource, FailsWithAnyLetterOrDigitAltered)
{
    const std::string source = rezSource();
    std::vector<std::size_t> unnoticed;
    for (std::size_t place = source.find("*/"); place < source.size(); ++place)
    {
        if (std::isalnum(static_cast<unsigned char>(source[place])) == 0)
            continue;
        std::string altered = source;
        altered[place] = source[place] == '7' ? '5' : '7';
        const bool isInComment = source.rfind("/*", place) > source.rfind("*/", place);
        if (!isInComment && !isNoticed(altered))
            unnoticed.push_back(place);
    }
    EXPECT_THAT(unnoticed, testing::IsEmpty());
}

TEST(RezReader, LaysOutEachKindOfFieldByHand)
{
    const std::vector<Resource> compiled = CompileRez("type 'Test' { longint = 258; literal longint = 'abcd';"
                                                      " longint = (b - a) / 8; a: pstring; b: align long;"
                                                      " longint; };"
                                                      "resource 'Test' (128) { \"xy\", 0x10 };");

    ASSERT_EQ(compiled.size(), 1u);
    EXPECT_EQ(compiled[0].type, "Test");
    EXPECT_EQ(compiled[0].id, 128);
    EXPECT_EQ(compiled[0].data,
              (Bytes{0, 0, 1, 2, 'a', 'b', 'c', 'd', 0, 0, 0, 3, 2, 'x', 'y', 0, 0, 0, 0, 16}));
}

} // namespace
} // namespace standin
