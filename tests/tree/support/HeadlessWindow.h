#pragma once
// A window on no screen, and a mouse over it: the events take JUCE's way from a window to a component, at
// times of the test's choosing.

#include <juce_gui_basics/juce_gui_basics.h>

namespace standin
{
class HeadlessWindow : public juce::Component
{
public:
    /// Holds the component, in its size. It may go before the window.
    explicit HeadlessWindow(juce::Component& content);
    ~HeadlessWindow() override;

    juce::ComponentPeer* createNewPeer(int styleFlags, void* parent) override;

    /// The modifiers that are held from now on.
    void hold(juce::ModifierKeys keys);

    // The mouse, in pixels of the window.
    void moveTo(juce::Point<int>);
    void press(juce::Point<int>, juce::ModifierKeys::Flags button = juce::ModifierKeys::leftButtonModifier);
    void release();

    /// Time passes, and nothing else.
    void wait(int milliseconds) { now += milliseconds; }

private:
    void send();

    juce::ModifierKeys keysHeld;
    juce::ModifierKeys buttonsHeld;
    juce::Point<int> mouse;
    juce::int64 now;
};
} // namespace standin
