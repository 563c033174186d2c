// The menu of a toolbar button, which stays open while the host goes on.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using testing::ElementsAre;
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
        IdleFor(200);
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
    OpenMenu();
    host.User().Delete("b");
    IdleFor(100);
    EXPECT_EQ(Stack(), "a c");
    EXPECT_TRUE(IsMenuOpen());
    Type("Escape");
    EXPECT_TRUE(waitForMenuToClose());
}

TEST_F(Menus, AddTheEffectThatIsClicked)
{
    OpenMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    IdleFor(200);
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AddTheEffectThatIsChosenByKeysWhichTheHostDoesNotGet)
{
    OpenMenu();
    Type("Down");
    Type("Down");
    IdleFor(100);
    Type("Return");
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
}

TEST_F(Menus, AreClosedByEscapeWhichTheHostDoesNotGet)
{
    OpenMenu();
    Type("Escape");
    expectNothingChosen();
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    EXPECT_TRUE(PanelHasFocus());
    Type("Escape");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Escape", "-Escape"));
}

TEST_F(Menus, LeaveTheKeysThatTheyDoNotUseToTheHost)
{
    OpenMenu();
    Type("F5");
    TypeWith({"Control_L"}, "z");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(),
                ElementsAre("+F5", "-F5", "+Control_L", "+ctrl+z", "-ctrl+z", "-ctrl+Control_L"));
    EXPECT_TRUE(IsMenuOpen());
    Type("Escape");
    expectNothingChosen();
}

TEST_F(Menus, KeepTheTreesKeysFromTheHostWithoutAUseForThem)
{
    OpenMenu();
    Type("Delete");
    TypeWith({"Control_L"}, "x");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Control_L", "-ctrl+Control_L"));
    EXPECT_TRUE(IsMenuOpen());
    Type("Escape");
    expectNothingChosen();
}

TEST_F(Menus, AreClosedByAClickOnTheHostsWindow)
{
    OpenMenu();
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
    Type("Delete");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Delete", "-Delete"));
}

TEST_F(Menus, AreClosedByAClickOnTheHostsWindowAfterThePointerWasOverThem)
{
    OpenMenu();
    Point(MenuEntry(1));
    IdleFor(150);
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, AreClosedByAClickInAHostThatTakesTheFocusItself)
{
    window.SetClicks(HostClicks::takeTheFocus);
    OpenMenu();
    Click(HostArea());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, AreClosedByAClickOnTheDesktop)
{
    OpenMenu();
    Click(Desktop());
    expectNothingChosen();
}

TEST_F(Menus, AreClosedByAClickInThePanel)
{
    OpenMenu();
    Click({PlainHost::left + 300, PlainHost::top + 300});
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AreClosedByAClickOnTheirButton)
{
    OpenMenu();
    Click(Button(0));
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, AreClosedWhenTheHostTakesTheFocusWithoutAClick)
{
    OpenMenu();
    window.SetFocus(window.TopWindow());
    expectNothingChosen();
    EXPECT_TRUE(HostHasFocus());
}

TEST_F(Menus, OpenUnderAFirstClickIntoThePanel)
{
    window.SetFocus(window.TopWindow());
    IdleFor(20);
    OpenMenu();
    Type("F5");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+F5", "-F5"));
    Type("Escape");
    expectNothingChosen();
    EXPECT_TRUE(PanelHasFocus());
}

TEST_F(Menus, GiveTheKeyboardToTheTreeAgain)
{
    ClickInto(Row(2));
    OpenMenu();
    Type("Escape");
    EXPECT_TRUE(waitForMenuToClose());
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}

TEST_F(Menus, AddNothingOnceTheirPanelHasBeenReplaced)
{
    OpenMenu();
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    expectNothingChosen();
    Settle();
    ClickInto(Row(2));
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}

TEST_F(Menus, AddNothingWhenTheirPanelIsReplacedBetweenTheClickAndItsDelivery)
{
    OpenMenu();
    Click(MenuEntry(1));
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    expectNothingChosen();
}

TEST_F(Menus, StayOpenWithoutALayerThatGetsTheEffectLater)
{
    OpenMenu();
    host.User().SelectLayers({});
    IdleFor(300);
    EXPECT_TRUE(IsMenuOpen());
    Click(MenuEntry(1));
    EXPECT_TRUE(waitForMenuToClose());
    IdleFor(100);
    EXPECT_EQ(Stack(), "a b c");
    host.User().SelectLayers({layer});
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}

TEST_F(Menus, StayOpenWithoutAnItemThatComesBackLater)
{
    const int comp = host.State().FindLayer(layer)->compId;
    OpenMenu();
    host.User().OpenComposition(0);
    IdleFor(300);
    EXPECT_TRUE(IsMenuOpen());
    Click(MenuEntry(1));
    expectNothingChosen();
    host.User().OpenComposition(comp);
    host.User().SelectLayers({layer});
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}

TEST_F(Menus, AreClosedWhenAnotherTabCoversThePanel)
{
    OpenMenu();
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
    expectNothingChosen();
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    Settle();
    EXPECT_EQ(Stack(), "a b c");
    OpenMenu();
    Click(MenuEntry(1));
    EXPECT_TRUE(IdleUntil([this] { return lastEffect() == "QVK VORTSRC Routes"; })) << lastEffect();
}
