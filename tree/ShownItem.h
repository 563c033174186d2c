#pragma once
// What a row shows, known again in a tree that has been built anew: an object by its identity, a group by its
// number, an outside effect, which has neither, by its name and place among those of that name.

#include "tree/ValueTreeItem.h"

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

class ShownItem
{
public:
    explicit ShownItem(const ValueTreeItem&);

    /// The row that shows the item now; null if none does, as under a closed group.
    ValueTreeItem* findRow(const juce::TreeView&) const;

    /// Whether the view shows the very document that the item was seen in, and the item still stands there.
    bool isInDocumentOf(const juce::TreeView&) const;

    bool operator==(const ShownItem&) const;

private:
    juce::ValueTree nodeIn(const juce::ValueTree& document) const;

    juce::ValueTree node;
    juce::var key;
    int place; ///< among the nodes that share type and key, from the top
    int count; ///< of those nodes
};
