#pragma once
// The widget in a window on no screen, with a user's hands on its mouse: the hands of PressTable.

#include "tests/tree/support/HeadlessWindow.h"
#include "tests/tree/support/PressTable.h"

#include <memory>

namespace standin
{
class HeadlessHands : public TreeTest
{
protected:
    HeadlessHands() { openWindow(); }
    ~HeadlessHands() override { deleteWidget(); }

    void show(const std::vector<ObjectItem>& items)
    {
        RefreshTree(panel, items);
        pump();
    }

    void press(juce::Point<int> inView,
               juce::ModifierKeys::Flags button = juce::ModifierKeys::leftButtonModifier)
    {
        window->wait(10);
        window->press(window->getLocalPoint(&view(), inView), button);
    }

    void moveTo(juce::Point<int> inView) { window->moveTo(window->getLocalPoint(&view(), inView)); }

    void letGo()
    {
        window->wait(10);
        window->release();
    }

    void holdKey(Key key)
    {
        static const int flags[] = {0, juce::ModifierKeys::commandModifier,
                                    juce::ModifierKeys::shiftModifier};
        window->hold(juce::ModifierKeys(flags[static_cast<int>(key)]));
    }

    void passTime() { window->wait(5000); }

    void makeWidget()
    {
        window.reset();
        panel = CreateTreeWidget(false);
        openWindow();
    }

    std::unique_ptr<HeadlessWindow> window;

private:
    void openWindow()
    {
        panel->setSize(400, 420);
        window = std::make_unique<HeadlessWindow>(*panel);
    }
};
} // namespace standin
