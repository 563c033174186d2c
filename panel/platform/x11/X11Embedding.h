#pragma once
// Lives with a widget in a host's X11 container: follows the container's size, takes the keyboard for the
// tree while the user works in the panel, and gives it back.
//
// Everything that it needs to know comes over JUCE's connection, in the order in which it happened: the
// container's changes, presses anywhere, focus, keys. It hands JUCE what is JUCE's, one event at a time. The
// host's own event selection stays as it is, since each connection has one of its own.

#include "panel/platform/x11/FocusWatch.h"
#include "panel/platform/x11/HostWindow.h"
#include "panel/platform/x11/RawPresses.h"
#include "tree/platform/x11/TreeX11.h"

#include <array>
#include <deque>
#include <optional>

class X11Embedding : public TreeAttachment
{
public:
    /// Attaches an embedding to a widget that is on the desktop inside `container`. Does nothing if the X
    /// server cannot be reached.
    static void Attach(ValueTreesDemo* tree, Window container);

    X11Embedding(ValueTreesDemo* tree, Window container);

    /// Whether there is work that no event will announce.
    bool MustUpdate() const;

    /// Deals with all that has come since the last call, and runs JUCE's timers and messages.
    void Update();

    /// Gives the keyboard back if the panel holds it.
    void OnTreeGone() override;

private:
    void detachKeys();
    void watchContainer();
    void leaveKeyboard();

    // What comes in.
    void handleEvents();
    bool readEvents();
    void handleEvent(XEvent& event);
    void handleConfigure(const XEvent& event);
    void handleDestroy(const XEvent& event);
    void followContainer();
    void loseContainer();

    // Presses.
    void handlePress(const XEvent& event);
    void handleRawPress(const XButtonEvent& press);
    void handlePressOutside(Time time);
    void settle(Time pending);
    bool isReleaseOverdue() const;
    bool isTreePressNext(const XButtonEvent& press) const;

    // The keyboard.
    void handleKey(const XEvent& event);
    KeyUse offerKey(const XEvent& event);
    void takeKeyboard(Time time);
    void handleFocusChange(const XEvent& event);
    void examineFocus();
    bool wasLeftBehind(Window focused, int revert) const;
    void holdKeyboard(bool isHeld);
    void selectKeys(bool wanted);

    ValueTreesDemo* tree; ///< Null once it has gone.
    Window container;
    Display* display;
    Window panelWindow;
    HostWindow host;
    RawPresses rawPresses;
    FocusWatch focusWatch;
    unsigned superMask;       ///< The modifier that JUCE does not see.
    long juceEventMask = 0;   ///< What JUCE selects on the panel's window, without keys.
    bool selectsKeys = false; ///< On the panel's window, besides.
    std::deque<XEvent> events;
    std::optional<Time> pendingPress; ///< One that may still turn out to be JUCE's.
    bool wasPressed = false;          ///< In a window of JUCE, since the last update.
    bool holdsKeyboard = false;
    bool isFocusSettled = false; ///< The focus is where it should be, as far as the server has told.
    bool hasNewSize = false;
    int newWidth = 0;
    int newHeight = 0;
    std::array<bool, 256> usedKeys{}; ///< By key code: pressed, and used by the panel.
};
