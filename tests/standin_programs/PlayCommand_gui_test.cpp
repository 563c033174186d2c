// The program `standin play` as its users meet it: what it says, and what it tells the shell.

#include "standin/process/ExitCodes.h"
#include "tests/support/ProgramRun.h"
#include "tests/support/Sanitized.h"
#include "tests/support/Scratch.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace standin
{
namespace
{
constexpr const char* goodScenario = "composition \"Comp 1\"\n"
                                     "layer \"Solid 1\"\n"
                                     "effect \"Vortan Sheets Object\" named \"lamp\"\n"
                                     "open the panel\n"
                                     "expect rows \"Layer\" \"- lamp\"\n";

class PlayCommand : public testing::Test
{
protected:
    std::string write(const std::string& name, const std::string& text)
    {
        scratch.Write(name, text);
        return scratch.Path(name);
    }

    ProgramRun play(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment = {})
    {
        std::vector<std::string> command{VORTAN_STANDIN, "play",       "--bundle",
                                         VORTAN_BUNDLE,  "--pictures", scratch.Path("pictures")};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return RunProgram(command, environment);
    }

    const Scratch scratch;
};

TEST_F(PlayCommand, PlaysScenariosAndCountsThem)
{
    const std::string file = write("good.scenario", goodScenario);
    const ProgramRun run = play({"--own-display", file, file});
    EXPECT_EQ(run.exitCode, exit_code::well);
    EXPECT_THAT(run.output, StartsWith("passed  " + file + " (5 lines)\n"));
    EXPECT_THAT(run.output, EndsWith("2 passed, 0 failed\n"));
    EXPECT_EQ(run.errors, "");
}

TEST_F(PlayCommand, StartsItsOwnServerWithoutADisplay)
{
    const ProgramRun run = play({write("good.scenario", goodScenario)}, {"DISPLAY="});
    EXPECT_EQ(run.exitCode, exit_code::well) << run.errors;
}

TEST_F(PlayCommand, AFailedExpectationHasLineAndPicture)
{
    const std::string file =
        write("wrong.scenario", std::string(goodScenario) + "hold idle\nexpect stack \"lantern\"\n");
    const ProgramRun run = play({"--own-display", file});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, EndsWith("0 passed, 1 failed\n"));
    EXPECT_THAT(run.errors, StartsWith(file + ":7: expect stack \"lantern\"\n  found \"lamp\"\n"));
    EXPECT_TRUE(std::filesystem::exists(scratch.Path("pictures/wrong-line-7.png")));
}

TEST_F(PlayCommand, AnImpossibleActionIsReportedWithItsLine)
{
    const std::string file =
        write("cannot.scenario", std::string(goodScenario) + "hold idle\nclick row \"lantern\"\n");
    const ProgramRun run = play({"--own-display", file});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.errors,
                StartsWith(file + ":7: click row \"lantern\"\n  no row \"lantern\" is to be seen; "
                                  "the rows are \"Layer\" \"- lamp\"\n"));
}

TEST_F(PlayCommand, LeavesATraceOfCallsBelowTheirLines)
{
    const std::string trace = scratch.Path("trace.txt");
    const std::string file =
        write("traced.scenario", std::string(goodScenario) + "turn off \"lamp\"\nexpect \"lamp\" is off\n");
    EXPECT_EQ(play({"--own-display", "--trace", trace, file}).exitCode, exit_code::well);
    const std::string text = scratch.Read("trace.txt");
    EXPECT_THAT(text,
                StartsWith("before the first action\n    Basic AcquireSuite(\"SP Suites Suite\", 2)\n"));
    EXPECT_THAT(text, HasSubstr(file + ":4: open the panel\n    "));
    const std::string after = text.substr(text.find(file + ":6: turn off \"lamp\"\n"));
    EXPECT_THAT(after, HasSubstr("\n    Effect 1 AEGP_GetEffectFlags(effect e1) -> 0\n"));
    const ProgramRun none = play({"--own-display", "--trace", "/nowhere/trace.txt", file});
    EXPECT_EQ(none.exitCode, exit_code::noFile);
    EXPECT_EQ(none.errors, "/nowhere/trace.txt: the trace cannot be written\n");
}

TEST_F(PlayCommand, AFindingThatNobodyExpectedFailsTheScenario)
{
    const std::string file =
        write("finding.scenario",
              std::string(goodScenario) + "expect finding stale-reference of IdleHook because \"never\"\n");
    const ProgramRun run = play({"--own-display", file});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.errors, HasSubstr("missing-finding"));
}

