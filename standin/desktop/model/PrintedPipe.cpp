#include "standin/desktop/model/PrintedPipe.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace standin
{
namespace
{
void flushAll()
{
    std::cout.flush();
    (void)std::fflush(stdout);
}
} // namespace

PrintedPipe::PrintedPipe() : formerOutput((flushAll(), dup(STDOUT_FILENO)))
{
    int ends[2];
    if (formerOutput < 0 || pipe2(ends, O_CLOEXEC) != 0 || pipe2(stopEnds, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for what the bundle prints");
    readEnd = ends[0];
    (void)fcntl(readEnd, F_SETFL, O_NONBLOCK);
    (void)dup2(ends[1], STDOUT_FILENO);
    (void)close(ends[1]);
    reader = std::thread([this] { readOn(); });
}

PrintedPipe::~PrintedPipe()
{
    flushAll();
    (void)dup2(formerOutput, STDOUT_FILENO);
    (void)close(stopEnds[1]);
    reader.join();
    (void)close(stopEnds[0]);
    (void)close(readEnd);
    (void)close(formerOutput);
}

void PrintedPipe::readOn()
{
    std::array<pollfd, 2> fds{pollfd{readEnd, POLLIN, 0}, pollfd{stopEnds[0], POLLIN, 0}};
    while (poll(fds.data(), fds.size(), -1) >= 0)
    {
        if (fds[1].revents != 0)
            return;
        drain();
    }
}

void PrintedPipe::drain()
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::array<char, 4096> buffer;
    ssize_t count = 0;
    while ((count = read(readEnd, buffer.data(), buffer.size())) > 0)
        text.append(buffer.data(), static_cast<std::size_t>(count));
}

std::vector<std::string> PrintedPipe::Take()
{
    flushAll();
    drain();
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(text.substr(begin, end - begin));
    text.erase(0, begin);
    return lines;
}

void PrintedPipe::PrintBehind(const std::string& printed) const
{
    std::size_t done = 0;
    while (done < printed.size())
    {
        const ssize_t count = write(formerOutput, printed.data() + done, printed.size() - done);
        if (count <= 0)
            return;
        done += static_cast<std::size_t>(count);
    }
}
} // namespace standin
