#pragma once
// The widget in a host's window on a real X server, with a user before it.

#include "standin/user/HostWindow.h"
#include "standin/user/User.h"
#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

namespace standin
{
using user::Place;

/// The user's screen comes before JUCE and goes after it. What the mouse does, JUCE has seen when the call
/// returns; two clicks make a double click where a test sets JUCE's time for it, and nowhere else.
class TreeGuiTest : protected user::User, public TreeTest
{
protected:
    static constexpr int hostX = 60;
    static constexpr int hostY = 40;
    static constexpr int hostWidth = 460;
    static constexpr int hostHeight = 480;
    static constexpr int panelWidth = 400;
    static constexpr int panelHeight = 420;

    TreeGuiTest();
    ~TreeGuiTest() override;

    /// Builds the tree and waits until it is laid out.
    void show(const std::vector<ObjectItem>& items);

    // Places on the screen: so far from the top left of the row or the view.
    Place at(const std::string& name, Place fromRow);
    Place boxOf(const std::string& name) { return at(name, {6, 10}); }
    Place textOf(const std::string& name) { return at(name, {20, 10}); }
    Place openBoxOf(const std::string& name) { return at(name, {-10, 10}); }
    Place inView(juce::Point<int>);
    static Place centreOf(const juce::Component&);

    void Idle() override { pump(); }
    user::Area PanelArea() const override { return {hostX, hostY, panelWidth, panelHeight}; }

    /// Drags a row from one place to the other. It fails if JUCE takes it for no drag.
    void drag(Place from, Place to);
    /// Also waits until JUCE takes another drag, and until the picture of the dragged row has faded. It does
    /// so in a window of its own, and the server would give that window a press that is meant for the row
    /// below it.
    void Drop();
    /// A click into the window around the panel, which takes the focus for it.
    void clickOnHost();
    bool hasFocus() { return panel->hasKeyboardFocus(true); }

    user::HostWindow host{{{hostX, hostY, hostWidth, hostHeight}, {0, 0, panelWidth, panelHeight}}};

private:
    void pointed(Place) override;
    void pressed(Place) override;
    void released() override;
};

bool isButtonDown();
} // namespace standin
