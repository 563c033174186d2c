#include "tests/tree/support/HeadlessWindow.h"

#include "tests/tree/support/HeadlessPeer.h"

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
