#include "tests/tree/support/TreeGuiTest.h"

namespace
{
constexpr int dragSteps = 6;

juce::Point<int> mousePosition()
{
    return juce::Desktop::getInstance().getMainMouseSource().getScreenPosition().roundToInt();
}
} // namespace

namespace standin
{
using namespace user;

bool isButtonDown() { return juce::Desktop::getInstance().getMainMouseSource().isDragging(); }

TreeGuiTest::TreeGuiTest() : User(std::make_unique<Xvfb>(800, 600)), TreeTest(Screen::ofTheEnvironment)
{
    // Two clicks in a row are two clicks, unless a test wants a double click.
    juce::MouseEvent::setDoubleClickTimeout(0);
    SetBGColor(panel, 0.19f, 0.19f, 0.19f, 1.0f);
    addToDesktop(panel, nullptr, panelWidth, panelHeight, host.FrameHandle());
    EXPECT_TRUE(pumpUntil([this] { return panel->isShowing(); }));
    User::Point(host.EmptyPlace());
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

TreeGuiTest::Point TreeGuiTest::at(const std::string& name, Point fromRow)
{
    pump();
    return view().localPointToGlobal(row(name).getItemPosition(true).getPosition() + fromRow);
}

void TreeGuiTest::moveTo(Point to)
{
    hands.move(to.x, to.y);
    EXPECT_TRUE(pumpUntil([to] { return mousePosition() == to; })) << to.toString();
}

void TreeGuiTest::pressAt(Point place, unsigned button)
{
    moveTo(place);
    hands.press(button);
    EXPECT_TRUE(pumpUntil(isButtonDown));
}

void TreeGuiTest::releaseButton(unsigned button)
{
    hands.release(button);
    EXPECT_TRUE(pumpUntil([] { return !isButtonDown(); }));
}

void TreeGuiTest::click(Point place, unsigned button)
{
    pressAt(place, button);
    releaseButton(button);
}

void TreeGuiTest::clickHolding(const std::string& modifierKey, Point place)
{
    hands.keyDown(modifierKey);
    click(place);
    hands.keyUp(modifierKey);
}

void TreeGuiTest::startDrag(Point from, Point to)
{
    pressAt(from);
    for (int step = 1; step <= dragSteps; ++step)
        moveTo(from + (to - from) * step / dragSteps);
}

void TreeGuiTest::endDrag()
{
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !panel->isDragAndDropActive(); }));
    // The picture of the dragged row fades in a window of its own, and the server gives that window a press
    // that is meant for the row below it.
    EXPECT_TRUE(pumpUntil([] { return !juce::Desktop::getInstance().getAnimator().isAnimating(); }));
}

void TreeGuiTest::drag(Point from, Point to)
{
    startDrag(from, to);
    EXPECT_TRUE(panel->isDragAndDropActive());
    endDrag();
}

void TreeGuiTest::clickOnHost()
{
    Click(host.EmptyPlace());
    host.HandleEvents();
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}

void TreeGuiTest::keyHolding(const std::string& modifierKey, const std::string& name)
{
    hands.keyDown(modifierKey);
    hands.key(name);
    hands.keyUp(modifierKey);
}
} // namespace standin
