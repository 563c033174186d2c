#include "standin/check/Trial.h"
#include "standin/check/Walk.h"

namespace standin::check::bundles
{
namespace
{
/// A walk and the shortening of a failure stay inside a slow check's three minutes.
constexpr std::chrono::seconds limit{120};

void walk(Trial& trial, WalkKind kind, int steps)
{
    trial.At("the walk of this seed");
    const WalkOutcome outcome =
        TakeWalk({trial.File(), kind, static_cast<unsigned>(trial.Seed()), steps, limit});
    if (!outcome.failure.empty())
        trial.Fail(outcome.failure);
    trial.RequireEqual(outcome.stepsDone, steps, "the number of steps that were compared");
}
} // namespace

void WalkInHost(Trial& trial) { walk(trial, WalkKind::host, 60); }

void WalkInPanel(Trial& trial) { walk(trial, WalkKind::panel, 20); }

void WalkInBoth(Trial& trial) { walk(trial, WalkKind::mixed, 30); }
} // namespace standin::check::bundles
