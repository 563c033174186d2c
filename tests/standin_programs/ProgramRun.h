#pragma once
// A program run to its end, with what it wrote and how it ended.

#include "standin/process/Child.h"
#include "standin/process/Complaints.h"

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
} // namespace standin
