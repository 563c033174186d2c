#include "tree/PanelKeys.h"

#include "tree/CustomTreeView.h"

PanelKeys::PanelKeys(juce::Component& wholePanel, CustomTreeView& treeInIt)
    : panel(wholePanel), tree(treeInIt)
{
}

void PanelKeys::startEvent(KeyboardOwner newOwner)
{
    owner = newOwner;
    tree.keyDeliveries.startEvent();
    if (newOwner == KeyboardOwner::panel)
        restoreFocus();
    else
        dropFocus();
}

bool PanelKeys::offer(const juce::KeyPress& key)
{
    if (owner == KeyboardOwner::host)
        return false;
    if (!tree.hasKeyboardFocus(true))
        return OfferKey(lastFocused(), key, &panel);
    // JUCE uses an unused Tab itself, to move its focus, unless nothing has the focus.
    if (owner.has_value() && key.isKeyCode(juce::KeyPress::tabKey))
        dropFocus();
    return false;
}

// This and its counterpart change JUCE's own state alone. Which view the window sends keys to is up to the
// host.
void PanelKeys::dropFocus()
{
    if (panel.hasKeyboardFocus(true))
        if (auto* peer = panel.getPeer())
            peer->handleFocusLoss();
}

void PanelKeys::restoreFocus()
{
    auto* peer = panel.getPeer();
    if (peer == nullptr || juce::Component::getCurrentlyFocusedComponent() != nullptr ||
        panel.isCurrentlyBlockedByAnotherModalComponent())
        return;
    auto* last = peer->getLastFocusedSubcomponent();
    if (last != &tree && last != tree.renameEditor.get())
        return;
    // The name field selects all of its text when it gets the focus. The user goes on where he was.
    const auto marked = tree.renameEditor->getHighlightedRegion();
    peer->handleFocusGain();
    if (last != &tree)
        tree.renameEditor->setHighlightedRegion(marked);
}

juce::Component& PanelKeys::lastFocused()
{
    auto* peer = panel.getPeer();
    auto* last = peer != nullptr ? peer->getLastFocusedSubcomponent() : nullptr;
    if (last == tree.renameEditor.get())
        return *tree.renameEditor;
    return tree;
}

bool OfferKey(juce::Component& first, const juce::KeyPress& key, const juce::Component* end)
{
    juce::Component::SafePointer<juce::Component> target(&first);
    while (target != nullptr && target.getComponent() != end)
    {
        if (target->keyPressed(key) || target == nullptr)
            return true;
        target = target->getParentComponent();
    }
    return false;
}
