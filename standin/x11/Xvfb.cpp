#include "standin/x11/Xvfb.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
constexpr int startLimitMs = 30000;

[[noreturn]] void runServer(int readyPipe, const std::string& screen)
{
    // The server never outlives its test, however the test ends.
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int null = open("/dev/null", O_RDWR);
    for (int fd = 0; fd < 3; ++fd)
        (void)dup2(null, fd);
    const std::string readyFd = std::to_string(readyPipe);
    // "-r": a key that a slow machine holds down for long is no key that is pressed again and again.
    (void)execlp("Xvfb", "Xvfb", "-displayfd", readyFd.c_str(), "-screen", "0", screen.c_str(), "-nolisten",
                 "tcp", "-noreset", "-r", static_cast<char*>(nullptr));
    _exit(127);
}

/// The line that the server writes when it takes connections; empty if none comes.
std::string readLine(int fd)
{
    std::string line;
    pollfd ready{fd, POLLIN, 0};
    while (poll(&ready, 1, startLimitMs) == 1)
    {
        char c = 0;
        if (read(fd, &c, 1) != 1)
            return {};
        if (c == '\n')
            return line;
        line += c;
    }
    return {};
}
/// The server notes the signal and looks at its note before it waits for its clients. A signal that comes
/// between the two is slept over, for ten minutes if no client is left; the next one wakes it.
void endServer(pid_t process)
{
    while (waitpid(process, nullptr, WNOHANG) == 0)
    {
        (void)kill(process, SIGTERM);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}
} // namespace

namespace standin
{
Xvfb::Xvfb(int width, int height)
{
    int fds[2];
    if (pipe(fds) != 0)
        throw std::runtime_error("no pipe for Xvfb");
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    process = fork();
    if (process == 0)
    {
        (void)close(fds[0]);
        runServer(fds[1], screen);
    }
    (void)close(fds[1]);
    const std::string number = readLine(fds[0]);
    (void)close(fds[0]);
    if (number.empty())
        throw DisplayMissing("Xvfb did not start");
    display = ":" + number;
    (void)setenv("DISPLAY", display.c_str(), 1);
}

Xvfb::~Xvfb()
{
    if (process > 0)
        endServer(process);
}
} // namespace standin
