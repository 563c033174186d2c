#pragma once
// The host's own window around a panel's container: whom the keyboard belongs to while the panel does not
// hold it, and who gets the keys that the panel does not use.

#include <X11/Xlib.h>

class HostWindow
{
public:
    /// `display` is the panel's own connection and must outlive the object.
    HostWindow(Display* display, Window container);

    /// Remembers a window of the host that has the keyboard, so that it gets it back. Others are ignored.
    void NoteFocus(Window focused);

    /// Gives the keyboard to the window of the host that had it last, else to the host's top window.
    void TakeKeyboardBack() const;

    /// Sends a key event of the panel's window on to the host, with its key, modifiers, lock state and time
    /// as they are.
    void PassOn(XKeyEvent event) const;

private:
    Window target() const;
    bool belongsToHost(Window window) const;

    Display* display;
    Window top;
    Window lastFocused = None;
};
