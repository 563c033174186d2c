#pragma once
// The document behind the panel: a juce::ValueTree of a root "Layer", its "Group" nodes, and "Object" and
// "External" nodes. It is the only place where the user's edits live between two idle passes.
// Every change to it passes a null undo manager: undo belongs to the host.

#include "effects/ObjectItem.h"

#include <juce_data_structures/juce_data_structures.h>

#include <string>
#include <vector>

namespace TreeIds
{
// Node types.
extern const juce::Identifier Layer;
extern const juce::Identifier Group;
extern const juce::Identifier Object;
extern const juce::Identifier External;

// Properties.
extern const juce::Identifier name;   ///< Text, in the form that TextFromBytes makes.
extern const juce::Identifier select; ///< 0 or 1: the row is selected.
extern const juce::Identifier uuid;   ///< Text. ZERO_UUID_TEXT for what the panel does not own.
extern const juce::Identifier group;  ///< A group's own number, or the group that an object belongs to.
extern const juce::Identifier active; ///< 0 or 1, on objects.
extern const juce::Identifier rigid;  ///< Present on an object that takes no part in grouping.
} // namespace TreeIds

/// A group's number is its whole identity, and there are no others than these.
constexpr int GROUP_NUMBERS[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

/// Appends the objects of the node and of everything below it, in display order.
void getTreeItems(const juce::ValueTree& node, std::vector<ObjectItem>& out);

/// The node's uuid, ZERO_UUID_TEXT if it has none.
std::string nodeUuid(const juce::ValueTree& node);
