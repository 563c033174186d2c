#pragma once
// One host call fails in the passes after a step of a walk. What may come of it is what the sweep of faults
// allows; afterwards the project is put to where it would be without the fault.

#include "standin/check/FaultAudit.h"
#include "tests/walks/LoopSession.h"

#include <string>

namespace standin::check
{
class LoopFault
{
public:
    /// `before` is the model before the passes, and `wanted` the one after them. The session agrees with
    /// `before`.
    LoopFault(LoopSession& theSession, const StackModel& before, const StackModel& wanted);

    /// The passes, with a fault that is armed already. False if no call has met it.
    bool Pass(int passes);
    /// Throws CheckFailure if what came of the fault is not allowed, or if panel and layer do not come
    /// together after it.
    void Judge(bool isEmptyOrderWanted);
    /// Puts the project to where it should be, with no history.
    void PutRight();

private:
    SeenProject seeAs(const ProjectState& state);
    ProjectState targetOf(const StackModel& before, const StackModel& wanted);
    EffectInstance fresh(int layer, const ModelEffect& effect);
    void bringTogether(Trial& trial);
    void requireUndoBringsItBack(Trial& trial);

    LoopSession& session;
    Host& host;
    ProjectState target;
    SeenProject wantedAfterRefresh; ///< A refresh selects by name, which can be another row's as well.
    std::size_t stepsBefore;
    FaultyRun run;
};
} // namespace standin::check
