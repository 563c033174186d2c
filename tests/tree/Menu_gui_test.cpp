#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

#include <map>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{
class Menu : public TreeGuiTest
{
protected:
    Menu()
    {
        show({object(1, "a"), object(2, "b")});
        AddObject(panel, VN_OBJECT_EFFECTOR, 99, "not geometry");
        AddObject(panel, VN_OBJECT_GEOMETRY, 11, "Sheets");
        AddObject(panel, VN_OBJECT_GEOMETRY, 12, "Routes");
        AddObject(panel, VN_OBJECT_GEOMETRY, 13, "Solids");
    }

    static juce::Component* menu() { return juce::Component::getCurrentlyModalComponent(); }
    static bool isMenuOpen() { return juce::Component::getNumCurrentlyModalComponents() > 0; }
    static bool isMenuClosed() { return !isMenuOpen(); }

    void openMenu() { openMenuOf(panel->geometryButton); }

    void openMenuOf(SimpleButton& button)
    {
        (void)OutputOf([&] { (void)OpenMenu(centreOf(button)); });
    }

    /// The middle of the n-th of three rows of the menu.
    static Place menuRow(int n)
    {
        const auto bounds = menu()->getScreenBounds();
        return {bounds.getCentreX(), bounds.getY() + bounds.getHeight() * (2 * n - 1) / 6};
    }

    std::vector<int> keys() { return GetKeysToBeAddedToLayer(panel); }
};
} // namespace

TEST_F(Menu, ChoiceByMouseAddsTheKey)
{
    openMenu();
    EXPECT_THAT(keys(), IsEmpty());
    Click(menuRow(2));
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
    EXPECT_THAT(keys(), ElementsAre(12));
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(Menu, ChoiceByKeyboardAddsTheKey)
{
    openMenu();
    for (int i = 0; i < 3; ++i)
        PressKey("Down");
    pumpFor(50);
    PressKey("Return");
    EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
    EXPECT_THAT(keys(), ElementsAre(13));
    EXPECT_FALSE(view().renameEditor->isVisible());
}

TEST_F(Menu, OffersTheEntriesInTheirOrder)
{
    for (int n = 1; n <= 3; ++n)
    {
        openMenu();
        Click(menuRow(n));
        EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
        EXPECT_THAT(keys(), ElementsAre(10 + n));
    }
}

namespace
{
/// Records what a menu paints.
class MenuPainting : public juce::LookAndFeel_V4
{
public:
    MenuPainting() { setDefaultLookAndFeel(this); }
    ~MenuPainting() override { setDefaultLookAndFeel(nullptr); }

    void drawPopupMenuItem(juce::Graphics& g, const juce::Rectangle<int>& area, bool isSeparator,
                           bool isActive, bool isHighlighted, bool isTicked, bool hasSubMenu,
                           const juce::String& text, const juce::String& shortcut, const juce::Drawable* icon,
                           const juce::Colour* colour) override
    {
        painted[text.toStdString()] = std::string(isActive ? "active" : "") + (isTicked ? " ticked" : "");
        LookAndFeel_V4::drawPopupMenuItem(g, area, isSeparator, isActive, isHighlighted, isTicked, hasSubMenu,
                                          text, shortcut, icon, colour);
    }

    std::map<std::string, std::string> painted;
};
} // namespace

TEST_F(Menu, OffersEntriesThatAreActiveAndNotTicked)
{
    const MenuPainting painting;
    openMenu();
    EXPECT_THAT(painting.painted,
                ElementsAre(Pair("Routes", "active"), Pair("Sheets", "active"), Pair("Solids", "active")));
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil(isMenuClosed));
}

TEST_F(Menu, CutsItsTextsAt4000Characters)
{
    const MenuPainting painting;
    AddObject(panel, VN_OBJECT_RENDERER, 31, std::string(5000, 'w').c_str());
    AddObject(panel, VN_OBJECT_RENDERER, 32, "Rays");
    openMenuOf(panel->rendererButton);
    EXPECT_THAT(painting.painted,
                ElementsAre(Pair("Rays", "active"), Pair(std::string(4000, 'w'), "active")));
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil(isMenuClosed));
}

TEST_F(Menu, OffersNamesOfAnyKind)
{
    AddObject(panel, VN_OBJECT_RENDERER, 31, "");
    AddObject(panel, VN_OBJECT_RENDERER, 32, "\xff\xc0\xaf\xed\xa0\x80");
    AddObject(panel, VN_OBJECT_RENDERER, 33, std::string(200000, 'w').c_str());
    for (int n = 1; n <= 3; ++n)
    {
        openMenuOf(panel->rendererButton);
        Click(menuRow(n));
        EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
        EXPECT_THAT(keys(), ElementsAre(30 + n));
    }
}

