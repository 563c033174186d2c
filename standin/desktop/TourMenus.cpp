#include "standin/desktop/TourMenus.h"

#include <JuceText.h>

#include <stdexcept>
#include <thread>

namespace standin
{
namespace
{
constexpr int tries = 8;
/// No menu takes a click earlier.
constexpr auto untilItListens = std::chrono::milliseconds(260);
} // namespace

bool TourMenus::isOpen()
{
    return hands.OnMain([] { return juce::Component::getCurrentlyModalComponent() != nullptr; });
}

int TourMenus::middleOf(const std::string& menu)
{
    return hands.OnMain(
        [&]
        {
            int left = 0;
            for (const char* name : {"File", "Edit", "Effect", "Window", "Siblings"})
            {
                const int width = TextWidth(theme::Body(), name) + 2 * theme::margin + 4;
                if (name == menu)
                    return left + width / 2;
                left += width;
            }
            throw std::logic_error("there is no menu " + menu);
        });
}

void TourMenus::Open(const std::string& menu)
{
    const int x = middleOf(menu);
    for (int i = 0; i < tries; ++i)
    {
        // A menu that has just closed hands the keyboard back in its own time.
        if (!hands.UntilSeen([this] { return !isOpen() && hands.input.someWindowHasFocus(); }))
            throw std::runtime_error("the keyboard is lost");
        hands.Click("menus", x, 12);
        if (!hands.Within(TourHands::longEnough, [this] { return isOpen(); }))
            continue;
        std::this_thread::sleep_for(untilItListens);
        if (isOpen())
            return;
    }
    throw std::runtime_error("the menu " + menu + " did not open");
}

void TourMenus::Leave()
{
    for (int i = 0; i < tries; ++i)
    {
        hands.Key("Escape");
        if (hands.Within(TourHands::longEnough, [this] { return !isOpen(); }))
            return;
    }
    throw std::runtime_error("a menu did not close");
}

std::optional<juce::Point<int>> TourMenus::placeOf(int line)
{
    return hands.OnMain(
        [line]() -> std::optional<juce::Point<int>>
        {
            const juce::Component* menu = juce::Component::getCurrentlyModalComponent();
            if (menu == nullptr || line >= menu->getNumChildComponents())
                return {};
            return menu->getChildComponent(line)->getScreenBounds().getCentre();
        });
}

/// Whether the menu is closed afterwards.
bool TourMenus::clickLine(int line)
{
    const std::optional<juce::Point<int>> at = placeOf(line);
    if (!at.has_value())
        return !isOpen();
    hands.input.move(at->x - 10, at->y);
    hands.LetIdle(1);
    hands.ClickAt(*at);
    return hands.Within(TourHands::longEnough / 2, [this] { return !isOpen(); });
}

void TourMenus::Choose(const std::string& menu, int line, const std::function<bool()>& isDone)
{
    for (int i = 0; i < tries; ++i)
    {
        Open(menu);
        for (int j = 0; j < tries && !clickLine(line); ++j)
        {
        }
        if (isOpen())
            Leave();
        if (hands.Within(TourHands::longEnough, isDone))
            return;
    }
    throw std::runtime_error("the menu " + menu + " does not do what it says");
}
} // namespace standin
