// All checks of the stand-in on the bundle of this build, by the program as its users start it.

#include "standin/process/ExitCodes.h"
#include "tests/support/ProgramRun.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

using testing::EndsWith;

namespace standin
{
namespace
{
std::vector<std::string> listedChecks()
{
    std::vector<std::string> lines;
    std::istringstream list(RunProgram({VORTAN_STANDIN, "check", "--list"}, {}).output);
    for (std::string line; std::getline(list, line);)
        lines.push_back(line);
    return lines;
}

std::string firstWord(const std::string& line) { return line.substr(0, line.find(' ')); }
} // namespace

TEST(WholeCheck, TheBundlePassesAllListedChecks)
{
    const auto listed = listedChecks();
    const ProgramRun run = RunProgram({VORTAN_STANDIN, "check", VORTAN_BUNDLE, "--json", "--jobs", "6"}, {});
    EXPECT_EQ(run.exitCode, exit_code::well) << run.output;
    EXPECT_EQ(run.errors, "");
    const auto document = nlohmann::json::parse(run.output);
    EXPECT_EQ(document["listed"], listed.size());
    EXPECT_EQ(document["run"], listed.size());
    EXPECT_EQ(document["passed"], listed.size());
    EXPECT_EQ(document["failed"], 0);
    EXPECT_EQ(document["bundle"], VORTAN_BUNDLE);
    ASSERT_EQ(document["checks"].size(), listed.size());
    for (std::size_t i = 0; i < listed.size(); ++i)
    {
        const auto& one = document["checks"][i];
        EXPECT_EQ(one["id"], firstWord(listed[i]));
        EXPECT_EQ(one["passed"], true);
        EXPECT_EQ(one["ending"], "returned");
        EXPECT_GT(one["looked"], 0) << one["id"];
        EXPECT_THAT(listed[i], EndsWith(one["sentence"].get<std::string>()));
    }
}
} // namespace standin
