// How an effect uses the two suites of the panel's plug-in.

#include "standin/check/effects/EffectScene.h"
#include "standin/host/sensors/FindingIds.h"

namespace standin::check::effects
{
namespace
{
constexpr const char* suites[] = {VORTAN_IDLE_SUITE_NAME, VORTAN_PANEL_SUITE_NAME};

std::vector<std::string> findingsWith(Host& host, const std::string& id)
{
    std::vector<std::string> lines;
    for (const Finding& finding : host.Findings().All())
        if (finding.id == id)
            lines.push_back(finding.Text());
    return lines;
}
} // namespace

void NoOtherThread(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    constexpr int aThirdOfASecond = 60;
    scene.Idle(aThirdOfASecond);
    trial.RequireLines(scene.witness.CallsFromOtherThreads(), {}, "calls of the suites from other threads");
    trial.RequireLines(findingsWith(scene.host, finding::wrongThread), {},
                       "calls of the host from other threads");
}

void QueuedFunctions(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    trial.RequireLines(scene.Escaped(), {}, "what left the queued functions");
}

void SuiteArguments(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    trial.RequireLines(scene.witness.WrongCalls(), {}, "wrong calls of the suites");
}

void SuitesAreReleased(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    scene.host.CheckSuiteBalance();
    trial.RequireLines(findingsWith(scene.host, finding::unbalancedSuite), {}, "suites that are still held");
    trial.RequireLines(findingsWith(scene.host, finding::overReleasedSuite), {},
                       "suites that were released once too often");
}

void WithoutThePanel(Trial& trial)
{
    EffectScene scene(trial.File());
    const std::pair<Withheld, const char*> ways[] = {
        {Withheld::asError, "acquiring gives an error and null"},
        {Withheld::asNullTable, "acquiring gives null without an error"},
        {Withheld::asPoisonedPointer, "acquiring gives an error and leaves the pointer wild"}};
    for (const auto& [how, words] : ways)
    {
        trial.At(words);
        for (const char* const suite : suites)
            scene.host.Faults().Withhold(suite, 0, how);
        KeptBytes kept = scene.Apply();
        trial.Require(scene.AskIdentity(kept) != Identity{}, "the effect answers the zero identity");
        scene.Exercise();
        trial.RequireLines(scene.BadReturns(), {}, "calls that did not return well");
        trial.RequireLines(findingsWith(scene.host, finding::poisonedTable), {},
                           "calls through a wild pointer");
        for (const char* const suite : suites)
            scene.host.Faults().GiveBack(suite);
    }
}
} // namespace standin::check::effects
