#include "tree/Keyboard.h"

DragFocus::DragFocus(juce::Component& target) : component(target) {}

DragFocus::~DragFocus()
{
    if (isWaiting)
        juce::Desktop::getInstance().removeGlobalMouseListener(this);
}

void DragFocus::dragStarted()
{
    if (!isWaiting)
        juce::Desktop::getInstance().addGlobalMouseListener(this);
    isWaiting = true;
}

// The drop itself comes first.
void DragFocus::mouseUp(const juce::MouseEvent&) { triggerAsyncUpdate(); }

void DragFocus::handleAsyncUpdate() { dragEnded(); }

void DragFocus::dragEnded()
{
    if (!isWaiting)
        return;
    isWaiting = false;
    juce::Desktop::getInstance().removeGlobalMouseListener(this);
    if (component.isShowing())
        component.grabKeyboardFocus();
}

void ClickFocus::gained(juce::Component& component, juce::Component::FocusChangeType cause)
{
    if (cause == juce::Component::focusChangedByMouseClick)
        clicked = &component;
    else if (clicked != nullptr && clicked != &component && clicked->isShowing())
        clicked->grabKeyboardFocus();
}

void ClickFocus::lost(juce::Component& component)
{
    if (clicked == &component)
        clicked = nullptr;
}
