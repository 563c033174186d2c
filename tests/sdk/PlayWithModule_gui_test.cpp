// Scenarios with an effect that comes in a module.

#include "standin/process/ExitCodes.h"
#include "tests/support/ProgramRun.h"
#include "tests/support/Scratch.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace standin
{
namespace
{
class PlayWithModule : public testing::Test
{
protected:
    ProgramRun play(const std::string& lines)
    {
        scratch.Write("module.scenario", "install the effect in \"" + module + "\"\n" +
                                             "composition \"Comp 1\"\n"
                                             "layer \"Titles\"\n"
                                             "effect \"QVK VORTEFF Pulse Effector\" named \"pulse\"\n" +
                                             lines);
        return RunProgram({VORTAN_STANDIN, "play", "--own-display", "--bundle", VORTAN_BUNDLE, "--pictures",
                           scratch.Path(""), scratch.Path("module.scenario")});
    }

    Scratch scratch;
    std::string module = VORTAN_EXAMPLE;
};

TEST_F(PlayWithModule, AnUnchangedGroupIsToldToIt)
{
    const ProgramRun run = play("\"pulse\" is in group 3\n"
                                "open the panel\n"
                                "expect rows \"Layer\" \"- Group 3\" \"-- pulse\"\n"
                                "expect nothing to undo\n"
                                "put \"pulse\" into group 5\n"
                                "expect rows \"Layer\" \"- Group 5\" \"-- pulse\"\n"
                                "expect next undo \"Change Group\"\n");
    EXPECT_EQ(run.exitCode, exit_code::well) << run.errors;
}

TEST_F(PlayWithModule, ItsFileIsRelativeToTheScenario)
{
    std::filesystem::copy(VORTAN_EXAMPLE, scratch.Path("beside.so"));
    module = "beside.so";
    const ProgramRun run = play("open the panel\nexpect rows \"Layer\" \"- pulse\"\n");
    EXPECT_EQ(run.exitCode, exit_code::well) << run.errors;
}

TEST_F(PlayWithModule, AFileWithoutEffectFailsItsLine)
{
    module = "nowhere.so";
    const ProgramRun run = play("expect no alerts\n");
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.errors, HasSubstr("module.scenario:1: install the effect in"));
    EXPECT_THAT(run.errors, HasSubstr("nowhere.so: there is no such file"));
}

TEST_F(PlayWithModule, TheScenarioCannotSetItsAnswers)
{
    const std::vector<std::string> lines = {
        "\"pulse\" is rigid\n", "\"pulse\" answers nothing\n", "\"pulse\" answers after 2 messages\n",
        "\"pulse\" always answers group 4\n", "\"pulse\" has the identity of \"pulse\"\n"};
    for (const std::string& line : lines)
    {
        const ProgramRun run = play(line + "expect no alerts\n");
        EXPECT_EQ(run.exitCode, exit_code::failed) << line;
        EXPECT_THAT(run.errors, HasSubstr("\"pulse\" comes from a module and answers for itself"));
    }
}
} // namespace
} // namespace standin
