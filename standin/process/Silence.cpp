#include "standin/process/Silence.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace standin::process
{
Silence::Silence() : formerOutput(dup(STDOUT_FILENO))
{
    (void)std::fflush(stdout);
    const int nowhere = open("/dev/null", O_WRONLY);
    (void)dup2(nowhere, STDOUT_FILENO);
    (void)close(nowhere);
}

Silence::~Silence()
{
    (void)std::fflush(stdout);
    (void)dup2(formerOutput, STDOUT_FILENO);
    (void)close(formerOutput);
}
} // namespace standin::process
