#pragma once
// JUCE's side of a window that is on no screen.

#include <juce_gui_basics/juce_gui_basics.h>

namespace standin
{
/// JUCE 8 asks a peer whether it shows; JUCE 7 has no such function.
class ShowingPeer : public juce::ComponentPeer
{
public:
    using juce::ComponentPeer::ComponentPeer;

    virtual bool isShowing() const { return true; }
};

class HeadlessPeer : public ShowingPeer
{
public:
    using ShowingPeer::ShowingPeer;

    void setBounds(const juce::Rectangle<int>& newBounds, bool) override { bounds = newBounds; }
    juce::Rectangle<int> getBounds() const override { return bounds; }
    juce::Point<float> localToGlobal(juce::Point<float> position) override { return position; }
    juce::Point<float> globalToLocal(juce::Point<float> position) override { return position; }
    bool contains(juce::Point<int> position, bool) const override
    {
        return bounds.withZeroOrigin().contains(position);
    }
    bool isFocused() const override { return true; }

    void* getNativeHandle() const override { return nullptr; }
    void setVisible(bool) override {}
    void setTitle(const juce::String&) override {}
    void setMinimised(bool) override {}
    bool isMinimised() const override { return false; }
    void setFullScreen(bool) override {}
    bool isFullScreen() const override { return false; }
    void setIcon(const juce::Image&) override {}
    OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }
    juce::BorderSize<int> getFrameSize() const override { return {}; }
    bool setAlwaysOnTop(bool) override { return false; }
    void toFront(bool) override {}
    void toBehind(juce::ComponentPeer*) override {}
    void grabFocus() override {}
    void repaint(const juce::Rectangle<int>&) override {}
    void performAnyPendingRepaintsNow() override {}
    void setAlpha(float) override {}
    juce::StringArray getAvailableRenderingEngines() override { return {}; }

private:
    void textInputRequired(juce::Point<int>, juce::TextInputTarget&) override {}

    juce::Rectangle<int> bounds;
};
} // namespace standin
