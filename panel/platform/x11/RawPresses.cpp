#include "panel/platform/x11/RawPresses.h"

#include "panel/platform/x11/InputExtension.h"

RawPresses::RawPresses(Display* connection) : display(connection), opcode(FindInputExtension(connection))
{
    select(true);
}

void RawPresses::Stop() { select(false); }

void RawPresses::select(bool wanted) const
{
    if (opcode < 0)
        return;
    if (wanted)
        SelectInputEvents(display, DefaultRootWindow(display), {XI_RawButtonPress, XI_FocusIn, XI_FocusOut});
    else
        SelectInputEvents(display, DefaultRootWindow(display), {});
}

void RawPresses::Translate(XEvent& event) const
{
    if (event.type != GenericEvent || event.xcookie.extension != opcode ||
        XGetEventData(display, &event.xcookie) == 0)
        return;
    XEvent press = {};
    if (event.xcookie.evtype == XI_RawButtonPress)
    {
        const auto* raw = static_cast<const XIRawEvent*>(event.xcookie.data);
        press.xbutton.type = ButtonPress;
        press.xbutton.display = display;
        press.xbutton.time = raw->time;
        press.xbutton.button = static_cast<unsigned>(raw->detail);
    }
    XFreeEventData(display, &event.xcookie);
    if (press.type == ButtonPress)
        event = press;
}
