#pragma once
// Carries the steps of a walk out without a screen, and holds the product against the model after each.

#include "standin/check/WalkStep.h"
#include "tests/walks/LoopSession.h"

#include <string>
#include <vector>

namespace standin::check
{
class LoopWalker
{
public:
    /// Opens the panel. Throws std::runtime_error if that already differs.
    LoopWalker();

    /// What disagrees after the step, in words; empty if nothing does.
    std::string Take(const WalkStep& step);
    /// Ends the host; what is found then.
    std::string End();
    /// Calls that were made to fail.
    int Faults() const { return faults; }

private:
    std::string takeWithFault(const WalkStep& step);
    std::string recover();
    void doLines(const std::vector<std::string>& lines);
    std::string compare();
    std::string compareFindings();
    std::string compareStacks();
    std::string compareHistory();
    std::string compareCalls();
    std::string compareRows();
    std::string compareHidden();
    std::string comparePrinted();

    WalkState state = WalkBegin(WalkKind::loop);
    LoopSession session{state.model};
    int faults = 0;
};
} // namespace standin::check
