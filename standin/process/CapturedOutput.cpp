#include "standin/process/CapturedOutput.h"

#include "standin/process/Report.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace standin::process
{
void FlushOutput()
{
    (void)std::cout.flush();
    (void)std::fflush(stdout);
}

CapturedOutput::CapturedOutput() : terminal(dup(STDOUT_FILENO))
{
    FlushOutput();
    if (terminal < 0 || dup2(file.Descriptor(), STDOUT_FILENO) < 0)
        throw std::runtime_error("standard output cannot be redirected");
}

CapturedOutput::~CapturedOutput()
{
    FlushOutput();
    (void)dup2(terminal, STDOUT_FILENO);
    (void)close(terminal);
}

std::string CapturedOutput::Text() const
{
    FlushOutput();
    return file.Text();
}

std::vector<std::string> CapturedOutput::TakeLines()
{
    FlushOutput();
    const std::string text = file.Text(taken);
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(text.substr(begin, end - begin));
    taken += begin;
    return lines;
}

void CapturedOutput::WriteToTerminal(const std::string& text) const { WriteAll(terminal, text); }
} // namespace standin::process
