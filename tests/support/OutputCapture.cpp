#include "tests/support/OutputCapture.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace standin::OutputCapture
{
namespace
{
struct Capture
{
    int standardOutput = -1;
    std::FILE* file = nullptr;
};

Capture& current()
{
    static Capture capture;
    return capture;
}

void flush()
{
    std::cout.flush();
    (void)std::fflush(stdout);
}
} // namespace

void Start()
{
    if (current().file != nullptr)
        throw std::logic_error("standard output is being kept already");
    flush();
    current().file = std::tmpfile();
    current().standardOutput = dup(STDOUT_FILENO);
    dup2(fileno(current().file), STDOUT_FILENO);
}

std::string SoFar()
{
    flush();
    return Flushed();
}

std::string Flushed()
{
    std::string text;
    char buffer[4096];
    ssize_t length = 0;
    // pread leaves the position of the shared file alone, at which the program goes on writing.
    while ((length = pread(fileno(current().file), buffer, sizeof buffer, static_cast<off_t>(text.size()))) >
           0)
        text.append(buffer, static_cast<std::size_t>(length));
    return text;
}

std::string Stop()
{
    std::string text = SoFar();
    dup2(current().standardOutput, STDOUT_FILENO);
    close(current().standardOutput);
    (void)std::fclose(current().file);
    current() = {};
    return text;
}
} // namespace standin::OutputCapture
