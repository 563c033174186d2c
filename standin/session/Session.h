#pragma once
// A built bundle at work in front of a user: the stand-in host with the family installed, its dock in a real
// X window, the user's hands, and the host's idle. One session lives at a time, and a process has one bundle.

#include "standin/core/Host.h"
#include "standin/process/CapturedOutput.h"
#include "standin/session/Bundle.h"
#include "standin/session/Dock.h"
#include "standin/x11/Xvfb.h"

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace standin
{
/// What the X server is.
enum class DisplayChoice
{
    environmentOrOwn, ///< The one that DISPLAY names; an own one, without a screen, if it names none.
    own
};

class Session
{
public:
    static constexpr const char* panelName = "Vortan Object Panel";

    /// The bundle is not loaded yet. Throws std::runtime_error, in words for a user, if the file is no
    /// bundle, and DisplayMissing if there is no display.
    Session(const std::string& bundleFile, DisplayChoice display);
    ~Session();

    class DisplayMissing : public std::runtime_error
    {
    public:
        using std::runtime_error::runtime_error;
    };

    // Idle.
    /// One pass of the host's idle, with what the user did before it.
    void Idle();
    /// Idle passes until several in a row neither touched the project nor changed the picture. Throws
    /// std::runtime_error if that never comes.
    void Settle();
    /// Idle passes until the condition holds; false if it does not within the limit.
    bool IdleUntil(const std::function<bool()>& condition,
                   std::chrono::milliseconds limit = std::chrono::seconds(10));
    void IdleFor(std::chrono::milliseconds duration);

    // The user's hands, in pixels of the panel. A click that follows another closely waits until the two are
    // no double click.
    void Click(Place inPanel, const std::vector<std::string>& modifiers = {}, unsigned button = 1);
    void DoubleClick(Place inPanel);
    /// A click of which the button, and the modifiers with it, stay down.
    void Press(Place inPanel, const std::vector<std::string>& modifiers = {});
    /// In small steps, while the host idles.
    void Move(Place from, Place to);
    /// Ends what Press began.
    void Release();
    /// Presses, moves in small steps, waits until the picture stands still, releases.
    void Drag(Place from, Place to);
    void Wheel(Place inPanel, int notches);
    /// A click on the host's own strip, which belongs to the window of the host that was active last. See
    /// FocusAtClicks.
    void ClickOnHost();
    Place OnScreen(Place inPanel) const;

    // What is to be seen.
    ScreenPicture PanelPicture() const { return dock.Picture(dock.ContainerOnScreen()); }
    /// The bundle's printed lines and its host calls since the last call of Forget.
    const std::vector<std::string>& Printed();
    const std::vector<std::string>& Calls();
    const std::vector<std::string>& HostKeys();
    void Forget();
    /// Whether a hook let something escape; in words, empty if none did.
    const std::string& Thrown() const { return thrown; }
    /// Quits the host. What it should not have found is in Host::FindingsReport afterwards.
    void End();

private:
    std::unique_ptr<Xvfb> server;

public:
    XTestInput user;
    Dock dock;
    Host host;
    Bundle bundle;

private:
    void collect();
    void hearKeys();
    void press(Place inPanel, const std::vector<std::string>& modifiers, unsigned button);
    void letGoOfModifiers();
    void avoidDoubleClick() const;

    process::CapturedOutput output;
    std::vector<std::string> printed;
    std::vector<std::string> calls;
    std::vector<std::string> hostKeys;
    std::string thrown;
    std::vector<std::string> heldModifiers;
    std::chrono::steady_clock::time_point lastClick;
    bool ended = false;
};
} // namespace standin
