#pragma once
// Collects findings and holds them against those that are expected. Findings may come from any
// thread; the rest is for the main thread.

#include <mutex>
#include <string>
#include <vector>

#include "standin/host/sensors/Finding.h"

namespace standin
{
class FindingLog
{
public:
    void Add(Finding finding);
    /// Added to every later finding; see Finding::origin.
    void SetOrigin(std::string origin);

    /// A finding with this id in this function is intended from now on, as often as it comes, and
    /// must come at least once. `function` may be empty for findings outside any call.
    void Expect(std::string id, std::string function, std::string reason);

    /// All findings so far, expected ones too.
    std::vector<Finding> All() const;
    /// The same, and the log is empty afterwards. Expectations that were met stay met.
    std::vector<Finding> Take();
    /// Findings that were not expected, and one "missing-finding" for each expectation never met.
    std::vector<Finding> Unexpected() const;
    /// The text of Unexpected(), a line each; empty when all is well.
    std::string Report() const;

private:
    struct Expectation
    {
        std::string id;
        std::string function;
        std::string reason;
        bool met = false;
    };

    bool isExpected(const Finding& finding) const;

    mutable std::mutex mutex;
    std::vector<Finding> findings;
    std::vector<Expectation> expectations;
    std::string origin;
};
} // namespace standin
