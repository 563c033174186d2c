#pragma once
// The desktop's top-level window.

#include "standin/desktop/views/MainView.h"

namespace standin::desktop
{
class DesktopWindow : public juce::DocumentWindow
{
public:
    DesktopWindow(Workbench& bench, X11Containers& containers, juce::Rectangle<int> bounds);

    MainView& View() { return view; }
    void closeButtonPressed() override { juce::JUCEApplicationBase::quit(); }
    /// Keys that reach the window while nothing in it has the focus: the panel hands on what it does not use.
    bool keyPressed(const juce::KeyPress& key) override { return view.keyPressed(key); }
    /// JUCE hands the keyboard to the window itself when the last who had it is gone.
    void focusGained(FocusChangeType) override { view.grabKeyboardFocus(); }

private:
    MainView view;
};
} // namespace standin::desktop
