// The same rules under a window manager, which has a say in who gets the focus.

#include "tests/x11/support/PanelInHost.h"
#include "tests/x11/support/TinyWindowManager.h"

using namespace standin;
using testing::HasSubstr;

namespace
{
class WindowManager : public PanelInHost
{
protected:
    WindowManager() { Open(); }

    TinyWindowManager manager;
};
} // namespace

TEST_F(WindowManager, LetsThePanelTakeAndReturnTheKeyboard)
{
    for (int i = 0; i < 5; ++i)
    {
        ClickInto(Row(2));
        IdleFor(100ms);
        EXPECT_TRUE(PanelHasFocus());
        PressKey("F5");
        ExpectKeys({"+F5", "-F5"});
        EXPECT_THAT(OutputUntil("Copy Button\n", [this] { PressKey("Control+c"); }),
                    HasSubstr("Copy Button\n"));
        Click(HostArea());
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
        IdleFor(100ms);
        EXPECT_TRUE(HostHasFocus());
        (void)window.TakeKeys();
        PressKey("Delete");
        ExpectKeys({"+Delete", "-Delete"});
    }
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(WindowManager, LeavesFurtherClicksInThePanelToIt)
{
    ClickInto(Row(1));
    for (int i = 0; i < 5; ++i)
    {
        Click(Row(1 + i % 3));
        IdleFor(150ms);
        EXPECT_TRUE(PanelHasFocus()) << i;
    }
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; })) << Stack();
}

TEST_F(WindowManager, LeavesThePanelTheKeyboardAfterAMenu)
{
    OpenGeometryMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(IdleUntil([this] { return !IsMenuOpen(); }));
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b c e4"; })) << Stack();
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    IdleFor(200ms);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(WindowManager, LeavesThePanelTheKeyboardAfterADrag)
{
    ClickInto(Row(3));
    StartDrag(3);
    hands.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "c a b"; })) << Stack();
    IdleFor(300ms);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(WindowManager, ClosesAMenuAtAHostClick)
{
    OpenGeometryMenu();
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return !IsMenuOpen(); }));
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(WindowManager, GivesAClickedProgramTheKeyboard)
{
    for (int i = 0; i < 5; ++i)
    {
        ClickInto(Row(2));
        IdleFor(100ms);
        const unsigned long other = window.MakeWindowOfAnotherProgram(620, 100, 150, 150);
        IdleFor(100ms);
        Click({700, 180});
        EXPECT_TRUE(IdleUntil([&] { return hands.focusedWindow() == other; })) << i;
        IdleFor(100ms);
        EXPECT_EQ(hands.focusedWindow(), other) << i;
        window.DestroyWindowOfAnotherProgram();
        IdleFor(50ms);
    }
}
