// The pages on the stand-in list its checks and its exit codes as the program has them.

#include "standin/check/effects/EffectChecks.h"
#include "standin/process/ExitCodes.h"
#include "tests/support/FileText.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>

using testing::HasSubstr;

namespace standin
{
using namespace check;

namespace
{
std::string beginningOf(const CheckBook& book)
{
    return std::string("<!-- checks of ") + book.kind + "s -->\n";
}
constexpr const char* endOfTable = "<!-- end of checks -->";

std::string tableOfChecks(const CheckBook& book)
{
    std::string table = std::string("| Check | What holds of ") +
                        (book.kind == std::string("effect") ? "an " : "a ") + book.kind +
                        " that passes |\n|---|---|\n";
    for (const Check& check : book.checks)
        table += std::string("| `") + check.id + "` | " + check.sentence + " |\n";
    return table;
}

void writeTable(const CheckBook& book)
{
    const std::string before = FileText(VORTAN_CHECKS_PAGE);
    const std::size_t from = before.find(beginningOf(book)) + beginningOf(book).size();
    std::ofstream(VORTAN_CHECKS_PAGE)
        << before.substr(0, from) << tableOfChecks(book) << before.substr(before.find(endOfTable, from));
}

TEST(StandinPage, ListsEveryCheckWithItsSentence)
{
    for (const CheckBook* book : {&BundleChecks(), &EffectChecks()})
    {
        if (std::getenv("STANDIN_WRITE_CHECKS") != nullptr)
            writeTable(*book);
        EXPECT_THAT(FileText(VORTAN_CHECKS_PAGE),
                    HasSubstr(beginningOf(*book) + tableOfChecks(*book) + endOfTable));
    }
}

TEST(StandinPage, ListsEveryExitCode)
{
    std::string table = "| Exit code | Meaning |\n|---|---|\n";
    for (std::size_t code = 0; code < exit_code::Meanings().size(); ++code)
        table += "| " + std::to_string(code) + " | " + exit_code::Meanings()[code] + " |\n";
    EXPECT_THAT(FileText(VORTAN_STANDIN_PAGE), HasSubstr(table + "\n"));
}
} // namespace
} // namespace standin
