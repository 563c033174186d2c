// The panel's window in the host's container.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using namespace standin::user;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{
class Embedding : public PanelInHost
{
protected:
    Area panelGeometry() { return window.GeometryOf(window.PanelWindow()); }

    void expectSize(int width, int height)
    {
        EXPECT_TRUE(IdleUntil(
            [&] {
                return panelGeometry() == Area{0, 0, width, height};
            }))
            << panelGeometry().width << " x " << panelGeometry().height;
    }
};

class EmbeddingOfAPanelThatIsClosed : public Embedding
{
protected:
    EmbeddingOfAPanelThatIsClosed() : Embedding() { host.Options().closedPanel = ClosedPanel::destroysView; }
};
} // namespace

TEST_F(Embedding, FillsTheContainerWithOneWindow)
{
    Open();
    EXPECT_NE(window.PanelWindow(), 0u);
    EXPECT_TRUE(window.IsOnScreen(window.PanelWindow()));
    EXPECT_EQ(panelGeometry(), (Area{0, 0, PlainHost::panelWidth, PlainHost::panelHeight}));
}

TEST_F(Embedding, ShowsThePanelInTheHostsColour)
{
    host.SetBackgroundColour({0x4040, 0x8080, 0x2020});
    Open();
    const ScreenPicture picture = hands.screen();
    EXPECT_EQ(picture.at(PlainHost::left + 2, PlainHost::top + 2), 0x408020u);
    EXPECT_EQ(picture.at(PlainHost::left + 398, PlainHost::top + 418), 0x408020u);
    EXPECT_EQ(picture.at(PlainHost::left + 402, PlainHost::top + 200), 0x303030u);
}

TEST_F(Embedding, WritesTheLinesOfAViewThatMoves)
{
    EXPECT_THAT(OutputOf([this] { (void)host.SetPanelState(panelName, PanelState::frontmost); }),
                HasSubstr("View Will move to Winodw\nAdding Event Monitor\n"));
    EXPECT_EQ(OutputOf([this] { Die(); }), "View Will move to Winodw\nNew Window Empty\n");
}

TEST_F(Embedding, FollowsTheContainersSize)
{
    Open();
    window.Resize(300, 250);
    expectSize(300, 250);
    window.Resize(500, 460);
    expectSize(500, 460);
}

TEST_F(Embedding, FollowsTheLastOfSeveralQuickResizes)
{
    Open();
    for (int step = 0; step < 40; ++step)
    {
        window.Resize(200 + 7 * step, 150 + 5 * step);
        if (step % 7 == 0)
            Idle();
    }
    expectSize(473, 345);
    EXPECT_TRUE(IdleUntil([this] { return panelGeometry() == Area{0, 0, 473, 345}; }));
}

TEST_F(Embedding, FollowsTheContainerToNothingAndBack)
{
    Open();
    for (int i = 0; i < 3; ++i)
    {
        window.Resize(1, 1); // The least that the server allows.
        expectSize(1, 1);
        window.Resize(PlainHost::panelWidth, PlainHost::panelHeight);
        expectSize(PlainHost::panelWidth, PlainHost::panelHeight);
    }
    Settle();
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}

TEST_F(Embedding, FollowsAContainerResizedBeforeItAppears)
{
    window.SetContainerStart(ContainerStart::unmapped);
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    window.Unmap();
    window.Resize(320, 260);
    IdleFor(50ms);
    window.Resize(340, 280);
    window.Map();
    expectSize(340, 280);
    EXPECT_TRUE(window.IsOnScreen(window.PanelWindow()));
}

TEST_F(Embedding, FollowsAContainerResizedWhileHidden)
{
    Open();
    window.Unmap();
    window.Resize(310, 270);
    IdleFor(50ms);
    window.Map();
    expectSize(310, 270);
}

