#pragma once
// Runs a program to its end: what it wrote, and its exit code.

#include "standin/process/Child.h"
#include "standin/process/Complaints.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <stdexcept>
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

/// A debug build of JUCE greets on standard error.
inline std::string WithoutGreeting(std::string text)
{
    const std::string greeting = "JUCE v7.0.5\n";
    for (std::size_t at = text.find(greeting); at != std::string::npos; at = text.find(greeting))
        text.erase(at, greeting.size());
    return text;
}

/// `environment` holds "NAME=value" lines that are set for the program.
inline ProgramRun RunProgram(const std::vector<std::string>& command,
                             const std::vector<std::string>& environment = {})
{
    process::Child child(process::Program(command, environment), process::Streams::kept);
    child.Wait();
    EXPECT_EQ(process::ComplaintsIn(child.Errors()), "") << command.front();
    return {child.ExitCode(), child.Output(), WithoutGreeting(child.Errors())};
}

/// The lines that a program prints. Throws std::runtime_error if it fails.
inline std::vector<std::string> LinesOf(const std::vector<std::string>& command)
{
    const ProgramRun run = RunProgram(command);
    if (run.exitCode != 0)
        throw std::runtime_error(command.front() + " fails: " + run.errors);
    std::vector<std::string> lines;
    std::istringstream text(run.output);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

inline std::vector<std::string> WordsOf(const std::string& line)
{
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}
} // namespace standin
