#pragma once
// One run of a scenario with one fault, and the verdict on it.

#include "standin/host/faults/FaultKinds.h"
#include "tests/sweep/SweptWork.h"

#include <string>
#include <vector>

namespace standin
{
/// What a scenario does on a sound host.
struct SoundRun
{
    std::vector<CallRecord> calls;
    std::vector<std::string> texts; ///< Of the calls.
    check::SeenProject after;
    std::vector<Finding> findings; ///< Done on purpose, and reported nevertheless.
    std::string violation;         ///< Empty if it is fit for a sweep.
};

struct FaultVerdict
{
    bool wasMet = false;
    std::string violation; ///< Empty if all that came of the fault is explained.
    std::string outcome;   ///< "the project is as it was"
};

SoundRun RunSoundly(const SweptScenario& scenario);

/// `ordinal` counts the calls of the scenario from 1. Notes in `tally` what the verdict needed.
FaultVerdict RunWithFault(const SweptScenario& scenario, const FaultKind& kind, std::size_t ordinal,
                          const SoundRun& sound, check::FaultTally& tally);
} // namespace standin
