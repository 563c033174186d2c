#include "standin/checks/SeparateCheck.h"

#include "standin/checks/CheckAlone.h"

#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace standin
{
namespace
{
/// A file without a name, for what the process prints.
int makeOutputFile()
{
    std::FILE* const file = std::tmpfile();
    if (file == nullptr)
        throw std::runtime_error("no temporary file for the output of a check");
    const int descriptor = dup(fileno(file));
    (void)std::fclose(file);
    return descriptor;
}

[[noreturn]] void becomeCheck(const CheckJob& job, const std::string& id, int output, int report)
{
    // A group of its own, so that whatever the bundle starts ends with it.
    (void)setpgid(0, 0);
    const int in = open("/dev/null", O_RDONLY);
    (void)dup2(in, STDIN_FILENO);
    (void)dup2(output, STDOUT_FILENO);
    (void)dup2(output, STDERR_FILENO);
    if (report != reportDescriptor)
    {
        (void)dup2(report, reportDescriptor);
        (void)close(report);
    }
    const std::string seed = std::to_string(job.seed);
    (void)execl(job.program.c_str(), job.program.c_str(), job.book->aloneCommand, job.file.c_str(),
                id.c_str(), seed.c_str(), static_cast<char*>(nullptr));
    _exit(127);
}

/// The end of what the process printed, for the report of a crash.
std::string lastLines(int file)
{
    constexpr off_t most = 600;
    const off_t size = lseek(file, 0, SEEK_END);
    const off_t begin = size > most ? size - most : 0;
    std::string text(static_cast<std::size_t>(size - begin), '\0');
    const ssize_t count = pread(file, text.data(), text.size(), begin);
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text.empty() ? "" : "\nlast printed: " + text;
}

std::string placeText(const CheckReport& report)
{
    return report.place.empty() ? "" : "\nat: " + report.place;
}
} // namespace

SeparateCheck::SeparateCheck(const CheckJob& job, const std::string& id, std::chrono::seconds theLimit)
    : limit(theLimit), start(Clock::now()), end(start), output(makeOutputFile())
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe to a check");
    (void)fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    (void)fcntl(ends[0], F_SETFL, O_NONBLOCK);
    (void)fcntl(output, F_SETFD, FD_CLOEXEC);
    (void)std::fflush(nullptr);
    process = fork();
    if (process == 0)
        becomeCheck(job, id, output, ends[1]);
    (void)close(ends[1]);
    pipe = ends[0];
    if (process < 0)
        throw std::runtime_error("no process for a check");
}

SeparateCheck::~SeparateCheck()
{
    if (!done && process > 0)
        endBy(Ending::tooLate);
    (void)close(pipe);
    (void)close(output);
}

void SeparateCheck::takeReport()
{
    char buffer[4096];
    for (ssize_t count = read(pipe, buffer, sizeof buffer); count > 0;
         count = read(pipe, buffer, sizeof buffer))
        text.append(buffer, static_cast<std::size_t>(count));
}

void SeparateCheck::endBy(Ending how)
{
    (void)kill(-process, SIGKILL);
    (void)kill(process, SIGKILL);
    (void)waitpid(process, &status, 0);
    ending = how;
    end = Clock::now();
    done = true;
}

bool SeparateCheck::IsDone()
{
    if (done)
        return true;
    takeReport();
    if (waitpid(process, &status, WNOHANG) == process)
    {
        end = Clock::now();
        done = true;
        takeReport();
        (void)kill(-process, SIGKILL);
        if (WIFSIGNALED(status))
            ending = Ending::crashed;
        else if (WEXITSTATUS(status) != 0 || ReadReport(text).word == Word::none)
            ending = Ending::early;
    }
    else if (Clock::now() - start > limit)
        endBy(Ending::tooLate);
    return done;
}

CheckOutcome SeparateCheck::Outcome() const
{
    CheckOutcome outcome;
    outcome.ending = ending;
    outcome.report = ReadReport(text);
    outcome.seconds = std::chrono::duration<double>(end - start).count();
    const std::string where = placeText(outcome.report) + lastLines(output);
    if (ending == Ending::crashed)
        outcome.found = std::string("the process has crashed: ") + strsignal(WTERMSIG(status)) + where;
    else if (ending == Ending::tooLate)
        outcome.found = "it took longer than " + std::to_string(limit.count()) + " seconds" + where;
    else if (ending == Ending::early)
        outcome.found = "the process ended by itself with code " + std::to_string(WEXITSTATUS(status)) +
                        " in the midst of the check" + where;
    else if (outcome.report.word != Word::passed)
        outcome.found = outcome.report.found.empty() ? "it failed without a word" : outcome.report.found;
    return outcome;
}
} // namespace standin
