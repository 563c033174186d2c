#include "tests/tree/support/TreeGuiTest.h"

namespace standin
{
using namespace user;

namespace
{
juce::MouseInputSource mouse() { return juce::Desktop::getInstance().getMainMouseSource(); }

Place placeOf(juce::Point<int> point) { return {point.x, point.y}; }

/// JUCE hears nothing of the mouse over the host's own window.
bool isOverJuce(Place at) { return juce::Desktop::getInstance().findComponentAt({at.x, at.y}) != nullptr; }
} // namespace

bool isButtonDown() { return mouse().isDragging(); }

TreeGuiTest::TreeGuiTest() : User(std::make_unique<Xvfb>(800, 600)), TreeTest(Screen::ofTheEnvironment)
{
    juce::MouseEvent::setDoubleClickTimeout(0);
    betweenClicks = {};
    SetBGColor(panel, 0.19f, 0.19f, 0.19f, 1.0f);
    addToDesktop(panel, nullptr, panelWidth, panelHeight, host.FrameHandle());
    EXPECT_TRUE(pumpUntil([this] { return panel->isShowing(); }));
    Point(host.EmptyPlace());
    pump();
}

TreeGuiTest::~TreeGuiTest()
{
    deleteWidget();
    EXPECT_EQ(host.TakeErrors(), 0);
}

void TreeGuiTest::show(const std::vector<ObjectItem>& items)
{
    RefreshTree(panel, items);
    pump();
}

Place TreeGuiTest::at(const std::string& name, Place fromRow)
{
    pump();
    return inView(row(name).getItemPosition(true).getPosition()) + fromRow;
}

Place TreeGuiTest::inView(juce::Point<int> point) { return placeOf(view().localPointToGlobal(point)); }

Place TreeGuiTest::centreOf(const juce::Component& component)
{
    return placeOf(component.getScreenBounds().getCentre());
}

void TreeGuiTest::pointed(Place at)
{
    const auto hasArrived = [at]
    { return mouse().getScreenPosition().roundToInt() == juce::Point<int>(at.x, at.y); };
    EXPECT_TRUE(!isOverJuce(at) || pumpUntil(hasArrived));
}

void TreeGuiTest::pressed(Place at) { EXPECT_TRUE(!isOverJuce(at) || pumpUntil(isButtonDown)); }

void TreeGuiTest::released()
{
    EXPECT_TRUE(panel == nullptr || !isButtonDown() || pumpUntil([] { return !isButtonDown(); }));
}

void TreeGuiTest::drag(Place from, Place to)
{
    StartDrag(from, to);
    EXPECT_TRUE(panel->isDragAndDropActive());
    Drop();
}

void TreeGuiTest::Drop()
{
    User::Drop();
    EXPECT_TRUE(pumpUntil([this] { return !panel->isDragAndDropActive(); }));
    EXPECT_TRUE(pumpUntil([] { return !juce::Desktop::getInstance().getAnimator().isAnimating(); }));
}

void TreeGuiTest::clickOnHost()
{
    Click(host.EmptyPlace());
    host.HandleEvents();
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}
} // namespace standin
