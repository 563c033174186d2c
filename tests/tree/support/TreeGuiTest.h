#pragma once
// The widget in a host's window on a real X server, with a user's hands on mouse and keyboard.

#include "standin/user/HostWindow.h"
#include "standin/user/User.h"
#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

namespace standin
{
/// The user's screen comes before JUCE and goes after it.
class TreeGuiTest : protected user::User, public TreeTest
{
protected:
    static constexpr int hostX = 60;
    static constexpr int hostY = 40;
    static constexpr int hostWidth = 460;
    static constexpr int hostHeight = 480;
    static constexpr int panelWidth = 400;
    static constexpr int panelHeight = 420;

    using Point = juce::Point<int>;

    TreeGuiTest();
    ~TreeGuiTest() override;

    /// Builds the tree and waits until it is laid out.
    void show(const std::vector<ObjectItem>& items);

    /// A place on the screen, so far from the top left of the row.
    Point at(const std::string& name, Point fromRow);
    Point boxOf(const std::string& name) { return at(name, {6, 10}); }
    Point textOf(const std::string& name) { return at(name, {20, 10}); }
    Point openBoxOf(const std::string& name) { return at(name, {-10, 10}); }
    Point centreOf(juce::Component& component) { return component.getScreenBounds().getCentre(); }

    void Idle() override { pump(); }
    user::Area PanelArea() const override { return {hostX, hostY, panelWidth, panelHeight}; }

    /// Each waits until JUCE has seen it.
    void moveTo(Point);
    void pressAt(Point, unsigned button = 1);
    void releaseButton(unsigned button = 1);
    void click(Point, unsigned button = 1);
    void clickHolding(const std::string& modifierKey, Point);
    void drag(Point from, Point to);
    void startDrag(Point from, Point to);
    void endDrag();

    /// A click into the window around the panel, which takes the focus for it.
    void clickOnHost();

    void key(const std::string& name) { hands.key(name); }
    void keyHolding(const std::string& modifierKey, const std::string& name);
    bool hasFocus() { return panel->hasKeyboardFocus(true); }

    user::HostWindow host{{{hostX, hostY, hostWidth, hostHeight}, {0, 0, panelWidth, panelHeight}}};
};

bool isButtonDown();
} // namespace standin
