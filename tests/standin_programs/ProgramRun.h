#pragma once
// A program run to its end, with what it wrote and how it ended.

#include <string>
#include <vector>

namespace standin
{
struct ProgramRun
{
    int exitCode = -1; ///< -1 if a signal ended it.
    std::string output;
    std::string errors;
};

/// `environment` holds "NAME=value" lines that are set for the program.
ProgramRun RunProgram(const std::vector<std::string>& command,
                      const std::vector<std::string>& environment = {});
} // namespace standin
