#pragma once
// A child process: a copy of this one, or another program. Its timeout runs from its start, it reports
// through a pipe, and it never outlives its parent.

#include "standin/process/Report.h"
#include "standin/process/ScratchFile.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace standin::process
{
/// What the child does; gives its exit code. Nothing that was registered for the end of the process is run
/// after it.
using Body = std::function<int()>;

/// Becomes another program, which is looked for in PATH. `environment` holds "NAME=value" lines that are set
/// for it.
Body Program(const std::vector<std::string>& command, const std::vector<std::string>& environment = {});

enum class Streams
{
    inherited,
    kept ///< Standard input is empty, and what is printed is kept for the parent.
};

enum class Ending
{
    exited,
    crashed, ///< A signal ended it.
    timedOut ///< It was ended at its timeout.
};

class Child
{
public:
    using Timeout = std::optional<std::chrono::milliseconds>;

    /// Throws std::runtime_error if no process can be made.
    explicit Child(const Body& body, Streams streams = Streams::inherited, Timeout timeout = {});
    /// Ends the child if it still runs.
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Takes what has come from the child. True once it has ended, or was ended at its timeout. Throws
    /// std::runtime_error if somebody else has waited for it.
    bool IsDone();
    void Wait();
    /// Sends the signal to the child, and to what it has started, until the child has ended.
    void End(int signal = SIGKILL);

    // Once it is done.
    Ending HowEnded() const { return ending; }
    /// "the process has crashed: Aborted".
    std::string EndText() const;
    /// -1 if it did not exit by itself.
    int ExitCode() const;
    double Seconds() const { return std::chrono::duration<double>(end - start).count(); }

    /// All that it has written to the pipe so far.
    const std::string& Told() const { return told; }
    /// What it has printed, if its streams are kept.
    std::string Output() const { return output ? output->Text() : ""; }
    std::string Errors() const { return errors ? errors->Text() : ""; }

private:
    using Clock = std::chrono::steady_clock;

    [[noreturn]] void run(const Body& body, int reportEnd) const;
    void takeReport();
    void finish();

    Timeout timeout;
    Clock::time_point start = Clock::now();
    Clock::time_point end = start;
    std::optional<ScratchFile> output;
    std::optional<ScratchFile> errors;
    pid_t process = -1;
    int pipe = -1;
    int status = 0;
    bool done = false;
    Ending ending = Ending::exited;
    std::string told;
};
} // namespace standin::process
