#pragma once
// What a test of a failing host call compares: how the hook came back and what the host found.

#include "standin/core/Host.h"

#include <optional>
#include <set>
#include <string>

namespace standin
{
using FindingIds = std::set<std::string>;

/// The ids of everything the host has found, suites that are still held included.
inline FindingIds TakeDistinctFindingIds(Host& host)
{
    host.CheckSuiteBalance();
    FindingIds ids;
    for (const Finding& finding : host.TakeFindings())
        ids.insert(finding.id);
    return ids;
}

/// "returned 0", or "threw 516" for an integer that left the hook.
inline std::string OutcomeText(const HookResult& hook, int returned)
{
    if (hook.thrownNumber)
        return "threw " + std::to_string(*hook.thrownNumber);
    return hook.thrown.empty() ? "returned " + std::to_string(returned) : "threw " + hook.thrown;
}
} // namespace standin
