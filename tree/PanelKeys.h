#pragma once
// Keys that arrive at the panel component itself. JUCE sends a key to the component that has its focus, and
// to the panel if none has. On macOS it drops the focus when the window loses its key status, and does not
// restore it afterwards. The keys still belong to the tree, or to the open name field.

#include "tree/TreeKeys.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

class CustomTreeView;

class PanelKeys
{
public:
    PanelKeys(juce::Component& panel, CustomTreeView& tree);

    /// Makes JUCE's focus follow the keyboard: drops it, or restores it to where it was.
    void startEvent(KeyboardOwner);

    /// A key that no component in the panel has used. True if the tree or the name field uses it now.
    bool offer(const juce::KeyPress&);

private:
    void dropFocus();
    void restoreFocus();
    juce::Component& lastFocused();

    juce::Component& panel;
    CustomTreeView& tree;
    std::optional<KeyboardOwner> owner; ///< None if the platform routes the keys itself.
};

/// Offers the key to the component, and then to its parents, until one uses it or `end` is reached.
bool OfferKey(juce::Component& first, const juce::KeyPress&, const juce::Component* end);
