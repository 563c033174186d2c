// The questions to the widget on X11, without an X server and without a widget.

#include "tests/tree/support/TreeTest.h"
#include "tree/platform/Platform.h"
#include "tree/platform/x11/TreeX11.h"

#include <X11/Xlib.h>
#include <gtest/gtest.h>

using namespace standin;

namespace
{
using WithoutAScreen = TreeTest;

XEvent returnKey()
{
    XEvent event = {};
    event.xkey.type = KeyPress;
    event.xkey.keycode = 36;
    return event;
}
} // namespace

TEST_F(WithoutAScreen, EventsGoNowhere)
{
    EXPECT_EQ(GetTreeDisplay(), nullptr);
    KeepTreeEvents();
    DeliverTreeEvent(returnKey());
    RefreshTree(panel, {object(1, "a")});
    select({"a"});
    EXPECT_EQ(HandleTreeKey(panel, returnKey()), KeyUse::unused);
    EXPECT_FALSE(view().renameEditor->isVisible());
}

TEST_F(WithoutAScreen, TheKeyboardIsNotElsewhere) { EXPECT_FALSE(IsKeyboardElsewhere()); }

TEST_F(WithoutAScreen, ASizeIsTakenAsItIs)
{
    ResizeTree(panel, 300, -5);
    EXPECT_EQ(panel->getBounds(), juce::Rectangle<int>(0, 0, 300, 0));
}

TEST_F(WithoutAScreen, AButtonThatIsHeldIsLetGo)
{
    juce::ModifierKeys::currentModifiers = juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier);
    EXPECT_TRUE(IsTreeButtonDown());
    ReleaseTreeButtons(panel);
    EXPECT_FALSE(IsTreeButtonDown());
}

TEST_F(WithoutAScreen, NoWidgetIsTolerated)
{
    EXPECT_EQ(GetTreeWindow(nullptr), 0U);
    EXPECT_EQ(HandleTreeKey(nullptr, returnKey()), KeyUse::unused);
    ResizeTree(nullptr, 300, 200);
    RemoveTreeFromDesktop(nullptr);
    juce::ModifierKeys::currentModifiers = juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier);
    ReleaseTreeButtons(nullptr);
    EXPECT_TRUE(IsTreeButtonDown());
    ReleaseTreeButtons(panel);
}
