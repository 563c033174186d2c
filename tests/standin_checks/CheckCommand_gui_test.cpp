// The program `standin check` as its users meet it: what it says, and what it tells the shell.

#include "standin/process/ExitCodes.h"
#include "tests/support/ProgramRun.h"
#include "tests/support/Scratch.h"

#include <chrono>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace standin
{
namespace
{
std::string bad(const std::string& name) { return std::string(VORTAN_BAD_BUNDLES) + "/" + name + ".so"; }

ProgramRun check(std::vector<std::string> arguments, std::vector<std::string> environment = {})
{
    arguments.insert(arguments.begin(), {VORTAN_STANDIN, "check"});
    // A sanitizer would take a crash of the bundle for its own, and end the process in another way.
    environment.insert(environment.end(), {"ASAN_OPTIONS=handle_segv=0", "UBSAN_OPTIONS=handle_segv=0"});
    return RunProgram(arguments, environment);
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(CheckCommand, PrintsTheChosenChecksInTableOrder)
{
    const ProgramRun run = check({VORTAN_BUNDLE, "--only", "idle-queue-order", "panel-entry-calls"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(linesOf(run.output),
                ElementsAre(StartsWith("passed  panel-entry-calls "), StartsWith("passed  idle-queue-order "),
                            "2 passed, 0 failed"));
    EXPECT_THAT(run.output, HasSubstr("Queued functions run once each, at the next idle, in the order of"));
}

TEST(CheckCommand, ListsAsJsonToo)
{
    const ProgramRun run = check({"--list", "--json"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    EXPECT_EQ(nlohmann::json::parse(run.output).size(), linesOf(check({"--list"}).output).size());
}

TEST(CheckCommand, ACrashFailsItsCheckAlone)
{
    const ProgramRun run =
        check({bad("crashes-and-hangs"), "--only", "exported-symbols", "idle-queue-order"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(
        linesOf(run.output),
        ElementsAre(StartsWith("FAILED  idle-queue-order"),
                    "          found: the process has crashed: Segmentation fault",
                    "          last printed: about to crash",
                    "          again: standin check " + bad("crashes-and-hangs") + " --only idle-queue-order",
                    StartsWith("passed  exported-symbols"), "1 passed, 1 failed"));
}

TEST(CheckCommand, AHangEndsAtTheDeadline)
{
    const auto begin = std::chrono::steady_clock::now();
    const ProgramRun run =
        check({bad("crashes-and-hangs"), "--only", "panel-entry-calls", "command-hook", "--limit", "2"});
    const auto taken = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, HasSubstr("found: it took longer than 2 seconds"));
    EXPECT_THAT(run.output, EndsWith("0 passed, 2 failed\n"));
    EXPECT_GE(taken, std::chrono::seconds(2));
    EXPECT_LT(taken, std::chrono::seconds(30));
}

TEST(CheckCommand, ChecksRunSeriallyIfAskedTo)
{
    const auto begin = std::chrono::steady_clock::now();
    const ProgramRun run = check({bad("crashes-and-hangs"), "--only", "panel-entry-calls", "command-hook",
                                  "--limit", "2", "--jobs", "1"});
    EXPECT_THAT(run.output, EndsWith("0 passed, 2 failed\n"));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
}

TEST(CheckCommand, AnEarlyEndIsAFailure)
{
    const ProgramRun run = check({bad("ends-and-throws"), "--only", "idle-queue-order"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, HasSubstr("the process ended by itself with code 0 in the midst of the check"));
}

TEST(CheckCommand, WhatLeavesAnEntryPointIsTold)
{
    const ProgramRun run = check({bad("ends-and-throws"), "--only", "panel-entry-calls"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, HasSubstr("what left the entry point is \"the integer 4711\""));
}

TEST(CheckCommand, AFailureIsToldInJsonAsWell)
{
    const ProgramRun run = check({bad("crashes-and-hangs"), "--only", "idle-queue-order", "--json"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    const auto document = nlohmann::json::parse(run.output);
    EXPECT_EQ(document["failed"], 1);
    EXPECT_EQ(document["checks"][0]["passed"], false);
    EXPECT_EQ(document["checks"][0]["ending"], "crashed");
    EXPECT_THAT(document["checks"][0]["found"].get<std::string>(), HasSubstr("Segmentation fault"));
}

TEST(CheckCommand, AFailureThatUsesTheSeedPrintsIt)
{
    const ProgramRun run =
        check({bad("refuses"), "--only", "walk-in-host", "idle-queue-order", "--seed", "42"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, HasSubstr("--only walk-in-host --seed 42\n"));
    EXPECT_THAT(run.output, HasSubstr("--only idle-queue-order\n"));
}

TEST(CheckCommand, TheSeedIsPrintedAfterACrash)
{
    const ProgramRun run = check({bad("crashes-and-hangs"), "--only", "walk-in-host", "--seed", "42"});
    EXPECT_THAT(run.output, HasSubstr("the process has crashed"));
    EXPECT_THAT(run.output, HasSubstr("--only walk-in-host --seed 42\n"));
}

TEST(CheckCommand, AnUnstartableServerIsNoDisplay)
{
    const ProgramRun run =
        check({VORTAN_BUNDLE, "--only", "panel-opens", "idle-queue-order"}, {"PATH=/nowhere"});
    EXPECT_EQ(run.exitCode, exit_code::noDisplay);
    EXPECT_THAT(run.output, HasSubstr("found: Xvfb did not start"));
    EXPECT_THAT(run.output, EndsWith("1 passed, 1 failed\n"));
}

TEST(CheckCommand, AFileThatIsNoBundleIsNamed)
{
    const Scratch scratch;
    const std::string file = scratch.Path("no-bundle.so");
    scratch.Write("no-bundle.so", "this is no bundle");
    const ProgramRun none = check({"/nowhere.so"});
    EXPECT_EQ(none.exitCode, exit_code::noFile);
    EXPECT_EQ(none.errors, "/nowhere.so: there is no such file\n");
    const ProgramRun text = check({file});
    EXPECT_EQ(text.exitCode, exit_code::noBundle);
    EXPECT_THAT(text.errors, StartsWith(file + " is no bundle"));
    const ProgramRun half = check({bad("half")});
    EXPECT_EQ(half.exitCode, exit_code::noBundle);
    EXPECT_EQ(half.errors, bad("half") + " is no bundle: it does not export PanelEntryPointFunc\n");
    for (const ProgramRun& run : {none, text, half})
        EXPECT_THAT(run.output, IsEmpty());
}

TEST(CheckCommand, AnUnloadableBundleIsReportedWithItsFailure)
{
    const ProgramRun crash = check({bad("crashes-at-load")});
    EXPECT_EQ(crash.exitCode, exit_code::crashed);
    EXPECT_THAT(crash.errors,
                StartsWith(bad("crashes-at-load") + " cannot be loaded: the process has crashed"));
    const ProgramRun early = check({bad("ends-at-load")});
    EXPECT_EQ(early.exitCode, exit_code::crashed);
    EXPECT_THAT(early.errors, HasSubstr("the process ended by itself with code 0"));
    const ProgramRun hang = check({bad("hangs-at-load"), "--limit", "2"});
    EXPECT_EQ(hang.exitCode, exit_code::timeOut);
    EXPECT_THAT(hang.errors, HasSubstr("cannot be loaded: it took longer than 2 seconds"));
    for (const ProgramRun& run : {crash, early, hang})
        EXPECT_THAT(run.output, IsEmpty());
}

TEST(CheckCommand, AWrongCommandLineIsUsage)
{
    const ProgramRun unknown = check({VORTAN_BUNDLE, "--only", "idle-queue-order", "no-such-check"});
    EXPECT_EQ(unknown.exitCode, exit_code::usage);
    EXPECT_EQ(unknown.errors, "no-such-check: there is no such check; --list names them all\n");
    EXPECT_EQ(check({}).exitCode, exit_code::usage);
    EXPECT_EQ(check({VORTAN_BUNDLE, "--jobs", "0"}).exitCode, exit_code::usage);
    EXPECT_EQ(check({VORTAN_BUNDLE, "--seed", "x"}).exitCode, exit_code::usage);
    EXPECT_EQ(check({VORTAN_BUNDLE, "--dance"}).exitCode, exit_code::usage);
}

TEST(CheckCommand, HelpListsExactlyTheOptions)
{
    const ProgramRun run = check({"--help"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    for (const char* option :
         {"BUNDLE", "--list", "--only", "--seed", "--limit", "--jobs", "--json", "--here"})
        EXPECT_THAT(run.output, HasSubstr(option));
    EXPECT_THAT(RunProgram({VORTAN_STANDIN, "--help"}).output, HasSubstr(exit_code::Help()));
}

TEST(CheckCommand, OneCheckRunsInTheProcessItself)
{
    const ProgramRun run = check({VORTAN_BUNDLE, "--only", "idle-queue-order", "--here"});
    EXPECT_EQ(run.exitCode, exit_code::well);
    EXPECT_EQ(process::Report(run.output).Text("verdict"), "0");
    EXPECT_EQ(check({VORTAN_BUNDLE, "--here"}).exitCode, exit_code::usage) << "it has to be named";
}
} // namespace
} // namespace standin
