#pragma once
// Mouse presses anywhere on the screen. The windows outside the panel belong to others, who alone may select
// the presses in them; raw presses are told to everybody who asks.

#include <X11/Xlib.h>

class RawPresses
{
public:
    /// Asks for them, and on the root window for changes of the focus there, since a connection can ask only
    /// once for a window. Without the input extension none will come.
    /// `display` must outlive the object, or be null by the time it is told to stop.
    explicit RawPresses(Display* display);

    /// Asks for no more. The connection must still be open.
    void Stop();

    /// Must be called for each event before the next one is read. If it is a raw press, turns it into a
    /// ButtonPress that has a time and a button and no window. Leaves all other events as they are.
    void Translate(XEvent&) const;

private:
    void select(bool wanted) const;

    Display* display;
    int opcode = -1; ///< Of the extension; -1 without it.
};
