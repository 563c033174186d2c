#include "tests/standin_programs/ProgramRun.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace standin
{
namespace
{
std::string readAll(std::FILE* file)
{
    std::string text;
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        text += static_cast<char>(c);
    (void)std::fclose(file);
    return text;
}

/// A debug build of JUCE greets on standard error.
std::string withoutGreeting(std::string text)
{
    const std::string greeting = "JUCE v7.0.5\n";
    for (std::size_t at = text.find(greeting); at != std::string::npos; at = text.find(greeting))
        text.erase(at, greeting.size());
    return text;
}

[[noreturn]] void become(std::vector<std::string> command, std::vector<std::string> environment, int output,
                         int errors)
{
    (void)dup2(output, STDOUT_FILENO);
    (void)dup2(errors, STDERR_FILENO);
    for (std::string& line : environment)
        (void)putenv(line.data());
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    (void)execv(arguments.front(), arguments.data());
    _exit(127);
}
} // namespace

ProgramRun RunProgram(const std::vector<std::string>& command, const std::vector<std::string>& environment)
{
    std::FILE* const output = std::tmpfile();
    std::FILE* const errors = std::tmpfile();
    const pid_t child = fork();
    if (child == 0)
        become(command, environment, fileno(output), fileno(errors));
    int status = 0;
    (void)waitpid(child, &status, 0);
    ProgramRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.output = readAll(output);
    run.errors = withoutGreeting(readAll(errors));
    return run;
}
} // namespace standin
