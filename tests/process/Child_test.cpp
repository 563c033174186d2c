#include "standin/process/Child.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace standin::process
{
namespace
{
using std::chrono::seconds;

[[noreturn]] void sleepOn()
{
    for (;;)
        std::this_thread::sleep_for(seconds(1));
}

TEST(Child, ReportsAndGivesItsExitCode)
{
    Child child(
        []
        {
            Tell("place", "here");
            return 7;
        });
    child.Wait();
    EXPECT_EQ(Report(child.Told()).Text("place"), "here");
    EXPECT_EQ(child.HowEnded(), Ending::exited);
    EXPECT_EQ(child.ExitCode(), 7);
    EXPECT_EQ(child.EndText(), "the process ended by itself with code 7");
}

TEST(Child, IsHeardToItsEnd)
{
    Child child(
        []
        {
            Tell("place", "here");
            return 0;
        });
    child.End(SIGCONT); // Waits and does no harm; the report is read only after the end.
    EXPECT_EQ(Report(child.Told()).Text("place"), "here");
}

TEST(Child, WhoCrashesHasSaidItsLastWord)
{
    Child child(
        []() -> int
        {
            Tell("place", "the brink");
            std::signal(SIGSEGV, SIG_DFL); // A sanitizer would take the crash for its own.
            std::raise(SIGSEGV);
            return 0;
        });
    child.Wait();
    EXPECT_EQ(Report(child.Told()).Text("place"), "the brink");
    EXPECT_EQ(child.HowEnded(), Ending::crashed);
    EXPECT_EQ(child.ExitCode(), -1);
    EXPECT_EQ(child.EndText(), "the process has crashed: Segmentation fault");
}

TEST(Child, IsEndedAtItsTimeout)
{
    Child child([]() -> int { sleepOn(); }, Streams::inherited, seconds(1));
    EXPECT_FALSE(child.IsDone());
    child.Wait();
    EXPECT_EQ(child.HowEnded(), Ending::timedOut);
    EXPECT_EQ(child.EndText(), "it took longer than 1 seconds");
    EXPECT_GE(child.Seconds(), 1);
    EXPECT_LT(child.Seconds(), 30);
}

TEST(Child, ThatIgnoresASignalIsSentMore)
{
    Child child(
        []() -> int
        {
            static volatile std::sig_atomic_t signals = 0;
            std::signal(SIGTERM, [](int) { signals = signals + 1; });
            Tell("ready", "");
            while (signals < 3)
                (void)usleep(1000);
            return signals;
        });
    while (!Report(child.Told()).Has("ready"))
        (void)child.IsDone();
    child.End(SIGTERM);
    EXPECT_EQ(child.ExitCode(), 3);
}

TEST(Child, GivesItsExitCodeToAnIgnoringParent)
{
    (void)std::signal(SIGCHLD, SIG_IGN);
    Child child([] { return 7; });
    child.Wait();
    EXPECT_EQ(child.ExitCode(), 7);
}

TEST(Child, SaysThatSomebodyElseHasWaited)
{
    Child child([] { return 7; });
    (void)waitpid(-1, nullptr, 0);
    EXPECT_THROW(child.Wait(), std::runtime_error);
}

TEST(Child, EndsWithWhatItHasStarted)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    {
        Child child(
            []() -> int
            {
                if (fork() == 0)
                    sleepOn();
                return 0;
            });
        child.Wait();
    }
    (void)close(ends[1]);
    pollfd lastWriter{ends[0], POLLIN, 0};
    constexpr int timeoutMs = 10000;
    EXPECT_EQ(poll(&lastWriter, 1, timeoutMs), 1) << "somebody still holds the pipe";
    EXPECT_EQ(lastWriter.revents, POLLHUP);
    (void)close(ends[0]);
}

TEST(Child, IsAnotherProgramWithItsEnvironment)
{
    Child child(Program({"sh", "-c", "echo out $NAME; echo err >&2; exit 4"}, {"NAME=value=1"}),
                Streams::kept);
    child.Wait();
    EXPECT_EQ(child.ExitCode(), 4);
    EXPECT_EQ(child.Output(), "out value=1\n");
    EXPECT_EQ(child.Errors(), "err\n");
    Child none(Program({"/nowhere/program"}));
    none.Wait();
    EXPECT_EQ(none.ExitCode(), 127);
}
} // namespace
} // namespace standin::process
