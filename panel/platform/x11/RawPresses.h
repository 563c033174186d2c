#pragma once
// Mouse presses anywhere on the screen. The windows outside the panel belong to others, who alone may select
// the presses in them; of raw presses everybody is told who asks.

#include <X11/Xlib.h>

class RawPresses
{
public:
    /// Asks for them, and on the root for what tells that the focus comes to it or leaves it, since a
    /// connection can ask only once for a window. Without the extension that knows of them none will come.
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
