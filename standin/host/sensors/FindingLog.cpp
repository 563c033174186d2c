#include "standin/host/sensors/FindingLog.h"

#include <algorithm>
#include <utility>

#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
std::string timesText(int count) { return std::to_string(count) + (count == 1 ? " time" : " times"); }
} // namespace

ExpectedFinding::ExpectedFinding(std::string theId, std::string theFunction, std::string theReason)
    : id(std::move(theId)), function(std::move(theFunction)), reason(std::move(theReason))
{
}

ExpectedFinding& ExpectedFinding::In(std::string theHook)
{
    hook = std::move(theHook);
    return *this;
}

ExpectedFinding& ExpectedFinding::Times(int count)
{
    times = count;
    return *this;
}

bool ExpectedFinding::Takes(const Finding& finding)
{
    if (came == times || id != finding.id || function != finding.function || (hook && hook != finding.hook))
        return false;
    ++came;
    return true;
}

std::string ExpectedFinding::Missing() const
{
    if (times ? came == *times : came > 0)
        return "";
    return "The finding " + id + (function.empty() ? "" : " of " + function) +
           (hook && !hook->empty() ? " in the " + *hook : "") + " was expected " +
           (times ? timesText(*times) : "at least once") + " and came " + timesText(came) + ": " + reason;
}

void FindingLog::Add(Finding finding)
{
    const std::lock_guard<std::mutex> lock(mutex);
    finding.origin = origin;
    if (finding.hook.empty())
        finding.hook = hook;
    const bool isExpected =
        std::any_of(expectations.begin(), expectations.end(),
                    [&](ExpectedFinding& expectation) { return expectation.Takes(finding); });
    entries.push_back({std::move(finding), isExpected});
}

void FindingLog::SetOrigin(std::string newOrigin)
{
    const std::lock_guard<std::mutex> lock(mutex);
    origin = std::move(newOrigin);
}

std::string FindingLog::SetHook(std::string newHook)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(hook, std::move(newHook));
}

ExpectedFinding& FindingLog::Expect(std::string id, std::string function, std::string reason)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return expectations.emplace_back(std::move(id), std::move(function), std::move(reason));
}

std::vector<Finding> FindingLog::All() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Finding> all;
    for (const Entry& entry : entries)
        all.push_back(entry.finding);
    return all;
}

std::vector<Finding> FindingLog::Take()
{
    std::vector<Finding> all = All();
    const std::lock_guard<std::mutex> lock(mutex);
    entries.clear();
    return all;
}

std::vector<Finding> FindingLog::Unexpected() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Finding> unexpected;
    for (const Entry& entry : entries)
        if (!entry.isExpected)
            unexpected.push_back(entry.finding);
    for (const ExpectedFinding& expectation : expectations)
        if (const std::string missing = expectation.Missing(); !missing.empty())
            unexpected.push_back({finding::missingFinding, missing, "", expectation.Function(), origin});
    return unexpected;
}

std::string FindingLog::Report() const
{
    std::string report;
    for (const Finding& finding : Unexpected())
        report += finding.Text() + "\n";
    return report;
}
} // namespace standin
