#include "tree/Keyboard.h"

#if JUCE_LINUX
#include <X11/Xlib.h>

namespace
{
bool isWindowOfOurs(Window window)
{
    for (int i = 0; i < juce::ComponentPeer::getNumPeers(); ++i)
        if (reinterpret_cast<Window>(juce::ComponentPeer::getPeer(i)->getNativeHandle()) == window)
            return true;
    return false;
}
} // namespace

// What JUCE knows is what has been delivered so far; the X server knows better.
bool IsKeyboardElsewhere()
{
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return false;
    Window focused = None;
    int revertTo = 0;
    (void)XGetInputFocus(display, &focused, &revertTo);
    const bool isNobodys = focused == None || focused == PointerRoot || focused == DefaultRootWindow(display);
    (void)XCloseDisplay(display);
    return !isNobodys && !isWindowOfOurs(focused);
}
#else
bool IsKeyboardElsewhere() { return !juce::Process::isForegroundProcess(); }
#endif

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
