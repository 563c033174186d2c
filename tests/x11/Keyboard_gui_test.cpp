// Whose the keyboard is.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using testing::IsEmpty;

namespace
{
constexpr unsigned long pointerRoot = 1;

class Keyboard : public PanelInHost
{
protected:
    Keyboard() { Open(); }

    void expectKeysAtHost()
    {
        (void)window.TakeKeys();
        PressKey("Delete");
        ExpectKeys({"+Delete", "-Delete"});
        EXPECT_EQ(Stack(), "a b c");
    }
};
} // namespace

TEST_F(Keyboard, IsNotTakenWhenThePanelIsCreated)
{
    window.SetFocus(window.Frame());
    EXPECT_FALSE(CreateAgain(reinterpret_cast<void*>(window.Container())).error);
    IdleFor(100ms);
    EXPECT_TRUE(HostHasFocus());
    expectKeysAtHost();
}

TEST_F(Keyboard, IsTakenByAClickInside)
{
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; })) << Stack();
    IdleFor(30ms);
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keyboard, IsTakenByABackgroundClick)
{
    ClickInto(PanelBackground());
    const std::string awaited = "Select All Button\n";
    EXPECT_THAT(OutputUntil(awaited, [this] { PressKey("Control+a"); }), testing::HasSubstr(awaited));
}

TEST_F(Keyboard, GoesBackInAHostWithoutFocusCalls)
{
    ClickInto(Row(2));
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    expectKeysAtHost();
}

TEST_F(Keyboard, GoesBackOnAClickBetweenIdles)
{
    ClickInto(Row(2));
    Click(HostArea());
    Point(Row(2));
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    expectKeysAtHost();
}

TEST_F(Keyboard, GoesBackOneIdleAfterAClickOutside)
{
    ClickInto(Row(2));
    Click(HostArea());
    Idle();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Keyboard, GoesBackOnAClickWithAnyButton)
{
    for (const unsigned button : {2u, 3u})
    {
        ClickInto(PanelBackground());
        Click(HostArea(), {}, button);
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); })) << button;
    }
}

TEST_F(Keyboard, GoesBackOnAnotherWindowsClick)
{
    ClickInto(Row(2));
    Click(Desktop());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
}

TEST_F(Keyboard, StaysOnATurnOfTheWheelOutside)
{
    ClickInto(Row(2));
    Click(HostArea(), {}, 4);
    Click(HostArea(), {}, 5);
    IdleFor(100ms);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Keyboard, StaysOnFurtherClicksInside)
{
    ClickInto(Row(2));
    for (int i = 0; i < 20; ++i)
    {
        Click(Row(1 + i % 3));
        Idle();
        EXPECT_TRUE(PanelHasFocus()) << i;
    }
}

TEST_F(Keyboard, GoesBackToTheWindowItCameFrom)
{
    const unsigned long field = window.MakeField();
    window.SetFocus(field);
    EXPECT_TRUE(IdleUntil([&] { return hands.focusedWindow() == field; }));
    Idle(); // The panel looks where the keyboard is.
    ClickInto(Row(2));
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([&] { return hands.focusedWindow() == field; }));
}

TEST_F(Keyboard, GoesToAHostThatTakesItItself)
{
    window.SetClicks(HostClicks::takeTheFocus);
    ClickInto(Row(2));
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    expectKeysAtHost();
}

TEST_F(Keyboard, StaysWhereTheHostPutsIt)
{
    const unsigned long field = window.MakeField();
    ClickInto(Row(2));
    window.SetFocus(field);
    IdleFor(100ms);
    EXPECT_EQ(hands.focusedWindow(), field);
    window.SetFocus(pointerRoot);
    IdleFor(100ms);
    EXPECT_EQ(hands.focusedWindow(), pointerRoot);
}

TEST_F(Keyboard, IsNotTakenByTheHoveringPointer)
{
    window.SetFocus(window.Frame());
    Point(Row(2));
    IdleFor(50ms);
    expectKeysAtHost();
}

TEST_F(Keyboard, IsNotTakenByHoveringWithoutAnyFocus)
{
    window.SetFocus(pointerRoot);
    Point(Row(2));
    IdleFor(50ms);
    expectKeysAtHost();
}

TEST_F(Keyboard, IsNotTakenByHoveringAfterGoingBack)
{
    ClickInto(Row(2));
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    Point(Row(2));
    IdleFor(50ms);
    expectKeysAtHost();
}

TEST_F(Keyboard, CanBeTakenAndReturnedAgainAndAgain)
{
    for (int i = 0; i < 10; ++i)
    {
        ClickInto(PanelBackground());
        Click(HostArea());
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); })) << i;
    }
    expectKeysAtHost();
}

TEST_F(Keyboard, IsTheHostsWhileThePanelIsHidden)
{
    ClickInto(Row(2));
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); })) << hands.focusedWindow();
    EXPECT_FALSE(PanelHasFocus());
    expectKeysAtHost();
    Click(HostArea());
    IdleFor(50ms);
    expectKeysAtHost();
}

namespace
{
class KeyboardInADrag : public Keyboard
{
protected:
    KeyboardInADrag()
    {
        ClickInto(Row(3));
        StartDrag(3);
        Idle();
    }
};
} // namespace

TEST_F(KeyboardInADrag, StaysWithThePanel)
{
    EXPECT_TRUE(PanelHasFocus());
    PressKey("F5");
    ExpectKeys({"+F5", "-F5"});
    hands.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "c a b"; })) << Stack();
    IdleFor(300ms);
    EXPECT_TRUE(PanelHasFocus());
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack().size() == 3; })) << Stack();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(KeyboardInADrag, KeepsUnusedTreeKeysFromTheHost)
{
    PressKey("Delete");
    IdleFor(30ms);
    hands.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "c a b"; })) << Stack();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(KeyboardInADrag, IsTheTreesRightAfterTheDrop)
{
    hands.release();
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b"; })) << Stack();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(KeyboardInADrag, EscapeEndsTheDragAndStops)
{
    PressKey("Escape");
    IdleFor(30ms);
    hands.release();
    IdleFor(300ms);
    EXPECT_EQ(Stack(), "a b c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    EXPECT_TRUE(PanelHasFocus());
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b"; })) << Stack();
}

TEST_F(Keyboard, FollowsTheClicksOfOneIdleInOrder)
{
    ClickInto(Row(2));
    Click(HostArea());
    Click(PanelBackground());
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    Click(PanelBackground());
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
}

TEST_F(Keyboard, FollowsClicksOfALeftHandedMouse)
{
    window.SwapMouseButtons();
    for (const unsigned button : {1u, 3u})
    {
        Click(PanelBackground(), {}, button);
        EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); })) << button;
        IdleFor(50ms);
        EXPECT_TRUE(PanelHasFocus()) << button;
        Click(HostArea(), {}, button);
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); })) << button;
    }
}
