// The menu of the toolbar as macOS has it: the click on the button ends when the menu does.

#include "tests/tree/support/TreeGuiTest.h"
#include "tree/platform/x11/TreeX11.h"

#include <JuceWindowEvents.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
bool isMenuOpen() { return juce::Component::getNumCurrentlyModalComponents() > 0; }

/// Does something in the loop of a menu, once the menu is open and listens. The loop is JUCE's own, which
/// leaves lying what only DeliverJuceWindowEvents sees.
class InMenu : private juce::Timer
{
public:
    InMenu(std::function<void()> whenOpen, std::function<void()> whenListening)
        : atOpening(std::move(whenOpen)), inside(std::move(whenListening))
    {
        startTimer(untilMenuOpens);
    }

    bool isDone() const { return inside == nullptr; }

private:
    void timerCallback() override
    {
        DeliverJuceWindowEvents();
        if (!isMenuOpen() || isDone())
            return;
        if (atOpening != nullptr)
        {
            std::exchange(atOpening, nullptr)();
            return startTimer(untilMenuListens);
        }
        startTimer(untilMenuOpens);
        std::exchange(inside, nullptr)();
    }

    static constexpr int untilMenuOpens = 20;
    static constexpr int untilMenuListens = static_cast<int>(user::waits::menuIgnoresClicks.count());

    std::function<void()> atOpening;
    std::function<void()> inside;
};

class WaitingMenu : public TreeGuiTest
{
protected:
    WaitingMenu()
    {
        show({object(1, "a"), object(2, "b")});
        AddObject(panel, VN_OBJECT_GEOMETRY, 11, "Sheets");
        AddObject(panel, VN_OBJECT_GEOMETRY, 12, "Routes");
        AddObject(panel, VN_OBJECT_GEOMETRY, 13, "Solids");
    }

    static bool isJuceUp() { return juce::MessageManager::getInstanceWithoutCreating() != nullptr; }

    /// Clicks on the button, and does `inside` in the loop of the menu that opens. Comes back when the menu
    /// has ended.
    void openMenuAnd(std::function<void()> inside)
    {
        Point(centreOf(panel->geometryButton));
        const InMenu menu([this] { hands.release(); }, std::move(inside));
        hands.press();
        (void)OutputOf([&menu]
                       { EXPECT_TRUE(pumpUntil([&menu] { return menu.isDone() && !isMenuOpen(); })); });
    }
};
} // namespace

TEST_F(WaitingMenu, AddsTheKeyOfTheChoice)
{
    openMenuAnd(
        [this]
        {
            EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
            PressKey("Down");
            PressKey("Down");
            PressKey("Return");
        });
    EXPECT_FALSE(isMenuOpen());
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), ElementsAre(12));
}

TEST_F(WaitingMenu, AddsNothingWhenItIsDismissed)
{
    openMenuAnd([this] { PressKey("Escape"); });
    EXPECT_FALSE(isMenuOpen());
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(WaitingMenu, EndsWithItsPanel)
{
    openMenuAnd([this] { deleteWidget(); });
    EXPECT_FALSE(isMenuOpen());
    EXPECT_TRUE(isJuceUp());
}

TEST_F(WaitingMenu, LetsJuceEndOnTheHostsThread)
{
    openMenuAnd(
        [this]
        {
            deleteWidget();
            JuceGlobalShutDown();
            EXPECT_TRUE(isJuceUp());
        });
    EXPECT_FALSE(isMenuOpen());
    EXPECT_TRUE(isJuceUp());
    RunTreeMessages();
    EXPECT_FALSE(isJuceUp());
}

TEST_F(WaitingMenu, KeepsJuceThatHasStartedAnew)
{
    openMenuAnd(
        [this]
        {
            deleteWidget();
            JuceGlobalShutDown();
            JuceGlobalInit();
        });
    RunTreeMessages();
    EXPECT_TRUE(isJuceUp());
}

TEST_F(WaitingMenu, EndsJuceAfterTheOuterOfTwo)
{
    AddObject(panel, VN_OBJECT_RENDERER, 21, "Dots");
    AddObject(panel, VN_OBJECT_RENDERER, 22, "Rays");
    const auto quit = [this]
    {
        EXPECT_EQ(juce::Component::getNumCurrentlyModalComponents(), 2);
        deleteWidget();
        JuceGlobalShutDown();
        RunTreeMessages();
        EXPECT_TRUE(isJuceUp());
    };
    std::unique_ptr<InMenu> inner;
    openMenuAnd(
        [&]
        {
            inner = std::make_unique<InMenu>([] {}, quit);
            panel->rendererButton.triggerClick();
        });
    ASSERT_TRUE(inner->isDone());
    inner.reset();
    EXPECT_TRUE(isJuceUp());
    RunTreeMessages();
    EXPECT_FALSE(isJuceUp());
}
