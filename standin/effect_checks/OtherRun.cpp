#include "standin/effect_checks/OtherRun.h"

#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace standin
{
namespace
{
constexpr int notThrough = 1;

void writeAll(int pipe, const std::vector<std::uint8_t>& bytes)
{
    std::size_t written = 0;
    while (written < bytes.size())
    {
        const ssize_t count = write(pipe, bytes.data() + written, bytes.size() - written);
        if (count <= 0)
            _exit(notThrough);
        written += static_cast<std::size_t>(count);
    }
}

[[noreturn]] void runOther(const std::function<std::vector<std::uint8_t>()>& work, int pipe)
{
    try
    {
        writeAll(pipe, work());
    }
    catch (...)
    {
        _exit(notThrough);
    }
    _exit(0);
}

std::vector<std::uint8_t> readAll(int pipe)
{
    std::vector<std::uint8_t> bytes;
    std::uint8_t buffer[4096];
    for (ssize_t count = read(pipe, buffer, sizeof buffer); count > 0;
         count = read(pipe, buffer, sizeof buffer))
        bytes.insert(bytes.end(), buffer, buffer + count);
    return bytes;
}
} // namespace

std::vector<std::uint8_t> InOtherRun(const std::function<std::vector<std::uint8_t>()>& work)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe to another run");
    const pid_t child = fork();
    if (child == 0)
        runOther(work, ends[1]);
    (void)close(ends[1]);
    std::vector<std::uint8_t> bytes = readAll(ends[0]);
    (void)close(ends[0]);
    int status = 0;
    const bool isThrough =
        child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (!isThrough)
        throw std::runtime_error("the effect did not get through the other run");
    return bytes;
}
} // namespace standin
