#pragma once
// A user of the panel: hands on mouse and keyboard, eyes on the screen, and waiting for what is to be seen.
// Scenarios, checks and tests are all done with these; what differs between them is how time passes and where
// the panel is. Places are those of the screen. Nothing idles unless it is said.

#include "standin/user/Waits.h"
#include "standin/user/x11/XTestInput.h"
#include "standin/user/x11/Xvfb.h"

#include <functional>
#include <memory>
#include <optional>

namespace standin::user
{
/// Passes until the condition holds; false if it does not within the limit.
bool WaitUntil(const std::function<bool()>& condition, const std::function<void()>& pass,
               std::chrono::milliseconds limit = waits::untilSeen);
/// Passes for so long.
void WaitFor(std::chrono::milliseconds duration, const std::function<void()>& pass);

/// "Control" gives "Control_L". Throws std::runtime_error for what is no modifier.
std::string ModifierKey(const std::string& name);

class User
{
public:
    /// With a server of its own, or on the display of the environment.
    explicit User(std::unique_ptr<Xvfb> ownServer = nullptr);
    virtual ~User() = default;
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    /// One pass: the host idles, and the windows get their events.
    virtual void Idle() = 0;
    /// Where the panel is on the screen.
    virtual Area PanelArea() const = 0;

    // Waiting. Between the looks the host idles.
    /// False if the condition does not hold within the limit.
    bool IdleUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = waits::untilSeen)
    {
        return WaitUntil(
            condition, [this] { Idle(); }, limit);
    }
    /// Only for a wait that is inherent, and for showing that something does not happen.
    void IdleFor(std::chrono::milliseconds duration)
    {
        WaitFor(duration, [this] { Idle(); });
    }
    /// Until the area's picture stands still for several passes, in none of which `isBusy`. False if that
    /// never comes.
    bool IdleUntilStill(
        const Area& area, const std::function<bool()>& isBusy = [] { return false; });

    // The mouse. A click that follows another one nearby waits until the two make no double click.
    void Point(Place at);
    /// The button, and the modifiers with it, stay down: "Control", "Shift".
    void Press(Place at, const std::vector<std::string>& modifiers = {}, unsigned button = 1);
    /// Ends what Press began.
    void Release(unsigned button = 1);
    void Click(Place at, const std::vector<std::string>& modifiers = {}, unsigned button = 1);
    void DoubleClick(Place at);
    /// In small steps, with a pass after each.
    void Move(Place from, Place to);
    /// Drags a row: what is dragged comes along at the pointer in a window of its own. Throws
    /// std::runtime_error if it does not, or stays.
    void Drag(Place from, Place to);
    // The two halves of it. After the first, the button is down and the pointer has arrived.
    void StartDrag(Place from, Place to);
    void Drop();
    void Wheel(Place at, int notches);

    // The keyboard. Both throw std::runtime_error for a key that there is not.
    /// "Return", "a", or with modifiers "Control+a", "Control+Shift+x".
    void PressKey(const std::string& name);
    /// ASCII text.
    void TypeText(const std::string& text) { hands.type(text); }

    // Menus. All throw std::runtime_error for what does not come.
    /// Clicks, waits until a menu is open and takes clicks, and gives its place.
    Area OpenMenu(Place at);
    /// Clicks an entry of the open menu and waits until the menu is closed.
    void ClickEntry(Place entry);
    /// Leaves it with Escape.
    void CloseMenu();

    // The eyes.
    Place OnScreen(Place inPanel) const;
    ScreenPicture PanelPicture() { return hands.picture(PanelArea()); }

private:
    std::unique_ptr<Xvfb> server;

public:
    XTestInput hands;

protected:
    /// Two clicks nearby are so far apart.
    std::chrono::milliseconds betweenClicks = waits::noDoubleClick;

private:
    void avoidDoubleClick(Place next);
    // What else a kind of user does when the pointer has moved, and when the button has gone down or up other
    // than for a choice in a menu.
    virtual void pointed(Place) {}
    virtual void pressed(Place) {}
    virtual void released() {}
    void awaitNoPopUp(const char* otherwise);

    std::vector<std::string> heldModifiers;
    Place lastPlace;
    std::chrono::steady_clock::time_point lastClick;
};
} // namespace standin::user
