#pragma once
// What watches a host's calls, makes them fail and reports misuse.

#include <string>
#include <vector>

#include "standin/host/faults/FaultPlan.h"
#include "standin/host/faults/IdlePlan.h"
#include "standin/host/sensors/CallTrace.h"
#include "standin/host/sensors/FindingLog.h"
#include "standin/host/sensors/ReferenceRegistry.h"
#include "standin/host/sensors/SuiteCounts.h"

namespace standin
{
/// A call that is running.
struct RunningCall
{
    std::size_t ordinal = 0;
    std::string function;
    std::string head;
};

/// Which hook runs, as far as it matters.
enum class HookKind
{
    ordinary,
    entryPoint,
    death
};

struct Sensors
{
    explicit Sensors(std::size_t traceLimit) : trace(traceLimit) {}

    ReferenceRegistry references;
    SuiteCounts suites;
    CallTrace trace;
    FaultPlan faults;
    IdlePlan idles;
    FindingLog findings;
    std::vector<RunningCall> running;
    int hookDepth = 0;
    HookKind hookKind = HookKind::ordinary;
    int leakedReferences = 0; ///< Leaked by hooks, in total.

    /// Adds a finding for the innermost running call.
    void Report(const char* id, const std::string& sentence);
};
} // namespace standin
