#pragma once
// Random walks: steps drawn from a seed, carried out on the screen, and after each the host, the panel and
// the model held against each other. A walk that fails is made as short as it can be made in the time.

#include "standin/check/WalkStep.h"

#include <chrono>
#include <string>

namespace standin::check
{
struct WalkPlan
{
    std::string bundleFile;
    WalkKind kind = WalkKind::mixed;
    unsigned seed = 1;
    int steps = 20;
    /// What it may take, the shortening of a failure included, and what the shortening alone may take.
    std::chrono::seconds limit{60};
    std::chrono::seconds shortening{20};
};

struct WalkOutcome
{
    int stepsDone = 0;   ///< After each of them all was compared.
    std::string failure; ///< Empty if all went well. Else with the seed and the lines that lead to it.
};

/// Walks in a process of its own, with an X server of its own.
WalkOutcome TakeWalk(const WalkPlan& plan);

/// The steps of a seed. The model alone decides what is possible, so they need no host.
std::vector<WalkStep> DrawWalk(WalkKind kind, unsigned seed, int count);

/// Those of the steps that are possible one after the other from the beginning.
std::vector<WalkStep> PossibleSteps(const std::vector<WalkStep>& steps, WalkKind kind = WalkKind::mixed);
} // namespace standin::check
