#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>

using namespace standin;

namespace
{
class Embedding : public TreeGuiTest
{
protected:
    static Window parentOf(Window window)
    {
        Display* display = XOpenDisplay(nullptr);
        Window root = 0;
        Window parent = 0;
        Window* children = nullptr;
        unsigned count = 0;
        EXPECT_NE(XQueryTree(display, window, &root, &parent, &children, &count), 0);
        if (children != nullptr)
            (void)XFree(children);
        (void)XCloseDisplay(display);
        return parent;
    }

    Window windowOf(ValueTreesDemo& widget)
    {
        return reinterpret_cast<Window>(widget.getPeer()->getNativeHandle());
    }
};
} // namespace

TEST_F(Embedding, PutsTheWidgetIntoTheHostsWindow)
{
    EXPECT_EQ(parentOf(windowOf(*panel)), host.Frame());
    EXPECT_EQ(panel->getBounds(), juce::Rectangle<int>(0, 0, panelWidth, panelHeight));
    EXPECT_EQ(panel->getScreenPosition(), juce::Point<int>(hostX, hostY));
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(Embedding, AsksForAWindowWithoutAnyStyle)
{
    // JUCE adds by itself that a component may be seen through.
    EXPECT_EQ(panel->getPeer()->getStyleFlags() & ~juce::ComponentPeer::windowIsSemiTransparent, 0);
}

TEST_F(Embedding, ShowsTheWidgetOnTheScreen)
{
    SetBGColor(panel, 1.0f, 0.0f, 0.0f, 1.0f);
    panel->repaint();
    EXPECT_TRUE(pumpUntil([this] { return hands.screen().at(hostX + 3, hostY + 3) == 0xff0000; }));
    const auto picture = hands.screen();
    EXPECT_EQ(picture.at(hostX + panelWidth - 1, hostY + panelHeight - 1), 0xff0000u);
    EXPECT_EQ(picture.at(hostX + panelWidth + 1, hostY + 3), 0x303030u);
}

TEST_F(Embedding, WorksWithoutAParentAndWithoutASize)
{
    auto* other = CreateTreeWidget(false);
    addToDesktop(other, nullptr, 0, 0, nullptr);
    pumpFor(50);
    EXPECT_TRUE(other->isOnDesktop());
    // No X window is empty.
    EXPECT_LE(other->getWidth(), 1);
    EXPECT_LE(other->getHeight(), 1);
    RefreshTree(other, {object(1, "a", 1)});
    NotifyMsg(other, "Hello");
    pumpFor(50);
    ClearTree(other);
    DeleteTreeWidget(other);
    pump();
}

TEST_F(Embedding, ReplacesOneWidgetByAnother)
{
    for (int i = 0; i < 3; ++i)
    {
        deleteWidget();
        panel = CreateTreeWidget(false);
        addToDesktop(panel, nullptr, panelWidth, panelHeight, host.FrameHandle());
        show({object(1, "a"), object(2, "b")});
        Click(textOf("b"));
        EXPECT_EQ(shape(), "Layer(a b*)");
    }
}

TEST_F(Embedding, ReturnsTheKeyboardWhenTheWidgetGoes)
{
    show({object(1, "a")});
    Click(textOf("a"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    deleteWidget();
    pumpFor(50);
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}
