#pragma once
// What a test of failing host calls compares: how the hook came back, what the host found, and which suites
// are missing.

#include "standin/host/core/Host.h"

#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace standin
{
using FindingIds = std::set<std::string>;

/// The ids of everything the host has found, suites that are still held included.
inline FindingIds TakeDistinctFindingIds(Host& host)
{
    host.CheckSuiteBalance();
    const std::vector<std::string> ids = host.TakeFindingIds();
    return {ids.begin(), ids.end()};
}

/// "returned 0", or "threw 516" for an integer that left the hook.
inline std::string OutcomeText(const HookResult& hook, int returned)
{
    if (hook.thrownNumber)
        return "threw " + std::to_string(*hook.thrownNumber);
    return hook.thrown.empty() ? "returned " + std::to_string(returned) : "threw " + hook.thrown;
}

/// A suite that an operation needs, and what the host finds without it.
struct MissingSuite
{
    const char* name;
    int version;
    std::vector<std::string> found;

    std::string Text() const { return std::string(name) + " " + std::to_string(version); }
};

/// Runs `test(missing, how)` for each of the suites and each way to withhold it.
template <class Test>
void ForEachMissing(const std::vector<MissingSuite>& suites, Test test)
{
    for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
    {
        for (const MissingSuite& missing : suites)
        {
            SCOPED_TRACE(missing.Text() + ", " + std::to_string(static_cast<int>(how)));
            test(missing, how);
        }
    }
}
} // namespace standin