TEST_F(Embedding, FillsTheContainerAtAnotherScale)
{
    window.SetScreenResource("Xft.dpi:\t192\n");
    Open();
    expectSize(PlainHost::panelWidth, PlainHost::panelHeight);
    window.Resize(301, 251);
    const auto isFilled = [](int pixels, int wanted) { return pixels == wanted || pixels == wanted + 1; };
    EXPECT_TRUE(IdleUntil(
        [&] { return isFilled(panelGeometry().width, 301) && isFilled(panelGeometry().height, 251); }))
        << panelGeometry().width << " x " << panelGeometry().height;
}

TEST_F(Embedding, FollowsItsContainerToAnotherWindow)
{
    Open();
    ClickInto(Row(2));
    window.MoveContainerToNewTop();
    Settle();
    ClickInto(Row(2));
    PressKey("F5");
    ExpectKeys({"+F5", "-F5"});
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    window.Resize(300, 250);
    expectSize(300, 250);
}

TEST_F(Embedding, SurvivesAContainerThatTheHostDestroys)
{
    Open();
    ClickInto(Row(2));
    window.Destroy();
    IdleFor(200ms);
    // The tree goes on without a window: the layer still counts.
    host.User().Delete("b");
    IdleFor(50ms);
    void* view = window.MakeContainer(panelName);
    EXPECT_EQ(CreateAgain(view).thrown, "");
    Settle();
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a"; }));
}

TEST_F(Embedding, SurvivesItsContainersEndDuringAMenu)
{
    Open();
    OpenGeometryMenu();
    window.Destroy();
    EXPECT_TRUE(IdleUntil([this] { return !IsMenuOpen(); }));
    IdleFor(200ms);
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(Embedding, SurvivesAPanelWindowThatTheHostDestroys)
{
    Open();
    window.DestroyPanelWindow();
    IdleFor(200ms);
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    Settle();
    ClickInto(Row(2));
}

TEST_F(Embedding, MakesAParentlessPanelOfANullView)
{
    EXPECT_EQ(OutputOf([this] { EXPECT_EQ(CreateAgain(nullptr).thrown, ""); }).find("View Will move"),
              std::string::npos);
    IdleFor(100ms);
    EXPECT_EQ(window.TakeErrors(), 0);
    // Replaced by one with a view.
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    Settle();
    ClickInto(Row(2));
}

TEST_F(Embedding, LeavesTheHostsWindowsAsTheyWere)
{
    window.SetContainerStart(ContainerStart::mapped);
    void* view = window.MakeContainer(panelName);
    const long ownOnTop = window.SelectionOn(window.Frame());
    const std::vector<std::string> propertiesOnTop = window.PropertiesOf(window.Frame());
    const long allOnTop = window.AllSelectionsOn(window.Frame());
    const long ownOnContainer = window.SelectionOn(window.Container());
    const long allOnContainer = window.AllSelectionsOn(window.Container());

    EXPECT_EQ(CreateAgain(view).thrown, "");
    IdleFor(50ms);
    ClickInto(PanelBackground());
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    EXPECT_EQ(window.SelectionOn(window.Frame()), ownOnTop);
    EXPECT_EQ(window.SelectionOn(window.Container()), ownOnContainer);
    EXPECT_EQ(window.AllSelectionsOn(window.Frame()), allOnTop);

    EXPECT_EQ(CreateAgain(nullptr).thrown, "");
    EXPECT_TRUE(IdleUntil([this] { return window.PanelWindow() == 0; }));
    EXPECT_EQ(window.AllSelectionsOn(window.Container()), allOnContainer);
    EXPECT_EQ(window.PropertiesOf(window.Frame()), propertiesOnTop);
    EXPECT_THAT(window.PropertiesOf(window.Container()), IsEmpty());
    EXPECT_TRUE(window.HasItsErrorHandler());
}

TEST_F(EmbeddingOfAPanelThatIsClosed, PutsANewPanelIntoTheNewContainer)
{
    Open();
    ClickInto(Row(2));
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    IdleFor(50ms);
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    Settle();
    EXPECT_EQ(panelGeometry(), (Area{0, 0, PlainHost::panelWidth, PlainHost::panelHeight}));
    ClickInto(Row(3));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b"; }));
}
