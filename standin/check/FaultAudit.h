#pragma once
// What a pass may and may not do when one of its host calls fails. The findings that it may cause are those
// that the bundle keeps on purpose, each in its situation and nowhere else.

#include "standin/check/Trial.h"
#include "standin/host/core/Host.h"

#include <vector>

namespace standin::check
{
/// What happened while a fault was armed.
struct FaultyRun
{
    std::vector<CallRecord> calls;
    std::vector<Finding> findings;
    std::vector<HookResult> results; ///< Of the passes.
};

/// What an audit has seen, so that a sweep can tell that it met what it is there for.
struct FaultTally
{
    int runs = 0;
    int struck = 0;
    int left = 0; ///< Undo groups that stayed open where that is kept.
};

/// Fails the trial if the run is not as it should be.
void AuditFaultyRun(Trial& trial, const FaultyRun& run, FaultTally& tally);
} // namespace standin::check
