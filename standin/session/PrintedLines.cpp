#include "standin/session/PrintedLines.h"

#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace standin
{
namespace
{
void flush()
{
    (void)std::cout.flush();
    (void)std::fflush(stdout);
}
} // namespace

PrintedLines::PrintedLines() : formerOutput(dup(STDOUT_FILENO)), file(memfd_create("printed", MFD_CLOEXEC))
{
    flush();
    if (formerOutput < 0 || file < 0 || dup2(file, STDOUT_FILENO) < 0)
        throw std::runtime_error("standard output cannot be listened to");
}

PrintedLines::~PrintedLines()
{
    flush();
    (void)dup2(formerOutput, STDOUT_FILENO);
    (void)close(formerOutput);
    (void)close(file);
}

std::vector<std::string> PrintedLines::Take()
{
    flush();
    const off_t size = lseek(file, 0, SEEK_END);
    std::string text(static_cast<std::size_t>(size), '\0');
    if (size > 0 && pread(file, text.data(), text.size(), 0) != size)
        throw std::runtime_error("what was printed cannot be read");
    if (ftruncate(file, 0) != 0 || lseek(file, 0, SEEK_SET) != 0)
        throw std::runtime_error("what was printed cannot be forgotten");

    std::vector<std::string> lines;
    for (const char c : text)
    {
        if (c != '\n')
        {
            rest += c;
            continue;
        }
        lines.push_back(rest);
        rest.clear();
    }
    return lines;
}
} // namespace standin
