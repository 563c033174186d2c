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

private:
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
};
} // namespace standin::check
