// The program `standin check-effect` as authors meet it. What each check finds is tested with the bad
// effects.

#include "standin/process/ExitCodes.h"
#include "tests/support/ProgramRun.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace standin
{
namespace
{
std::string bad(const std::string& name) { return std::string(VORTAN_BAD_EFFECTS) + "/" + name + ".so"; }

ProgramRun checkEffect(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {VORTAN_STANDIN, "check-effect"});
    return RunProgram(arguments);
}

TEST(CheckEffect, TheExamplePassesEveryCheck)
{
    const ProgramRun run = checkEffect({VORTAN_EXAMPLE});
    EXPECT_EQ(run.exitCode, exit_code::well) << run.output;
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("passed  match-name "));
    EXPECT_THAT(run.output, EndsWith("\n19 passed, 0 failed\n"));
}

TEST(CheckEffect, AFailureTellsHowToRunItAlone)
{
    const ProgramRun run = checkEffect({bad("eightGroups"), "--only", "groups", "match-name"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_EQ(run.output,
              "passed  match-name                The match name is one of those that the panel looks "
              "for.\n"
              "FAILED  groups                    Told a group from 1 to 10, or 0, the effect answers "
              "just that; a rigid one always answers -1.\n"
              "          found: told group 8, the effect answers 7\n"
              "          again: standin check-effect " +
                  bad("eightGroups") + " --only groups\n1 passed, 1 failed\n");
}

TEST(CheckEffect, TellsItAsJsonToo)
{
    const ProgramRun run = checkEffect({bad("eightGroups"), "--only", "groups", "--json"});
    EXPECT_EQ(run.exitCode, exit_code::failed);
    EXPECT_THAT(run.output, HasSubstr("\"effect\": \"" + bad("eightGroups") + "\""));
    EXPECT_THAT(run.output, HasSubstr("\"found\": \"told group 8, the effect answers 7\""));
}

TEST(CheckEffect, WhatIsNoEffectIsNotJudged)
{
    const ProgramRun none = checkEffect({"/nowhere.so"});
    EXPECT_EQ(none.exitCode, exit_code::noFile);
    EXPECT_EQ(none.errors, "/nowhere.so: there is no such file\n");
    const ProgramRun bundle = checkEffect({VORTAN_BUNDLE});
    EXPECT_EQ(bundle.exitCode, exit_code::noBundle);
    EXPECT_EQ(bundle.errors,
              std::string(VORTAN_BUNDLE) + " is no effect: it does not export VortanTryEffect\n");
    EXPECT_EQ(bundle.output, "");
}

TEST(CheckEffect, ItsChecksAreNotThoseOfTheBundle)
{
    EXPECT_EQ(checkEffect({VORTAN_EXAMPLE, "--only", "idle-queue-order"}).exitCode, exit_code::usage);
    EXPECT_EQ(checkEffect({}).errors, "name the effect that is to be judged\n");
    EXPECT_THAT(checkEffect({"--list"}).output, Not(HasSubstr("idle-queue-order")));
    EXPECT_THAT(checkEffect({"--help"}).output, Not(HasSubstr("--seed"))) << "nothing in them is random";
}
} // namespace
} // namespace standin
