#pragma once
// A walk that fails, made as short as it can be made in the time.

#include "standin/check/Walk.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace standin::check
{
class ShortenedWalk
{
public:
    using Clock = std::chrono::steady_clock;
    using TakeAgain = std::function<WalkOutcome(const std::vector<WalkStep>&)>;

    ShortenedWalk(WalkKind theKind, TakeAgain how, Clock::time_point theEnd)
        : kind(theKind), takeAgain(std::move(how)), end(theEnd)
    {
    }

    /// Leaves steps out as long as the walk still fails and there is time.
    void Shorten(const std::vector<WalkStep>& failing, const WalkOutcome& outcome);

    const std::vector<WalkStep>& Steps() const { return steps; }
    const std::string& Failure() const { return found; }

private:
    bool hasTime() const { return Clock::now() < end; }
    void take(const std::vector<WalkStep>& failing, const WalkOutcome& outcome);
    void leaveOutRuns(std::size_t length);
    bool tryInstead(const std::vector<WalkStep>& wanted);

    WalkKind kind;
    TakeAgain takeAgain;
    Clock::time_point end;
    std::vector<WalkStep> steps;
    std::string found;
};

/// The walk as a scenario, a line each, indented.
std::string AsScenario(const std::vector<WalkStep>& steps, WalkKind kind);
} // namespace standin::check
