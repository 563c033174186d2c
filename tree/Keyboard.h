#pragma once
// Who has the keyboard, and getting it back for the panel where the windows of a menu or of a drag, which
// are windows of their own, take it along when they go.

#include <juce_gui_basics/juce_gui_basics.h>

/// Gives the keyboard back to a component at the end of a drag: at the moment of the release, when the
/// user cannot have turned to anything else yet.
class DragFocus : private juce::MouseListener, private juce::AsyncUpdater
{
public:
    explicit DragFocus(juce::Component& target);
    ~DragFocus() override;

    void dragStarted();

    /// The picture of what was dragged has gone, at a drop some time after the release.
    void dragEnded();

private:
    void mouseUp(const juce::MouseEvent&) override;
    void handleAsyncUpdate() override;

    juce::Component& component;
    bool isWaiting = false;
};

/// Sees to it that a click gives the focus to what it hits. When a click brings the keyboard from another
/// window, JUCE first focuses what was clicked, and then, with the message from the X server, what had the
/// focus before.
class ClickFocus
{
public:
    void gained(juce::Component&, juce::Component::FocusChangeType);
    void lost(juce::Component&);

private:
    juce::Component::SafePointer<juce::Component> clicked;
};
