// The menu of a toolbar button, which stays open while the host goes on.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using testing::IsEmpty;

namespace
{
class Menus : public PanelInHost
{
protected:
    Menus() { Open(); }

    bool waitForMenuToClose()
    {
        return IdleUntil([this] { return !IsMenuOpen(); });
    }

    void expectNothingChosen()
    {
        EXPECT_TRUE(waitForMenuToClose());
        IdleFor(200ms);
        EXPECT_EQ(Stack(), "a b c");
    }

    std::string lastEffect()
    {
        return host.FindInstalled(host.State().FindLayer(layer)->effects.back().key)->matchName;
    }
};
} // namespace

TEST_F(Menus, AreOpenWhileTheHostGoesOn)
{
    OpenGeometryMenu();
    host.User().Delete("b");
    EXPECT_EQ(Stack(), "a c");
    IdleFor(100ms);
    EXPECT_TRUE(IsMenuOpen());
    PressKey("Escape");
    EXPECT_TRUE(waitForMenuToClose());
}

TEST_F(Menus, AddTheEffectThatIsClicked)
{
    OpenGeometryMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    IdleFor(200ms);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AddTheEffectChosenByKeys)
{
    OpenGeometryMenu();
    PressKey("Down");
    PressKey("Down");
    IdleFor(100ms);
    PressKey("Return");
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
}

TEST_F(Menus, AreClosedByEscapeUnseenByTheHost)
{
    OpenGeometryMenu();
    PressKey("Escape");
    expectNothingChosen();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    EXPECT_TRUE(PanelHasFocus());
    PressKey("Escape");
    ExpectKeys({"+Escape", "-Escape"});
}

TEST_F(Menus, LeaveUnusedKeysToTheHost)
{
    OpenGeometryMenu();
    PressKey("F5");
    PressKey("Control+z");
    ExpectKeys({"+F5", "-F5", "+Control_L", "+ctrl+z", "-ctrl+z", "-ctrl+Control_L"});
    EXPECT_TRUE(IsMenuOpen());
    PressKey("Escape");
    expectNothingChosen();
}

TEST_F(Menus, KeepUnusedTreeKeysFromTheHost)
{
    OpenGeometryMenu();
    PressKey("Delete");
    PressKey("Control+x");
    ExpectKeys({"+Control_L", "-ctrl+Control_L"});
    EXPECT_TRUE(IsMenuOpen());
    PressKey("Escape");
    expectNothingChosen();
}

TEST_F(Menus, AreClosedByAHostClick)
{
    OpenGeometryMenu();
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
    PressKey("Delete");
    ExpectKeys({"+Delete", "-Delete"});
}

TEST_F(Menus, AreClosedByAHostClickAfterHovering)
{
    OpenGeometryMenu();
    Point(MenuEntry(1));
    IdleFor(150ms);
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, AreClosedByAClickTakingTheFocus)
{
    window.SetClicks(HostClicks::takeTheFocus);
    OpenGeometryMenu();
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, AreClosedByAClickOnTheDesktop)
{
    OpenGeometryMenu();
    Click(Desktop());
    expectNothingChosen();
}

TEST_F(Menus, AreClosedByAClickInThePanel)
{
    OpenGeometryMenu();
    Click({PlainHost::left + 300, PlainHost::top + 300});
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AreClosedByAClickOnTheirButton)
{
    OpenGeometryMenu();
    Click(Button(0));
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AreClosedWhenTheHostTakesTheFocus)
{
    OpenGeometryMenu();
    window.SetFocus(window.Frame());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, OpenUnderAFirstClickIntoThePanel)
{
    window.SetFocus(window.Frame());
    IdleFor(20ms);
    OpenGeometryMenu();
    PressKey("F5");
    ExpectKeys({"+F5", "-F5"});
    PressKey("Escape");
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, GiveTheKeyboardToTheTreeAgain)
{
    ClickInto(Row(2));
    OpenGeometryMenu();
    PressKey("Escape");
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}

TEST_F(Menus, AddNothingOnceTheirPanelHasBeenReplaced)
{
    OpenGeometryMenu();
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    expectNothingChosen();
    Settle();
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}

TEST_F(Menus, AddNothingIfTheirPanelIsReplaced)
{
    OpenGeometryMenu();
    Click(MenuEntry(1));
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    expectNothingChosen();
}

TEST_F(Menus, StayOpenWithoutALayer)
{
    OpenGeometryMenu();
    host.User().SelectLayers({});
    IdleFor(300ms);
    EXPECT_TRUE(IsMenuOpen());
    Click(MenuEntry(1));
    EXPECT_TRUE(waitForMenuToClose());
    IdleFor(100ms);
    EXPECT_EQ(Stack(), "a b c");
    host.User().SelectLayers({layer});
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}

TEST_F(Menus, StayOpenWithoutAnItem)
{
    const int comp = host.State().FindLayer(layer)->compId;
    OpenGeometryMenu();
    host.User().OpenComposition(0);
    IdleFor(300ms);
    EXPECT_TRUE(IsMenuOpen());
    Click(MenuEntry(1));
    expectNothingChosen();
    host.User().OpenComposition(comp);
    host.User().SelectLayers({layer});
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}

TEST_F(Menus, AreClosedWhenAnotherTabCoversThePanel)
{
    OpenGeometryMenu();
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
    expectNothingChosen();
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    Settle();
    EXPECT_EQ(Stack(), "a b c");
    OpenGeometryMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}
