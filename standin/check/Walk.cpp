#include "standin/check/Walk.h"

#include "standin/check/ShortenedWalk.h"
#include "standin/check/Walker.h"
#include "standin/process/Child.h"

#include <algorithm>

namespace standin::check
{
namespace
{
using Clock = std::chrono::steady_clock;
using Steps = std::vector<WalkStep>;

/// The first thing that is wrong, empty if nothing is.
std::string walk(const std::string& bundleFile, const Steps& steps)
{
    try
    {
        Walker walker(bundleFile);
        int done = 0;
        for (const WalkStep& step : steps)
        {
            std::string wrong = walker.Take(step);
            if (!wrong.empty())
                return wrong;
            process::Tell("steps", std::to_string(++done));
        }
        return walker.End();
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

WalkOutcome walkSeparately(const std::string& bundleFile, const Steps& steps, Clock::time_point end)
{
    const auto work = [&]
    {
        process::Tell("failure", walk(bundleFile, steps));
        return 0;
    };
    process::Child child(work, process::Streams::inherited,
                         std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()));
    child.Wait();
    const process::Report report(child.Told());
    const int done = report.Number("steps");
    if (child.HowEnded() == process::Ending::timedOut)
        return {done, "the walk does not end in time"};
    if (child.ExitCode() != 0 || !report.Has("failure"))
        return {done, child.EndText()};
    return {done, report.Text("failure")};
}

/// The functions that a pass calls, each by as many calls as it makes of it on a layer of a walk.
std::string drawFault(std::mt19937& random)
{
    struct Called
    {
        const char* function;
        unsigned times;
    };
    constexpr Called functions[] = {{"AcquireSuite", 12},
                                    {"AEGP_IsShown", 2},
                                    {"AEGP_CheckMarkMenuCommand", 2},
                                    {"AEGP_GetActiveItem", 2},
                                    {"AEGP_GetItemID", 2},
                                    {"AEGP_GetActiveLayer", 2},
                                    {"AEGP_GetLayerID", 2},
                                    {"AEGP_ConvertLayerToCompTime", 10},
                                    {"AEGP_GetLayerNumEffects", 10},
                                    {"AEGP_GetLayerEffectByIndex", 40},
                                    {"AEGP_GetInstalledKeyFromLayerEffect", 20},
                                    {"AEGP_GetEffectMatchName", 20},
                                    {"AEGP_GetEffectFlags", 20},
                                    {"AEGP_EffectCallGeneric", 30},
                                    {"AEGP_GetNewEffectStreamByIndex", 20},
                                    {"AEGP_GetNewParentStreamRef", 20},
                                    {"AEGP_GetStreamName", 20},
                                    {"AEGP_DisposeEffect", 20},
                                    {"AEGP_DisposeStream", 20},
                                    {"AEGP_StartUndoGroup", 5},
                                    {"AEGP_EndUndoGroup", 5},
                                    {"AEGP_SetStreamName", 1},
                                    {"AEGP_SetEffectFlags", 2},
                                    {"AEGP_ReorderEffect", 5},
                                    {"AEGP_DeleteLayerEffect", 2},
                                    {"AEGP_ApplyEffect", 1},
                                    {"AEGP_GetDynamicStreamFlags", 4},
                                    {"AEGP_SetDynamicStreamFlag", 8}};
    const Called& drawn = functions[random() % std::size(functions)];
    return "call " + std::to_string(random() % drawn.times + 1) + " of " + drawn.function;
}

/// The calls inside which a pass would do the most harm inside another, all calls, and none.
std::string drawIdles(std::mt19937& random)
{
    constexpr const char* functions[] = {"AEGP_EffectCallGeneric", "AEGP_ReorderEffect",
                                         "AEGP_StartUndoGroup",    "AEGP_SetStreamName",
                                         "AEGP_DeleteLayerEffect", "AEGP_ApplyEffect"};
    const std::size_t drawn = random() % (std::size(functions) + 2);
    if (drawn < std::size(functions))
        return std::string("each call of ") + functions[drawn];
    return drawn == std::size(functions) ? "each call" : "no call";
}
} // namespace

std::vector<WalkStep> DrawWalk(WalkKind kind, unsigned seed, int count)
{
    constexpr int firstNewId = 100;
    std::mt19937 random(seed);
    // Drawn apart, so that the steps of a seed are the same with and without it.
    std::mt19937 randomIdles(seed);
    std::mt19937 randomFaults(seed);
    constexpr unsigned stepsBetweenTurns = 3;
    constexpr unsigned stepsBetweenFaults = 8;
    WalkState state = WalkBegin(kind);
    Steps steps;
    for (int i = 0; i < count; ++i)
    {
        steps.push_back(DrawStep(random, state, kind, firstNewId + i));
        if (i > 0 && randomIdles() % stepsBetweenTurns == 0)
            steps.back().idlesInside = drawIdles(randomIdles);
        WalkStep failing = steps.back();
        failing.idlesInside.clear();
        if (kind == WalkKind::loop && randomFaults() % stepsBetweenFaults == 0)
            failing.fault = drawFault(randomFaults);
        if (!failing.fault.empty() && IsPossible(state, failing))
            steps.back() = failing;
        (void)CarryOut(state, steps.back());
    }
    return steps;
}

std::vector<WalkStep> PossibleSteps(const std::vector<WalkStep>& steps, WalkKind kind)
{
    WalkState state = WalkBegin(kind);
    Steps possible;
    for (const WalkStep& step : steps)
    {
        if (!IsPossible(state, step))
            continue;
        possible.push_back(step);
        (void)CarryOut(state, step);
    }
    return possible;
}

WalkOutcome TakeWalk(const WalkPlan& plan)
{
    const Clock::time_point end = Clock::now() + plan.limit;
    const Steps steps = DrawWalk(plan.kind, plan.seed, plan.steps);
    WalkOutcome outcome = walkSeparately(plan.bundleFile, steps, end);
    if (outcome.failure.empty())
        return outcome;
    const auto used = static_cast<std::size_t>(outcome.stepsDone) + 1;
    const auto again = [&](const Steps& fewer) { return walkSeparately(plan.bundleFile, fewer, end); };
    ShortenedWalk shortening(plan.kind, again, std::min(end, Clock::now() + plan.shortening));
    shortening.Shorten(steps, outcome);
    outcome.failure =
        shortening.Failure() + "\n  seed " + std::to_string(plan.seed) + ", step " +
        std::to_string(std::min(used, steps.size())) +
        "; as a scenario, made as short as it went:" + AsScenario(shortening.Steps(), plan.kind);
    return outcome;
}
} // namespace standin::check
