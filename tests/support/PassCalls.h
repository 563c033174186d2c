#pragma once
// The calls of the idle pass that tests/support/HostCalls.h does not have: the panel's own, and the fake
// tree's. For the plug-in with the id 8 on layer 1 of item 101.

#include "tests/support/HostCalls.h"

namespace standin
{
/// The beginning of every pass: the panel is up, item 101 is active and layer 1 is its active layer.
Calls PassHead();
/// The question for adds and deletes that has an empty answer.
Calls NoAddsAndDeletes();

/// The rebuild of the tree after the second reading.
Calls TreeRebuild(const std::string& names);
/// The tree's part of a pass in which nothing has moved.
Calls QuietTree();

/// The effect at `index` is renamed.
Calls RenameChange(const TracedStack& stack, int index, const std::string& name);
/// The order is written, with each effect in its place already.
Calls ReorderInPlace(const TracedStack& stack, const std::string& undoName);
/// The selection goes to the layer; `selected` are the indices of selected effects, from the bottom up,
/// all the others are hidden.
Calls SelectionPush(const TracedStack& stack, const std::vector<int>& selected);
} // namespace standin