TEST_F(PlayCommand, AnUnknownLineStopsItBeforePlaying)
{
    const std::string bad = write("bad.scenario", "composition \"Comp 1\"\nclik row \"lamp\"\n");
    const ProgramRun run = play({"--own-display", write("good.scenario", goodScenario), bad});
    EXPECT_EQ(run.exitCode, exit_code::badInput);
    EXPECT_THAT(run.errors, StartsWith(bad + ":2: a scenario cannot say this"));
    EXPECT_EQ(run.output, "");
}

TEST_F(PlayCommand, AMissingFileIsNamed)
{
    const ProgramRun run = play({"--own-display", "/nowhere/x.scenario"});
    EXPECT_EQ(run.exitCode, exit_code::noFile);
    EXPECT_EQ(run.errors, "/nowhere/x.scenario: there is no such file\n");
}

TEST_F(PlayCommand, AFileThatIsNoBundleIsNamed)
{
    const std::string file = write("good.scenario", goodScenario);
    const std::string noBundle = write("no-bundle.so", "this is no bundle");
    const ProgramRun run = RunProgram({VORTAN_STANDIN, "play", "--own-display", "--bundle", noBundle, file});
    EXPECT_EQ(run.exitCode, exit_code::noBundle);
    EXPECT_THAT(run.errors, StartsWith(noBundle + " is no bundle"));
    const ProgramRun none = RunProgram({VORTAN_STANDIN, "play", "--bundle", "/nowhere.so", file});
    EXPECT_EQ(none.exitCode, exit_code::noFile);
    EXPECT_THAT(none.errors, StartsWith("/nowhere.so: there is no such file"));
}

TEST_F(PlayCommand, AMissingDisplayIsNamed)
{
    const ProgramRun run = play({write("good.scenario", goodScenario)}, {"DISPLAY=:4711"});
    EXPECT_EQ(run.exitCode, exit_code::noDisplay);
    EXPECT_THAT(run.errors, HasSubstr("display :4711: no display"));
}

TEST_F(PlayCommand, ACrashIsReportedAndTheNextPlays)
{
    // Kept: the report of a failed start goes through a pointer that nobody has tested.
    const std::string crash = write("crash.scenario", "hold idle\n"
                                                      "withhold \"AEGP Register Suite\"\n"
                                                      "load the idle suite\n"
                                                      "expect no alerts\n");
    const ProgramRun run = play({"--own-display", crash, write("good.scenario", goodScenario)},
                                {"ASAN_OPTIONS=abort_on_error=1", "UBSAN_OPTIONS=abort_on_error=1"});
    EXPECT_EQ(run.exitCode, exit_code::crashed);
    const std::string told = crash + ":3: load the idle suite\n  the process has crashed";
#if defined(VORTAN_TESTS_ARE_SANITIZED)
    EXPECT_THAT(run.errors, HasSubstr("\n" + told)) << "the sanitizer tells what it has found first";
#else
    EXPECT_THAT(run.errors, StartsWith(told));
#endif
    EXPECT_THAT(run.output, EndsWith("1 passed, 1 failed\n"));
}

TEST_F(PlayCommand, AScenarioThatTakesTooLongIsEnded)
{
    const std::string slow = write("slow.scenario", "wait 60000 milliseconds\nexpect no alerts\n");
    // The limit counts from the start of the process. A busy machine takes seconds to get to the first line.
    const ProgramRun run = play({"--own-display", "--limit", "30", slow});
    EXPECT_EQ(run.exitCode, exit_code::timeOut);
    EXPECT_THAT(run.errors, HasSubstr(slow + ":1: wait 60000 milliseconds\n"
                                             "  it took longer than 30 seconds"));
}

TEST_F(PlayCommand, AWrongCommandLineIsUsage)
{
    EXPECT_EQ(play({"--no-such-option", "x"}).exitCode, exit_code::usage);
    EXPECT_EQ(play({}).exitCode, exit_code::usage);
    EXPECT_EQ(RunProgram({VORTAN_STANDIN}).exitCode, exit_code::usage);
    EXPECT_EQ(RunProgram({VORTAN_STANDIN, "dance"}).exitCode, exit_code::usage);
}

TEST_F(PlayCommand, HelpTellsOfEveryOption)
{
    const ProgramRun run = RunProgram({VORTAN_STANDIN, "play", "--help"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    for (const char* option :
         {"FILE", "--bundle", "--pictures", "--limit", "--own-display", "--trace", "--verbose", "--check"})
        EXPECT_THAT(run.output, HasSubstr(option));
    EXPECT_THAT(RunProgram({VORTAN_STANDIN, "--help"}).output, HasSubstr("play"));
    EXPECT_THAT(RunProgram({VORTAN_STANDIN, "words"}).output, HasSubstr("click row TEXT"));
}
} // namespace
} // namespace standin
