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
bool isButtonDown() { return juce::Desktop::getInstance().getMainMouseSource().isDragging(); }

TestScreen::TestScreen() : server(800, 600) {}

TreeGuiTest::TreeGuiTest() : TreeTest(Screen::ofTheEnvironment), host(hostX, hostY, hostWidth, hostHeight)
{
    // Two clicks in a row are two clicks, unless a test wants a double click.
    juce::MouseEvent::setDoubleClickTimeout(0);
    SetBGColor(panel, 0.19f, 0.19f, 0.19f, 1.0f);
    addToDesktop(panel, nullptr, panelWidth, panelHeight, host.handle());
    EXPECT_TRUE(pumpUntil([this] { return panel->isShowing(); }));
    input.move(hostX + panelWidth + 30, hostY + 10);
    pump();
}

TreeGuiTest::~TreeGuiTest() { deleteWidget(); }

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
    input.move(to.x, to.y);
    EXPECT_TRUE(pumpUntil([to] { return mousePosition() == to; })) << to.toString();
}

void TreeGuiTest::pressAt(Point place, unsigned button)
{
    moveTo(place);
    input.press(button);
    EXPECT_TRUE(pumpUntil(isButtonDown));
}

void TreeGuiTest::releaseButton(unsigned button)
{
    input.release(button);
    EXPECT_TRUE(pumpUntil([] { return !isButtonDown(); }));
}

void TreeGuiTest::click(Point place, unsigned button)
{
    pressAt(place, button);
    releaseButton(button);
}

void TreeGuiTest::clickHolding(const std::string& modifierKey, Point place)
{
    input.keyDown(modifierKey);
    click(place);
    input.keyUp(modifierKey);
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
    input.move(hostX + panelWidth + 30, hostY + 10);
    input.press();
    input.release();
    EXPECT_EQ(host.takeFocusOnPresses(), 1);
}

void TreeGuiTest::keyHolding(const std::string& modifierKey, const std::string& name)
{
    input.keyDown(modifierKey);
    input.key(name);
    input.keyUp(modifierKey);
}
} // namespace standin
