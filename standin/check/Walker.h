#pragma once
// Carries the steps of a walk out on the screen and compares.

#include "standin/check/WalkStep.h"
#include "standin/script/Stage.h"

namespace standin::check
{
class Walker
{
public:
    /// Makes the scene, with an X server of its own. Throws what Session throws.
    explicit Walker(const std::string& bundleFile);

    /// What disagrees after the step, in words; empty if nothing does.
    std::string Take(const WalkStep& step);
    /// Ends the host; what is found then.
    std::string End();

private:
    void carryOut(const std::string& line);
    std::string compare();
    std::string compareStacks();
    std::string compareHistory();
    std::string compareRows();
    std::string compareWrites();
    std::string compareSensors();

    script::Stage stage;
    WalkState state = WalkBegin();
    std::vector<int> layerIds;
};
} // namespace standin::check
