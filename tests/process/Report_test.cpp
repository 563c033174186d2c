// What a child tells its parent, however the child ends.

#include "standin/process/CapturedOutput.h"

#include "standin/process/Report.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace standin::process
{
namespace
{
std::string told(const std::string& field, const std::string& value)
{
    const CapturedOutput printed;
    Tell(field, value, STDOUT_FILENO);
    return printed.Text();
}

TEST(Report, CarriesTextsOfSeveralLinesAndAnySigns)
{
    const std::string odd = "one\ntwo \\n \"three\"\\\n\xc3\xa4 {failed}: x";
    EXPECT_EQ(Report(told("found", odd)).Text("found"), odd);
    EXPECT_EQ(Report(told("found", "a\xff")).Text("found"), "a\xef\xbf\xbd") << "no UTF-8";
}

TEST(Report, KeepsTheLastValueOfEachField)
{
    const Report report(told("place", "first") + told("steps", "7") + told("place", "second"));
    EXPECT_EQ(report.Text("place"), "second");
    EXPECT_EQ(report.Number("steps"), 7);
    EXPECT_TRUE(report.Has("place"));
    EXPECT_FALSE(report.Has("verdict"));
    EXPECT_EQ(report.Text("verdict"), "");
}

TEST(Report, HeedsWholeLinesOfJsonAlone)
{
    const std::string line = told("verdict", "0");
    EXPECT_FALSE(Report(line.substr(0, line.size() - 1)).Has("verdict"));
    EXPECT_TRUE(Report("nonsense\n\n[1]\n" + line).Has("verdict"));
    EXPECT_FALSE(Report("").Has("verdict"));
}
} // namespace
} // namespace standin::process
