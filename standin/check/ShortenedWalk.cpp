#include "standin/check/ShortenedWalk.h"

#include <algorithm>

namespace standin::check
{
void ShortenedWalk::take(const std::vector<WalkStep>& failing, const WalkOutcome& outcome)
{
    const auto used = std::min(failing.size(), static_cast<std::size_t>(outcome.stepsDone) + 1);
    steps = std::vector<WalkStep>(failing.begin(), failing.begin() + static_cast<std::ptrdiff_t>(used));
    found = outcome.failure;
}

void ShortenedWalk::Shorten(const std::vector<WalkStep>& failing, const WalkOutcome& outcome)
{
    take(failing, outcome);
    for (std::size_t kept = 1; kept < steps.size() && hasTime(); kept *= 2)
        if (tryInstead({steps.end() - static_cast<std::ptrdiff_t>(kept), steps.end()}))
            break;
    for (std::size_t length = steps.size() / 2; length >= 1 && hasTime(); length /= 2)
        leaveOutRuns(length);
}

void ShortenedWalk::leaveOutRuns(std::size_t length)
{
    for (std::size_t from = 0; from + length < steps.size() && hasTime();)
    {
        std::vector<WalkStep> fewer = steps;
        const auto begin = fewer.begin() + static_cast<std::ptrdiff_t>(from);
        fewer.erase(begin, begin + static_cast<std::ptrdiff_t>(length));
        if (!tryInstead(fewer))
            from += length;
    }
}

bool ShortenedWalk::tryInstead(const std::vector<WalkStep>& wanted)
{
    const std::vector<WalkStep> fewer = PossibleSteps(wanted, kind);
    if (fewer.empty() || fewer.size() >= steps.size())
        return false;
    const WalkOutcome outcome = takeAgain(fewer);
    if (outcome.failure.empty() || !hasTime())
        return false;
    take(fewer, outcome);
    return true;
}

std::string AsScenario(const std::vector<WalkStep>& steps, WalkKind kind)
{
    std::string text;
    for (const std::string& line : WalkBeginLines())
        text += "\n    " + line;
    WalkState state = WalkBegin(kind);
    for (const WalkStep& step : steps)
    {
        for (const std::string& line : LinesOf(state, step))
            text += "\n    " + line;
        (void)CarryOut(state, step);
    }
    return text;
}
} // namespace standin::check
