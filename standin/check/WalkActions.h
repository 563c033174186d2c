#pragma once
// What can be done in a step of a walk. Each action is one row: when it can be drawn, how often, how a
// scenario says it, and what it does to the model.

#include "standin/check/WalkStep.h"

namespace standin::check
{
struct WalkAction
{
    enum class Place
    {
        host,
        panel
    };
    /// What is drawn for the step's text.
    enum class Text
    {
        groupTitle,
        newName,
        oddName, ///< With anything in it that a name can have. Not all of it can be typed.
        applicable
    };
    using Lines = std::vector<std::string>;

    const char* name;
    Place place;
    Text text;
    bool isPossibleWhileHeld; ///< Without the host's idle.
    int shares[4];            ///< How often it is in the hat, for each WalkKind.
    bool (*isPossible)(const WalkState& state, const WalkStep& step);
    /// As lines of a scenario, in the state before it.
    Lines (*lines)(const WalkState& state, const WalkStep& step);
    void (*carryOut)(WalkState& state, const WalkStep& step);
};

const std::vector<WalkAction>& WalkActions();
/// Throws std::out_of_range for a name that no row has.
const WalkAction& WalkActionOf(const std::string& name);
} // namespace standin::check
