// The page on the stand-in lists the checks as the program has them.

#include "standin/checks/Check.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>

using testing::HasSubstr;

namespace standin
{
namespace
{
constexpr const char* beginning = "<!-- checks -->\n";
constexpr const char* end = "<!-- end of checks -->";

std::string tableOfChecks()
{
    std::string table = "| Check | What holds of a bundle that passes |\n|---|---|\n";
    for (const Check& check : AllChecks())
        table += std::string("| `") + check.id + "` | " + check.sentence + " |\n";
    return table;
}

std::string page()
{
    std::ifstream stream(VORTAN_STANDIN_PAGE);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(StandinPage, ListsEveryCheckWithItsSentence)
{
    if (std::getenv("STANDIN_WRITE_CHECKS") != nullptr)
    {
        const std::string before = page();
        const std::size_t from = before.find(beginning) + std::string(beginning).size();
        std::ofstream(VORTAN_STANDIN_PAGE)
            << before.substr(0, from) << tableOfChecks() << before.substr(before.find(end));
    }
    EXPECT_THAT(page(), HasSubstr(beginning + tableOfChecks() + end));
}
} // namespace
} // namespace standin
