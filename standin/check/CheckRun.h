#pragma once
// Runs checks, several at a time and each in a process of its own, so that a bundle that crashes, hangs or
// ends the process takes nothing else with it. The outcomes are handed out in the order of the checks.

#include "standin/check/Check.h"

#include <chrono>
#include <functional>
#include <optional>

namespace standin::check
{
struct CheckOutcome
{
    int code = 0; ///< One of the exit codes.
    /// How the process ended: "returned", "crashed", "too late" or, without a verdict, "ended early".
    const char* ending = "returned";
    std::string found; ///< In words, if the check has not passed.
    int looked = 0;    ///< How many things the check has looked at.
    bool isSeedUsed = false;
    double seconds = 0;

    bool IsPassed() const { return code == 0; }
};

struct CheckRunOptions
{
    CheckJob job;
    int atATime = 2;
    /// In place of the checks' own.
    std::optional<std::chrono::seconds> timeout;
};

using OnOutcome = std::function<void(const Check&, const CheckOutcome&)>;

/// Gives the number of outcomes that were handed out.
std::size_t RunChecks(const std::vector<Check>& checks, const CheckRunOptions& options,
                      const OnOutcome& onOutcome);

/// Whether the file loads and exports what it has to, without calling it.
CheckOutcome TryToLoad(const CheckRunOptions& options);
} // namespace standin::check
