#pragma once
// Runs a check in a process of its own, so that a bundle that crashes, hangs or ends the process takes
// nothing else with it.

#include "standin/checks/Check.h"
#include "standin/checks/CheckReport.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <sys/types.h>

namespace standin
{
/// How the process ended.
enum class Ending
{
    well,    ///< It said what it had found, and ended.
    crashed, ///< A signal ended it.
    tooLate, ///< It was ended at its deadline.
    early    ///< It ended by itself without a word.
};

struct CheckOutcome
{
    Ending ending = Ending::well;
    CheckReport report;
    /// What was found, in words, whatever the ending; empty if the check has passed.
    std::string found;
    double seconds = 0;

    bool IsPassed() const { return found.empty(); }
};

/// What the runs of one judgement have in common.
struct CheckJob
{
    std::string program; ///< This program's own file.
    std::string file;    ///< What is judged.
    const CheckBook* book = &BundleChecks();
    std::uint64_t seed = 1;
};

/// One process at work. Its deadline runs from its start.
class SeparateCheck
{
public:
    /// `id` is a check's, or `onlyLoad`. Throws std::runtime_error if no process can be made.
    SeparateCheck(const CheckJob& job, const std::string& id, std::chrono::seconds limit);
    ~SeparateCheck();
    SeparateCheck(const SeparateCheck&) = delete;
    SeparateCheck& operator=(const SeparateCheck&) = delete;

    /// Takes what has come from the process. True when it has ended, or was ended at its deadline.
    bool IsDone();
    CheckOutcome Outcome() const;

private:
    using Clock = std::chrono::steady_clock;

    void takeReport();
    void endBy(Ending how);

    std::chrono::seconds limit;
    Clock::time_point start;
    Clock::time_point end;
    pid_t process = -1;
    int pipe = -1;
    int output = -1; ///< A file with what the process printed.
    int status = 0;
    bool done = false;
    Ending ending = Ending::well;
    std::string text;
};
} // namespace standin
