#pragma once
// Which window has the keyboard. The windows outside the panel belong to others, and no event tells everybody
// where the focus has gone. So the window that has it is asked to report when it loses it, and the server
// need not be asked at every idle.

#include <X11/Xlib.h>

class FocusWatch
{
public:
    struct Focus
    {
        Window window = None; ///< May be PointerRoot.
        int revert = RevertToParent;
    };

    /// `display` must outlive the object, or be null by the time it is told to stop.
    explicit FocusWatch(Display* display);

    /// Asks the server. If the focus goes elsewhere afterwards, an event comes over the connection. Windows
    /// of JUCE tell of it anyway, and the root is left to RawPresses.
    Focus Find();

    /// Whether events come at all: the extension that sends them may be missing.
    bool IsTold() const { return hasExtension; }

    /// Asks for no more events. The connection must still be open.
    void Stop() { watch(None); }

private:
    void watch(Window);

    Display* display;
    bool hasExtension;
    Window watched = None;
};
