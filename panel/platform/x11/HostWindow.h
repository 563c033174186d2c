#pragma once
// The host's own window around a panel's container: whom the keyboard belongs to while the panel does not
// hold it, and who gets the keys that the panel does not use.

#include <X11/Xlib.h>

class HostWindow
{
public:
    /// `display` must outlive the object.
    HostWindow(Display* display, Window container);

    /// Remembers a window of the host that has the keyboard, so that it gets it back. Others are ignored.
    void NoteFocus(Window focused);

    /// Gives the keyboard to the window of the host that had it last, else to the host's top window. The
    /// server ignores it if the focus has changed after `time`, which may be CurrentTime.
    void TakeKeyboardBack(Time time);

    /// Sends a key event that came to the panel on to the host, with its key, modifiers, lock state and time
    /// as they are.
    void PassOn(XKeyEvent event);

private:
    Window findTop();
    Window findKeyboardOwner();
    Window findReceiver(Window first, long eventMask);

    Display* display;
    Window container;
    Window top;
    Window lastFocused = None;
    Window lastNoted = None; ///< What NoteFocus was told last, whether or not it was the host's.
};
