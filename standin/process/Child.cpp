#include "standin/process/Child.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace standin::process
{
namespace
{
constexpr auto betweenLooks = std::chrono::milliseconds(5);

/// A program that was started with SIGCHLD ignored, as some launchers do, would never get an exit code.
void keepExitCodes()
{
    struct sigaction action = {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        (void)std::signal(SIGCHLD, SIG_DFL);
}
} // namespace

Body Program(const std::vector<std::string>& command, const std::vector<std::string>& environment)
{
    return [command, environment]
    {
        for (const std::string& line : environment)
        {
            const std::size_t equals = line.find('=');
            (void)setenv(line.substr(0, equals).c_str(), line.substr(equals + 1).c_str(), 1);
        }
        std::vector<char*> words;
        words.reserve(command.size() + 1);
        for (const std::string& word : command)
            words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        (void)execvp(words.front(), words.data());
        constexpr int noSuchProgram = 127;
        return noSuchProgram;
    };
}

Child::Child(const Body& body, Streams streams, Timeout theTimeout) : timeout(theTimeout)
{
    if (streams == Streams::kept)
    {
        output.emplace();
        errors.emplace();
    }
    keepExitCodes();
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe to a child process");
    (void)fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    (void)fcntl(ends[0], F_SETFL, O_NONBLOCK);
    (void)std::cout.flush();
    (void)std::fflush(nullptr);
    process = fork();
    if (process == 0)
        run(body, ends[1]);
    (void)::close(ends[1]);
    pipe = ends[0];
    if (process < 0)
    {
        (void)::close(pipe);
        throw std::runtime_error("no child process can be made");
    }
}

Child::~Child()
{
    if (!done)
        End();
    (void)::close(pipe);
}

void Child::run(const Body& body, int reportEnd) const
{
    // A group of its own, so that whatever it starts ends with it.
    (void)setpgid(0, 0);
#ifdef __linux__
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    if (output)
    {
        (void)dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
        (void)dup2(output->Descriptor(), STDOUT_FILENO);
        (void)dup2(errors->Descriptor(), STDERR_FILENO);
    }
    if (reportEnd != reportDescriptor)
    {
        (void)dup2(reportEnd, reportDescriptor);
        (void)::close(reportEnd);
    }
    _exit(body());
}

void Child::takeReport()
{
    char buffer[4096];
    for (ssize_t count = 0; (count = read(pipe, buffer, sizeof buffer)) > 0;)
        told.append(buffer, static_cast<std::size_t>(count));
}

void Child::finish()
{
    end = Clock::now();
    done = true;
    takeReport();
    (void)kill(-process, SIGKILL);
    ending = WIFSIGNALED(status) ? Ending::crashed : Ending::exited;
}

bool Child::IsDone()
{
    if (done)
        return true;
    takeReport();
    const pid_t ended = waitpid(process, &status, WNOHANG);
    if (ended < 0)
        throw std::runtime_error("a child's exit code was taken by somebody else");
    if (ended == process)
        finish();
    else if (timeout && Clock::now() - start > *timeout)
    {
        End();
        ending = Ending::timedOut;
    }
    return done;
}

void Child::Wait()
{
    while (!IsDone())
        std::this_thread::sleep_for(betweenLooks);
}

void Child::End(int signal)
{
    while (!done && waitpid(process, &status, WNOHANG) == 0)
    {
        (void)kill(-process, signal);
        (void)kill(process, signal); // It may not have a group of its own yet.
        std::this_thread::sleep_for(betweenLooks);
    }
    if (!done)
        finish();
}

int Child::ExitCode() const { return ending == Ending::exited ? WEXITSTATUS(status) : -1; }

std::string Child::EndText() const
{
    switch (ending)
    {
    case Ending::crashed:
        return std::string("the process has crashed: ") + strsignal(WTERMSIG(status));
    case Ending::timedOut:
        return "it took longer than " +
               std::to_string(std::chrono::duration_cast<std::chrono::seconds>(*timeout).count()) +
               " seconds";
    case Ending::exited:
        break;
    }
    return "the process ended by itself with code " + std::to_string(ExitCode());
}
} // namespace standin::process
