#include "standin/host/faults/IdlePlan.h"

#include <algorithm>

namespace standin
{
void IdlePlan::Clear()
{
    choices.clear();
    functions.clear();
    timesIdled = 0;
}

void IdlePlan::InCall(std::size_t ordinal) { choices.emplace_back(ordinal, CallSpan::once); }

void IdlePlan::InCalls(std::size_t first, std::size_t step, std::size_t last)
{
    for (std::size_t ordinal = first; ordinal <= last; ordinal += step)
        InCall(ordinal);
}

void IdlePlan::InFunction(const std::string& function, std::size_t nth)
{
    choices.emplace_back(function, nth, CallSpan::once);
}

void IdlePlan::InEachCallOf(const std::string& function) { functions.push_back(function); }

bool IdlePlan::IsDue(const CallPoint& call)
{
    bool due = std::find(functions.begin(), functions.end(), call.function) != functions.end();
    for (CallChoice& choice : choices)
        due = choice.Picks(call) || due;
    return due;
}

void IdlePlan::Begin()
{
    isIdling = true;
    ++timesIdled;
}
} // namespace standin
