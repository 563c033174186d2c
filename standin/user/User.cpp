#include "standin/user/User.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace standin::user
{
using Clock = std::chrono::steady_clock;

bool WaitUntil(const std::function<bool()>& condition, const std::function<void()>& pass,
               std::chrono::milliseconds limit)
{
    const auto end = Clock::now() + limit;
    for (int passes = 0; !condition(); ++passes)
    {
        if (Clock::now() > end && passes >= waits::leastPasses)
            return false;
        pass();
        std::this_thread::sleep_for(waits::betweenPasses);
    }
    return true;
}

void WaitFor(std::chrono::milliseconds duration, const std::function<void()>& pass)
{
    const auto end = Clock::now() + duration;
    while (Clock::now() < end)
    {
        pass();
        std::this_thread::sleep_for(waits::betweenPasses);
    }
}

std::string ModifierKey(const std::string& name)
{
    if (name == "Control" || name == "Shift" || name == "Alt" || name == "Super")
        return name + "_L";
    throw std::runtime_error("\"" + name + "\" is no modifier key: Control, Shift, Alt or Super");
}

User::User(std::unique_ptr<Xvfb> ownServer) : server(std::move(ownServer)) {}

bool User::IdleUntilStill(const Area& area, const std::function<bool()>& isBusy)
{
    int still = 0;
    std::vector<std::uint32_t> picture;
    return IdleUntil(
        [&]
        {
            auto now = hands.picture(area).pixels;
            still = isBusy() || now != picture ? 0 : still + 1;
            picture = std::move(now);
            return still == waits::stillPasses;
        },
        waits::untilStill);
}

void User::Point(Place at)
{
    hands.move(at.x, at.y);
    pointed(at);
}

void User::Press(Place at, const std::vector<std::string>& modifiers, unsigned button)
{
    avoidDoubleClick(at);
    Point(at);
    for (const std::string& modifier : modifiers)
        hands.keyDown(ModifierKey(modifier));
    heldModifiers = modifiers;
    hands.press(button);
    pressed(at);
    lastPlace = at;
    lastClick = Clock::now();
}

void User::Release(unsigned button)
{
    hands.release(button);
    released();
    for (const std::string& modifier : heldModifiers)
        hands.keyUp(ModifierKey(modifier));
    heldModifiers.clear();
    lastClick = Clock::now();
}

void User::Click(Place at, const std::vector<std::string>& modifiers, unsigned button)
{
    Press(at, modifiers, button);
    Release(button);
}

void User::avoidDoubleClick(Place next)
{
    constexpr int near = 20;
    const bool isNear = std::max(std::abs(next.x - lastPlace.x), std::abs(next.y - lastPlace.y)) < near;
    const auto since = Clock::now() - lastClick;
    if (isNear && since < betweenClicks)
        std::this_thread::sleep_for(betweenClicks - since);
}

void User::DoubleClick(Place at)
{
    avoidDoubleClick(at);
    Point(at);
    hands.doubleClick();
    pressed(at);
    lastPlace = at;
    lastClick = Clock::now();
}

void User::Move(Place from, Place to)
{
    constexpr int steps = 8;
    for (int i = 1; i <= steps; ++i)
    {
        Point({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
        Idle();
    }
}

void User::Drag(Place from, Place to)
{
    StartDrag(from, to);
    if (!IdleUntil([this] { return !hands.popUps().empty(); }))
        throw std::runtime_error("nothing comes along with the pointer");
    if (!IdleUntilStill(PanelArea()))
        throw std::runtime_error("the panel never comes to rest under what is dragged");
    Drop();
}

void User::StartDrag(Place from, Place to)
{
    Press(from);
    Idle();
    Move(from, to);
}

void User::Drop()
{
    Release();
    awaitNoPopUp("what was dragged stays at the pointer");
}

void User::Wheel(Place at, int notches)
{
    constexpr unsigned wheelUp = 4;
    constexpr unsigned wheelDown = 5;
    Point(at);
    for (int i = 0; i < std::abs(notches); ++i)
    {
        hands.press(notches > 0 ? wheelDown : wheelUp);
        hands.release(notches > 0 ? wheelDown : wheelUp);
    }
}

void User::PressKey(const std::string& name)
{
    std::vector<std::string> keys;
    std::string last = name;
    for (std::size_t plus = last.find('+'); plus != std::string::npos && plus > 0; plus = last.find('+'))
    {
        keys.push_back(ModifierKey(last.substr(0, plus)));
        last = last.substr(plus + 1);
    }
    keys.push_back(last);
    for (const std::string& key : keys)
        hands.keyDown(key);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        hands.keyUp(*key);
}

Area User::OpenMenu(Place at)
{
    Click(at);
    if (!IdleUntil([this] { return !hands.popUps().empty(); }, waits::untilExpected))
        throw std::runtime_error("no menu has opened");
    IdleFor(waits::menuIgnoresClicks);
    const std::vector<Area> menus = hands.popUps();
    if (menus.empty())
        throw std::runtime_error("the menu has closed by itself");
    return menus.back();
}

void User::ClickEntry(Place entry)
{
    Point(entry);
    Idle();
    hands.press();
    hands.release();
    awaitNoPopUp("the menu does not close");
}

void User::CloseMenu()
{
    PressKey("Escape");
    awaitNoPopUp("the menu does not close");
}

void User::awaitNoPopUp(const char* otherwise)
{
    if (!IdleUntil([this] { return hands.popUps().empty(); }))
        throw std::runtime_error(otherwise);
}

Place User::OnScreen(Place inPanel) const
{
    const Area panel = PanelArea();
    return Place{panel.x, panel.y} + inPanel;
}
} // namespace standin::user
