// The page for authors quotes the example as it is.

#include "tests/support/FileText.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

using standin::FileText;
using testing::HasSubstr;

namespace
{
/// What stands between the fences of one language.
std::vector<std::string> blocksOf(const std::string& page, const std::string& language)
{
    const std::string fence = "\n```" + language + "\n";
    std::vector<std::string> blocks;
    for (std::size_t at = page.find(fence); at != std::string::npos; at = page.find(fence, at))
    {
        at += fence.size();
        blocks.push_back(page.substr(at, page.find("\n```\n", at) + 1 - at));
    }
    return blocks;
}

TEST(AuthorsPage, QuotesTheExampleWordForWord)
{
    const std::string example = FileText(VORTAN_EXAMPLE_SOURCE);
    const auto blocks = blocksOf(FileText(VORTAN_AUTHORS_PAGE), "c");
    EXPECT_EQ(blocks.size(), 6U);
    for (const std::string& block : blocks)
        EXPECT_THAT(example, HasSubstr(block));
}

TEST(AuthorsPage, IsReadInFiveMinutes)
{
    std::istringstream page(FileText(VORTAN_AUTHORS_PAGE));
    const auto words =
        std::distance(std::istream_iterator<std::string>(page), std::istream_iterator<std::string>());
    EXPECT_GT(words, 300);
    EXPECT_LT(words, 1300) << "a reader takes in 250 words a minute";
}
} // namespace
