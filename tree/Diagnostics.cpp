#include "tree/Diagnostics.h"

#include <cstdio>

void PrintLine(const std::string& text)
{
    (void)std::fwrite(text.data(), 1, text.size(), stdout);
    (void)std::fputc('\n', stdout);
    (void)std::fflush(stdout);
}
