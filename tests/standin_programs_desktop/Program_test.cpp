// The program standin-desktop as it is called from a shell: what it says and how it ends.

#include "standin/process/ExitCodes.h"
#include "standin/user/x11/Xvfb.h"
#include "tests/support/ProgramRun.h"
#include "tests/support/Scratch.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace standin
{
using namespace user;

namespace
{
using testing::HasSubstr;
using testing::IsEmpty;

class ProgramTest : public testing::Test
{
protected:
    ProgramRun Run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), STANDIN_DESKTOP);
        return RunProgram(arguments, {"DISPLAY="});
    }

    ProgramRun RunOnAScreen(std::vector<std::string> arguments)
    {
        const Xvfb screen(800, 600);
        arguments.insert(arguments.begin(), STANDIN_DESKTOP);
        return RunProgram(arguments);
    }

    Scratch scratch;
};
} // namespace

TEST_F(ProgramTest, HelpNamesEveryOption)
{
    const ProgramRun run = Run({"--help"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    for (const char* option :
         {"PROJECT", "--bundle", "--effect", "--scale", "--play", "--pictures", "--record", "--help"})
        EXPECT_THAT(run.output, HasSubstr(option));
    EXPECT_THAT(run.output, HasSubstr(exit_code::Help()));
    EXPECT_THAT(run.errors, IsEmpty());
}

TEST_F(ProgramTest, WrongUsageNamesTheWrongWord)
{
    const auto errorOf = [this](const std::vector<std::string>& arguments)
    {
        const ProgramRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, exit_code::usage) << arguments.front();
        return run.errors;
    };
    EXPECT_THAT(errorOf({"--colour"}), HasSubstr("--colour"));
    EXPECT_THAT(errorOf({"--bundle"}), HasSubstr("--bundle"));
    EXPECT_THAT(errorOf({"--scale", "nan"}), HasSubstr("nan is no number from 0.5 to 4"));
    EXPECT_THAT(errorOf({"--scale", "9"}), HasSubstr("9 is no number from 0.5 to 4"));
    EXPECT_THAT(errorOf({"a.json", "b.json"}), HasSubstr("b.json"));
    EXPECT_THAT(errorOf({"--effect", "a.so", "a.json", "b.json"}), HasSubstr("b.json"));
}

TEST_F(ProgramTest, WithoutADisplayItEndsWithEight)
{
    // Takes the display number 0 where that is free, which JUCE tries by default.
    const Xvfb server(64, 64);
    const ProgramRun run = Run({});
    EXPECT_EQ(run.exitCode, exit_code::noDisplay);
    EXPECT_EQ(run.errors, "standin-desktop: there is no display; --play has a screen of its own\n");
}

TEST_F(ProgramTest, AMissingOrWrongFileHasItsCode)
{
    const ProgramRun noBundle = RunOnAScreen({"--bundle", scratch.Path("none.so")});
    EXPECT_EQ(noBundle.exitCode, exit_code::noFile);
    EXPECT_EQ(noBundle.errors, "standin-desktop: " + scratch.Path("none.so") + ": there is no such file\n");

    scratch.Write("text.so", "no code");
    const ProgramRun noCode = RunOnAScreen({"--bundle", scratch.Path("text.so")});
    EXPECT_EQ(noCode.exitCode, exit_code::noBundle);
    EXPECT_THAT(noCode.errors, HasSubstr("text.so is no bundle"));

    scratch.Write("bad.json", "{}");
    const ProgramRun badProject = RunOnAScreen({scratch.Path("bad.json")});
    EXPECT_EQ(badProject.exitCode, exit_code::badInput);
    EXPECT_EQ(RunOnAScreen({scratch.Path("none.json")}).exitCode, exit_code::noFile);
    EXPECT_THAT(badProject.errors, HasSubstr("bad.json: the field \"format\" is missing"));
}

TEST_F(ProgramTest, AMissingOrWrongEffectIsNamed)
{
    const ProgramRun missing = RunOnAScreen({"--effect", scratch.Path("none.so")});
    EXPECT_EQ(missing.exitCode, exit_code::noFile);
    EXPECT_EQ(missing.errors, "standin-desktop: " + scratch.Path("none.so") + ": there is no such file\n");

    scratch.Write("text.so", "no code");
    const ProgramRun noEffect =
        RunOnAScreen({"--effect", VORTAN_EXAMPLE, "--effect", scratch.Path("text.so")});
    EXPECT_EQ(noEffect.exitCode, exit_code::noBundle);
    EXPECT_THAT(noEffect.errors, HasSubstr("text.so is no effect"));
}

TEST_F(ProgramTest, AnUnwritableRecordingIsReportedAtTheStart)
{
    const std::string file = scratch.Path("no/such/folder.scenario");
    const ProgramRun run = RunOnAScreen({"--record", file});
    EXPECT_EQ(run.exitCode, exit_code::noRecording);
    EXPECT_EQ(run.errors, "standin-desktop: " + file + ": cannot be written\n");
}
} // namespace standin
