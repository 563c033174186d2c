#pragma once
// Collects findings and holds them against those that are expected. Findings may come from any
// thread; the rest is for the main thread.

#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "standin/host/sensors/Finding.h"

namespace standin
{
/// A finding that is intended: which, in which function, in which hook and how often.
class ExpectedFinding
{
public:
    ExpectedFinding(std::string id, std::string function, std::string reason);

    /// While this hook runs, and no other; an empty one stands for none. In any hook if nothing is said.
    ExpectedFinding& In(std::string hook);
    /// So often, no more and no less; at least once if nothing is said.
    ExpectedFinding& Times(int count);

    /// Counts the finding if it is one of those that are still to come.
    bool Takes(const Finding& finding);
    /// What is missing; empty if nothing is.
    std::string Missing() const;
    const std::string& Function() const { return function; }

private:
    std::string id;
    std::string function;
    std::string reason;
    std::optional<std::string> hook;
    std::optional<int> times;
    int came = 0;
};

class FindingLog
{
public:
    void Add(Finding finding);
    /// Added to every later finding; see Finding::origin.
    void SetOrigin(std::string origin);
    /// Added to every later finding that does not name its hook itself. Gives the former one.
    std::string SetHook(std::string hook);

    /// Of the findings to come, one with this id in this function is intended, and has to come; the result
    /// can say in which hook, and how often. `function` may be empty for findings outside any
    /// call. For "unbalanced-suite" it is the suite, as SuiteCounts::Held::Text has it.
    ExpectedFinding& Expect(std::string id, std::string function, std::string reason);

    /// All findings so far, expected ones too.
    std::vector<Finding> All() const;
    /// The same, and the log is empty afterwards. Expectations that were met stay met.
    std::vector<Finding> Take();
    /// Findings that were not expected, and one "missing-finding" for each expectation that was not met.
    std::vector<Finding> Unexpected() const;
    /// The text of Unexpected(), a line each; empty when all is well.
    std::string Report() const;

private:
    struct Entry
    {
        Finding finding;
        bool isExpected = false;
    };

    mutable std::mutex mutex;
    std::vector<Entry> entries;
    std::deque<ExpectedFinding> expectations; ///< Who has added one may go on to say more of it.
    std::string origin;
    std::string hook;
};
} // namespace standin
