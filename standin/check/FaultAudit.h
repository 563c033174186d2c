#pragma once
// What a pass may and may not do when one of its host calls fails. The findings that it may cause are those
// that the bundle keeps on purpose, each in its situation and nowhere else.

#include "standin/check/ProjectVerdict.h"
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
    ComparedProject project;
    FailedCall how;             ///< What the calls did that were struck.
    bool isOutOfMemory = false; ///< An allocation of the bundle's has failed instead.
};

/// What an audit has seen, so that a sweep can tell that it met what it is there for.
struct FaultTally
{
    int runs = 0;
    int struck = 0;
    int left = 0;                            ///< Undo groups that stayed open where that is kept.
    std::map<const Allowance*, int> allowed; ///< Which rows of the table the projects have needed.
};

/// Fails the trial if the run is not as it should be.
void AuditFaultyRun(Trial& trial, const FaultyRun& run, FaultTally& tally);
/// The part of it that looks at the project alone, for a later look: what the passes after the fault have
/// made of it.
void AuditProject(Trial& trial, const FaultyRun& run, FaultTally& tally);
} // namespace standin::check
