#pragma once
// The orders in which a layer's effects can stand after a change that a fault has struck, worked out from
// what the change does step by step. Effects go by their ids.

#include <map>
#include <set>
#include <vector>

namespace standin::check
{
using StackOrder = std::vector<int>;

/// The effects of `wanted` are moved to their places one after the other, and one step of that goes wrong, or
/// every step from one on: an effect is missing from the list, or is not recognised on the layer, or the move
/// is refused. What stands in `stack` alone is recognised by nobody. Passes that follow write the order that
/// they find.
std::set<StackOrder> OrdersOfFaultyReorder(const StackOrder& stack, const StackOrder& wanted);

/// Those of `doomed` that are found are moved to the top, until a move fails; then some are deleted. The
/// orders are those before the deletion. `wanted` is what is left in the panel: where an effect was not
/// deleted, its order is written as well.
std::set<StackOrder> OrdersOfFaultyDeletion(const StackOrder& stack, const std::set<int>& doomed,
                                            const StackOrder& wanted);

/// What the next pass makes of an order: the objects as their rows stand, those of a group together, and
/// below them what has no row of its own. `groups` holds the number of each object.
StackOrder OrderOfRows(const StackOrder& stack, const std::map<int, int>& groups);
} // namespace standin::check
