#include "host/PrintLine.h"

#include <cstdio>

void PrintLine(std::string_view text)
{
    (void)std::fwrite(text.data(), 1, text.size(), stdout);
    (void)std::fputc('\n', stdout);
    (void)std::fflush(stdout);
}
