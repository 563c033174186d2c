// What the process of a check says reaches who judges, whatever becomes of the process.

#include "standin/checks/CheckReport.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace standin
{
namespace
{
class CheckReportTest : public testing::Test
{
protected:
    CheckReportTest() { EXPECT_EQ(pipe(ends), 0); }
    ~CheckReportTest() override
    {
        (void)close(ends[0]);
        (void)close(ends[1]);
    }

    std::string Written()
    {
        char buffer[4096];
        const ssize_t count = read(ends[0], buffer, sizeof buffer);
        return {buffer, static_cast<std::size_t>(count)};
    }

    int ends[2] = {-1, -1};
};

TEST_F(CheckReportTest, CarriesTextsOfSeveralLinesAndOfAnySigns)
{
    const ReportWriter writer(ends[1]);
    const std::string odd = "one\ntwo \\n three\\\n\xff failed x";
    Trial trial(
        "b", 1, [](const std::string&) {}, [] {});
    trial.Require(true, "");
    writer.Place(odd);
    writer.SeedUsed();
    writer.End(trial, Word::failed, odd);
    const CheckReport report = ReadReport(Written());
    EXPECT_EQ(report.word, Word::failed);
    EXPECT_EQ(report.found, odd);
    EXPECT_EQ(report.place, odd);
    EXPECT_EQ(report.looked, 1);
    EXPECT_TRUE(report.isSeedUsed);
}

TEST_F(CheckReportTest, KeepsTheLastPlaceOfAProcessThatSaidNoMore)
{
    const ReportWriter writer(ends[1]);
    writer.Place("first");
    writer.Place("second");
    const CheckReport report = ReadReport(Written());
    EXPECT_EQ(report.word, Word::none);
    EXPECT_EQ(report.place, "second");
    EXPECT_FALSE(report.isSeedUsed);
}

TEST(ReadReportTest, ALineThatIsNotWholeCountsForNothing)
{
    EXPECT_EQ(ReadReport("place a\npassed ").word, Word::none);
    EXPECT_EQ(ReadReport("place a\npassed \n").word, Word::passed);
    EXPECT_EQ(ReadReport("").word, Word::none);
    EXPECT_EQ(ReadReport("nonsense\n\npassed \n").word, Word::passed);
}
} // namespace
} // namespace standin
