#include "standin/process/ScratchFile.h"

#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace standin::process
{
ScratchFile::ScratchFile()
{
    std::FILE* const file = std::tmpfile();
    if (file == nullptr)
        throw std::runtime_error("no temporary file can be made");
    descriptor = dup(fileno(file));
    (void)std::fclose(file);
    (void)fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

ScratchFile::~ScratchFile() { (void)close(descriptor); }

std::string ScratchFile::Text(std::size_t from) const
{
    std::string text;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = pread(descriptor, buffer, sizeof buffer, static_cast<off_t>(from + text.size()))) > 0)
        text.append(buffer, static_cast<std::size_t>(count));
    return text;
}
} // namespace standin::process