TEST_F(Menu, ChoiceOfTheKeyZeroAddsNothing)
{
    AddObject(panel, VN_OBJECT_RENDERER, 21, "Dots");
    AddObject(panel, VN_OBJECT_RENDERER, 0, "No such effect");
    AddObject(panel, VN_OBJECT_RENDERER, 22, "Rays");
    openMenuOf(panel->rendererButton);
    Click(menuRow(2));
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(200);
    EXPECT_THAT(keys(), IsEmpty());
    openMenuOf(panel->rendererButton);
    Click(menuRow(3));
    EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
    EXPECT_THAT(keys(), ElementsAre(22));
}

TEST_F(Menu, LeavesTheHostAliveWhileItIsOpen)
{
    openMenu();
    // The press has come back to the pump, and the panel can be used from outside.
    RefreshTree(panel, {object(5, "new")});
    pump();
    EXPECT_TRUE(isMenuOpen());
    Click(menuRow(1));
    EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
    EXPECT_THAT(keys(), ElementsAre(11));
}

TEST_F(Menu, DismissedByEscapeAddsNothing)
{
    openMenu();
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(100);
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(Menu, DismissedByAnotherPanelClickAddsNothing)
{
    openMenu();
    Click(OnScreen({390, 410}));
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(100);
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(Menu, DismissedByItsButtonStaysAway)
{
    openMenu();
    (void)OutputOf([this] { Click(centreOf(panel->geometryButton)); });
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(300);
    EXPECT_TRUE(isMenuClosed());
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(Menu, DismissedByAHostClickAddsNothing)
{
    openMenu();
    clickOnHost();
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(300);
    EXPECT_THAT(keys(), IsEmpty());
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
    EXPECT_FALSE(hasFocus());
}

TEST_F(Menu, DismissedAfterHoveringAddsNothing)
{
    openMenu();
    Point(menuRow(2));
    pumpFor(100);
    clickOnHost();
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(200);
    EXPECT_THAT(keys(), IsEmpty());
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}

TEST_F(Menu, ClosedLeavesTheHostItsNewKeyboard)
{
    openMenu();
    // The menu closes for a reason of its own before the panel hears that the keyboard has gone: messages
    // that are posted by a message come before what the X server has to say.
    juce::MessageManager::callAsync(
        [this]
        {
            clickOnHost();
            menu()->exitModalState(0);
        });
    pumpFor(300);
    EXPECT_THAT(keys(), IsEmpty());
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}

TEST_F(Menu, GivesTheKeyboardBackAfterAChoice)
{
    clickOnHost();
    pump();
    openMenu();
    Click(menuRow(1));
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    EXPECT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    pumpFor(300);
    EXPECT_TRUE(view().hasKeyboardFocus(false));
    PressKey("Control+a");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a* b*)"; }));
}

TEST_F(Menu, GivesTheKeyboardBackAfterEscape)
{
    openMenu();
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(300);
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Menu, GoesWithItsWidget)
{
    openMenu();
    ClearTree(panel);
    DeleteTreeWidget(panel);
    panel = nullptr;
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(100);
}

TEST_F(Menu, GoesWhenTheWidgetGoesBeforeJuce)
{
    openMenu();
    deleteWidget();
    // No message is delivered before JUCE ends; the fixture ends it now.
}

TEST_F(Menu, ChosenWhileItsWidgetGoesAddsNothing)
{
    openMenu();
    menu()->exitModalState(2);
    deleteWidget();
    // Whoever still refers to the old widget may find the new one at its address.
    panel = CreateTreeWidget(false);
    EXPECT_TRUE(pumpUntil(isMenuClosed));
    pumpFor(100);
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(Menu, OpensOneAfterTheOther)
{
    AddObject(panel, VN_OBJECT_RENDERER, 21, "Dots");
    AddObject(panel, VN_OBJECT_RENDERER, 22, "Rays");
    (void)OutputOf([this] { Click(centreOf(panel->rendererButton)); });
    pumpFor(400);
    ASSERT_TRUE(isMenuOpen());
    // Above the open menu, and not under it.
    openMenu();
    EXPECT_EQ(juce::Component::getNumCurrentlyModalComponents(), 1);
    Click(menuRow(3));
    EXPECT_TRUE(pumpUntil([this] { return !panel->keysToBeAdded.empty(); }));
    pumpFor(100);
    EXPECT_THAT(keys(), ElementsAre(13));
}
