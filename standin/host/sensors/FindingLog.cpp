#include "standin/host/sensors/FindingLog.h"

#include <algorithm>
#include <utility>

#include "standin/host/sensors/FindingIds.h"

namespace standin
{
void FindingLog::Add(Finding finding)
{
    const std::lock_guard<std::mutex> lock(mutex);
    finding.origin = origin;
    for (Expectation& expectation : expectations)
        if (expectation.id == finding.id && expectation.function == finding.function)
            expectation.met = true;
    findings.push_back(std::move(finding));
}

void FindingLog::SetOrigin(std::string newOrigin)
{
    const std::lock_guard<std::mutex> lock(mutex);
    origin = std::move(newOrigin);
}

void FindingLog::Expect(std::string id, std::string function, std::string reason)
{
    const std::lock_guard<std::mutex> lock(mutex);
    expectations.push_back({std::move(id), std::move(function), std::move(reason), false});
}

std::vector<Finding> FindingLog::All() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return findings;
}

std::vector<Finding> FindingLog::Take()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(findings, {});
}

bool FindingLog::isExpected(const Finding& finding) const
{
    return std::any_of(expectations.begin(), expectations.end(),
                       [&](const Expectation& expectation)
                       { return expectation.id == finding.id && expectation.function == finding.function; });
}

std::vector<Finding> FindingLog::Unexpected() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Finding> unexpected;
    std::copy_if(findings.begin(), findings.end(), std::back_inserter(unexpected),
                 [this](const Finding& finding) { return !isExpected(finding); });
    for (const Expectation& expectation : expectations)
        if (!expectation.met)
            unexpected.push_back(
                {finding::missingFinding,
                 "The finding " + expectation.id + " was expected and did not appear: " + expectation.reason,
                 "", expectation.function, origin});
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
