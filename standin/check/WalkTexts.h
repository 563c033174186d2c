#pragma once
// What the walkers compare, in words: the model on one side, the host on the other.

#include "standin/check/StackModel.h"

#include <string>
#include <vector>

namespace standin
{
class Host;
}

namespace standin::check
{
/// Both, if they differ; empty if not.
std::string Difference(const std::string& what, const std::vector<std::string>& wanted,
                       const std::vector<std::string>& found);
/// Of the first layer whose stack is not the model's.
std::string StackDifference(const StackModel& model, Host& host, const std::vector<int>& layerIds);
/// The functions among the calls that change a project, in their order. What hides and shows is none of them:
/// it follows the selection, and has undo groups of its own, which leave nothing.
std::vector<std::string> WritesAmong(const std::vector<std::string>& calls);
} // namespace standin::check
