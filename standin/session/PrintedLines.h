#pragma once
// What is printed on standard output while one of these lives: it goes here and not to the terminal.

#include <string>
#include <vector>

namespace standin
{
class PrintedLines
{
public:
    PrintedLines();
    ~PrintedLines();
    PrintedLines(const PrintedLines&) = delete;
    PrintedLines& operator=(const PrintedLines&) = delete;

    /// The whole lines since the last call.
    std::vector<std::string> Take();

private:
    int formerOutput;
    int file;
    std::string rest; ///< The beginning of a line that has not ended yet.
};
} // namespace standin
