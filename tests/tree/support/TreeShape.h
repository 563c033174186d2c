#pragma once
// The rows of a tree as text, and by name.

#include "tree/ValueTreeItem.h"

#include <string>

namespace standin
{
/// "Layer(Group 1(a b) c)"; a selected row carries a "*", a closed one with nodes below it a "+". Empty for a
/// tree without a root.
std::string ShapeOf(const juce::TreeView& view);

std::string NameOf(const ValueTreeItem& row);

/// The first row of that name from the top; null if there is none.
ValueTreeItem* FindRow(const juce::TreeView& view, const std::string& name);
} // namespace standin
