// The program standin-desktop as it is called from a shell: what it says and how it ends.

#include "standin/x11/Xvfb.h"
#include "tests/standin_programs_desktop/Scratch.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>

namespace standin
{
namespace
{
using testing::HasSubstr;
using testing::IsEmpty;

enum class Screen
{
    none,
    own
};

struct Ending
{
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// Each copy of JUCE, the desktop's and the bundle's, greets on standard error in a debug build.
std::string withoutGreeting(std::string text)
{
    const std::string greeting = "JUCE v7.0.5\n";
    while (text.rfind(greeting, 0) == 0)
        text.erase(0, greeting.size());
    return text;
}

class ProgramTest : public testing::Test
{
protected:
    Ending Run(const std::string& arguments, Screen wanted = Screen::none)
    {
        std::optional<Xvfb> screen;
        if (wanted == Screen::own)
            screen.emplace(800, 600);
        else
            (void)unsetenv("DISPLAY");
        const std::string command = std::string(STANDIN_DESKTOP) + " " + arguments + " >" +
                                    scratch.Path("out") + " 2>" + scratch.Path("err");
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, scratch.Read("out"),
                withoutGreeting(scratch.Read("err"))};
    }

    Scratch scratch;
};
} // namespace

TEST_F(ProgramTest, HelpNamesEveryOption)
{
    const Ending ending = Run("--help");
    EXPECT_EQ(ending.exitCode, 0);
    for (const char* option :
         {"--bundle", "--effect", "--scale", "--play", "--pictures", "--record", "--help", "Exit codes"})
        EXPECT_THAT(ending.output, HasSubstr(option));
    EXPECT_THAT(ending.errors, IsEmpty());
}

TEST_F(ProgramTest, WrongUsageEndsWithTwo)
{
    EXPECT_EQ(Run("--colour").errors,
              "standin-desktop: --colour: there is no such option; --help lists them\n");
    EXPECT_EQ(Run("--colour").exitCode, 2);
    EXPECT_EQ(Run("--bundle").errors, "standin-desktop: --bundle needs a value behind it\n");
    EXPECT_EQ(Run("--scale nan").exitCode, 2);
    EXPECT_EQ(Run("--scale 9").errors, "standin-desktop: --scale 9: a number from 0.5 to 4 belongs here\n");
    EXPECT_EQ(Run("a.json b.json").errors, "standin-desktop: b.json: one project is open at a time\n");
}

TEST_F(ProgramTest, WithoutADisplayItEndsWithEight)
{
    // Takes the number 0 where that is free, the display that is anybody's.
    const Xvfb server(64, 64);
    const Ending ending = Run("");
    EXPECT_EQ(ending.exitCode, 8);
    EXPECT_EQ(ending.errors, "standin-desktop: there is no display; --play has a screen of its own\n");
}

TEST_F(ProgramTest, AFileThatIsMissingOrWrongIsNamedAndHasItsOwnExitCode)
{
    const Ending noBundle = Run("--bundle " + scratch.Path("none.so"), Screen::own);
    EXPECT_EQ(noBundle.exitCode, 3);
    EXPECT_EQ(noBundle.errors, "standin-desktop: " + scratch.Path("none.so") + ": there is no such file\n");

    scratch.Write("text.so", "no code");
    const Ending noCode = Run("--bundle " + scratch.Path("text.so"), Screen::own);
    EXPECT_EQ(noCode.exitCode, 5);
    EXPECT_THAT(noCode.errors, HasSubstr("text.so is no bundle"));

    scratch.Write("bad.json", "{}");
    const Ending badProject = Run(scratch.Path("bad.json"), Screen::own);
    EXPECT_EQ(badProject.exitCode, 4);
    EXPECT_EQ(Run(scratch.Path("none.json"), Screen::own).exitCode, 3);
    EXPECT_THAT(badProject.errors, HasSubstr("bad.json: the field \"format\" is missing"));
}

TEST_F(ProgramTest, AnEffectThatIsMissingOrNoneIsNamed)
{
    const Ending missing = Run("--effect " + scratch.Path("none.so"), Screen::own);
    EXPECT_EQ(missing.exitCode, 3);
    EXPECT_EQ(missing.errors, "standin-desktop: " + scratch.Path("none.so") + ": there is no such file\n");

    scratch.Write("text.so", "no code");
    const Ending noEffect =
        Run("--effect " VORTAN_EXAMPLE " --effect " + scratch.Path("text.so"), Screen::own);
    EXPECT_EQ(noEffect.exitCode, 5);
    EXPECT_THAT(noEffect.errors, HasSubstr("text.so is no effect"));
}

TEST_F(ProgramTest, ARecordingThatCannotBeWrittenIsToldAtTheStart)
{
    const std::string file = scratch.Path("no/such/folder.scenario");
    const Ending ending = Run("--record " + file, Screen::own);
    EXPECT_EQ(ending.exitCode, 9);
    EXPECT_EQ(ending.errors, "standin-desktop: " + file + ": cannot be written\n");
}
} // namespace standin
