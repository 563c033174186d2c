#include "tests/tree/support/HeadlessWindow.h"

namespace
{
class HeadlessPeer : public juce::ComponentPeer
{
public:
    using juce::ComponentPeer::ComponentPeer;

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
} // namespace

namespace standin
{
HeadlessWindow::HeadlessWindow(juce::Component& content) : now(juce::Time::currentTimeMillis())
{
    setSize(content.getWidth(), content.getHeight());
    addAndMakeVisible(content);
    setVisible(true);
    addToDesktop(0);
}

HeadlessWindow::~HeadlessWindow()
{
    hold({});
    if (buttonsHeld.isAnyMouseButtonDown())
        release();
    removeAllChildren();
}

juce::ComponentPeer* HeadlessWindow::createNewPeer(int styleFlags, void*)
{
    return new HeadlessPeer(*this, styleFlags);
}

void HeadlessWindow::hold(juce::ModifierKeys keys)
{
    keysHeld = keys;
    juce::ModifierKeys::currentModifiers = keysHeld.withFlags(buttonsHeld.getRawFlags());
}

void HeadlessWindow::moveTo(juce::Point<int> place)
{
    mouse = place;
    send();
}

void HeadlessWindow::press(juce::Point<int> place, juce::ModifierKeys::Flags button)
{
    moveTo(place);
    buttonsHeld = buttonsHeld.withFlags(button);
    send();
}

void HeadlessWindow::release()
{
    buttonsHeld = {};
    send();
}

void HeadlessWindow::send()
{
    juce::ModifierKeys::currentModifiers = keysHeld.withFlags(buttonsHeld.getRawFlags());
    getPeer()->handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse, mouse.toFloat(),
                                juce::ModifierKeys::currentModifiers, juce::MouseInputSource::defaultPressure,
                                juce::MouseInputSource::defaultOrientation, now);
}
} // namespace standin
