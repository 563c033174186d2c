#pragma once
// Runs checks, several at a time, and hands their outcomes out in the order of the checks.

#include "standin/checks/SeparateCheck.h"

#include <functional>
#include <optional>
#include <vector>

namespace standin
{
struct CheckRunOptions
{
    CheckJob job;
    int atATime = 2;
    /// In place of the checks' own paces.
    std::optional<std::chrono::seconds> limit;
};

using OnOutcome = std::function<void(const Check&, const CheckOutcome&)>;

/// Gives the number of outcomes that were handed out.
std::size_t RunChecks(const std::vector<Check>& checks, const CheckRunOptions& options,
                      const OnOutcome& onOutcome);

/// Whether the file loads and exports what it has to, without calling it.
CheckOutcome TryToLoad(const CheckRunOptions& options);
} // namespace standin
