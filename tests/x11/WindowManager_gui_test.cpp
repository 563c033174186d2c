// The same rules under a window manager, which has a say in who gets the focus.

#include "tests/x11/support/PanelInHost.h"
#include "tests/x11/support/TinyWindowManager.h"

using namespace standin;
using testing::ElementsAre;
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

TEST_F(WindowManager, LetsThePanelTakeTheKeyboardAndGiveItBack)
{
    for (int i = 0; i < 5; ++i)
    {
        ClickInto(Row(2));
        IdleFor(100);
        EXPECT_TRUE(PanelHasFocus());
        Type("F5");
        IdleFor(30);
        EXPECT_THAT(window.TakeKeys(), ElementsAre("+F5", "-F5"));
        EXPECT_THAT(OutputOf(
                        [this]
                        {
                            TypeWith({"Control_L"}, "c");
                            IdleFor(30);
                        }),
                    HasSubstr("Copy Button\n"));
        Click(HostArea());
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
        IdleFor(100);
        EXPECT_TRUE(HostHasFocus());
        (void)window.TakeKeys();
        Type("Delete");
        IdleFor(30);
        EXPECT_THAT(window.TakeKeys(), ElementsAre("+Delete", "-Delete"));
    }
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(WindowManager, LeavesFurtherClicksInThePanelToIt)
{
    ClickInto(Row(1));
    for (int i = 0; i < 5; ++i)
    {
        Click(Row(1 + i % 3));
        IdleFor(150);
        EXPECT_TRUE(PanelHasFocus()) << i;
    }
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; })) << Stack();
}

TEST_F(WindowManager, LeavesTheKeyboardWithThePanelAfterAMenu)
{
    OpenMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(IdleUntil([this] { return !IsMenuOpen(); }));
    IdleFor(200);
    EXPECT_TRUE(PanelHasFocus());
    EXPECT_EQ(Stack(), "a b c e4");
}

TEST_F(WindowManager, LeavesTheKeyboardWithThePanelAfterADrag)
{
    ClickInto(Row(3));
    Press(Row(3));
    IdleFor(100);
    for (int step = 1; step <= 8; ++step)
    {
        Point({Row(3).x, Row(3).y - 5 * step});
        Idle();
    }
    user.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "c a b"; })) << Stack();
    IdleFor(300);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(WindowManager, ClosesAMenuAtAClickOnTheHost)
{
    OpenMenu();
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return !IsMenuOpen(); }));
    IdleFor(200);
    EXPECT_TRUE(HostHasFocus());
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(WindowManager, GivesTheKeyboardToAnotherProgramThatIsClicked)
{
    for (int i = 0; i < 5; ++i)
    {
        ClickInto(Row(2));
        IdleFor(100);
        const unsigned long other = window.MakeWindowOfAnotherProgram(620, 100, 150, 150);
        IdleFor(100);
        Click({700, 180});
        EXPECT_TRUE(IdleUntil([&] { return user.focusedWindow() == other; })) << i;
        IdleFor(100);
        EXPECT_EQ(user.focusedWindow(), other) << i;
        window.DestroyWindowOfAnotherProgram();
        IdleFor(50);
    }
}
